#include <array>
#include <openssl/evp.h>

#include "bench_pair.h"
#include "pbe/kdf.h"
#include "zulcore.h"

namespace {

constexpr char kPassword[] = "correct horse battery staple";
constexpr int kPasswordLen = sizeof kPassword - 1;
constexpr std::array<unsigned char, 8> kSalt = {1, 2, 3, 4, 5, 6, 7, 8};
std::array<unsigned char, 32> ours, theirs;

// One output block each; what a key costs is a multiple of it.
void add_pbkdf2(const char* name, int option, const EVP_MD* peer, int length) {
    constexpr int kIterations = 100'000;
    bench_register({name, 0,
                    [option, length] {
                        zul::pbkdf2(ours.data(), static_cast<size_t>(length), option, kPassword, kPasswordLen,
                                    kSalt.data(), kSalt.size(), kIterations);
                    },
                    [peer, length] {
                        PKCS5_PBKDF2_HMAC(kPassword, kPasswordLen, kSalt.data(), kSalt.size(), kIterations,
                                          peer, length, theirs.data());
                    }});
}

} // namespace

BENCH_ROWS {
    add_pbkdf2("PBKDF2-HMAC-SHA-256, 100,000 iterations", ZUL_HASH_SHA256, EVP_sha256(), 32);
    add_pbkdf2("PBKDF2-HMAC-SHA-1, 100,000 iterations", ZUL_HASH_SHA1, EVP_sha1(), 20);
    add_pbkdf2("PBKDF2-HMAC-SHA-512, 100,000 iterations", ZUL_HASH_SHA512, EVP_sha512(), 32);
}
