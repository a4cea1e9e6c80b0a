#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

// The peer is the program `openssl enc`, whose streams in CBC and ECB carry the same padding.

namespace {

using Bytes = std::vector<uint8_t>;

class CipherInterop : public testing::Test {
  protected:
    void run_openssl(const std::string& arguments) const {
        ASSERT_EQ(std::system(("cd '" + dir.path() + "' && openssl enc " + arguments + " >log 2>&1").c_str()),
                  0)
            << arguments << "\n"
            << test::read_text(dir.file("log"));
    }

    test::TempDir dir;
};

const struct {
    const char *ours, *theirs;
} kCiphers[] = {
    {"aes128/ecb", "aes-128-ecb"}, {"aes128/cbc", "aes-128-cbc"}, {"aes128/cfb", "aes-128-cfb"},
    {"aes128/ofb", "aes-128-ofb"}, {"aes128/ctr", "aes-128-ctr"}, {"aes192/ecb", "aes-192-ecb"},
    {"aes192/cbc", "aes-192-cbc"}, {"aes192/cfb", "aes-192-cfb"}, {"aes192/ofb", "aes-192-ofb"},
    {"aes192/ctr", "aes-192-ctr"}, {"aes256/ecb", "aes-256-ecb"}, {"aes256/cbc", "aes-256-cbc"},
    {"aes256/cfb", "aes-256-cfb"}, {"aes256/ofb", "aes-256-ofb"}, {"aes256/ctr", "aes-256-ctr"},
    {"tdea/ecb", "des-ede3"},      {"tdea/cbc", "des-ede3-cbc"},  {"tdea/cfb", "des-ede3-cfb"},
    {"tdea/ofb", "des-ede3-ofb"}, // it knows no counter mode for Triple DES
};

} // namespace

TEST_F(CipherInterop, FilesOpenBothWays) {
    Bytes key(32);
    for (size_t i = 0; i < key.size(); i++)
        key[i] = static_cast<uint8_t>(17 * i + 3);
    const Bytes iv = test::from_hex("FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFD"); // the counter wraps at once
    for (const size_t size : {0u, 15u, 4096u, 100001u}) {
        Bytes plain(size);
        for (size_t i = 0; i < size; i++)
            plain[i] = static_cast<uint8_t>(i * 31 + i / 251);
        const std::string source = dir.write("plain", plain);
        for (const auto& c : kCiphers) {
            SCOPED_TRACE(testing::Message() << c.theirs << " " << size);
            const std::string name = c.ours;
            const size_t block = name[0] == 't' ? 8 : 16;
            const size_t keyLength = name[0] == 't' ? 24 : static_cast<size_t>(std::stoi(name.substr(3))) / 8;
            const std::string arguments =
                std::string("-") + c.theirs + " -K " + test::to_hex(key.data(), keyLength) +
                (name.ends_with("ecb") ? "" : " -iv " + test::to_hex(iv.data(), block));
            const std::string ours = dir.file("ours"), back = dir.file("back");
            EXPECT_EQ(CIPHER_File(1, ours.c_str(), source.c_str(), key.data(), iv.data(), c.ours, 0), 0);
            run_openssl(arguments + " -e -in plain -out theirs");
            EXPECT_EQ(test::read_file(ours), test::read_file(dir.file("theirs")));
            EXPECT_EQ(
                CIPHER_File(0, back.c_str(), dir.file("theirs").c_str(), key.data(), iv.data(), c.ours, 0),
                0);
            EXPECT_EQ(test::read_file(back), plain);
            run_openssl(arguments + " -d -in ours -out back");
            EXPECT_EQ(test::read_file(back), plain);
        }
    }
}
