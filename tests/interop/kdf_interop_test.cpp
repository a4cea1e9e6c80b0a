#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

// The peers are `openssl kdf` and `argon2`.

namespace {

std::string output_of(const std::string& command) {
    test::TempDir dir;
    const std::string file = dir.file("out");
    EXPECT_EQ(std::system((command + " >'" + file + "' 2>&1").c_str()), 0) << test::read_text(file);
    std::string hex;
    for (const char c : test::read_text(file)) {
        if (std::isxdigit(static_cast<unsigned char>(c)))
            hex += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return hex;
}

} // namespace

TEST(KdfInterop, KeysAreThoseOfOtherPrograms) {
    unsigned char key[1000];
    const auto ours = [&](int length) {
        return length < 0 ? "code " + std::to_string(length) : test::to_hex(key, static_cast<size_t>(length));
    };
    const std::string openssl = "openssl kdf -keylen ",
                      secret = " -kdfopt pass:secret -kdfopt salt:saltsalt ";
    for (const char* hash :
         {"md5", "sha1", "sha224", "sha256", "sha384", "sha512", "sha512-256", "sha3-224", "sha3-512"}) {
        const std::string digest = std::string(" -kdfopt digest:") + hash;
        EXPECT_EQ(ours(KDF_Pbkdf2(key, 77, "secret", 6, "saltsalt", 8, 1234, hash)),
                  output_of(openssl + "77" + digest + secret + "-kdfopt iter:1234 PBKDF2"));
        EXPECT_EQ(ours(KDF_Hkdf(key, 1000, "secret", 6, "salt", 4, "info", 4, hash)),
                  output_of(openssl + "1000" + digest +
                            " -kdfopt key:secret -kdfopt salt:salt -kdfopt info:info HKDF"));
    }
    EXPECT_EQ(ours(KDF_Scrypt(key, 99, "secret", 6, "saltsalt", 8, 4096, 5, 3)),
              output_of(openssl + "99" + secret + "-kdfopt n:4096 -kdfopt r:5 -kdfopt p:3 SCRYPT"));
    for (const int lanes : {1, 3})
        EXPECT_EQ(ours(KDF_Argon2id(key, 48, "secret", 6, "saltsalt", 8, 65537, 3, lanes)),
                  output_of("printf secret | argon2 saltsalt -id -r -t 3 -k 65537 -l 48 -p " +
                            std::to_string(lanes)));
}
