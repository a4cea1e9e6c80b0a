#include <climits>
#include <filesystem>
#include <map>

#ifndef _WIN32
#include <unistd.h>
#endif

#include "support/module_calls.h"

using test::Bytes;

namespace {

using test::from_hex, test::sequence, test::to_hex;

constexpr int kModes[] = {ZUL_MODE_ECB, ZUL_MODE_CBC, ZUL_MODE_OFB, ZUL_MODE_CFB, ZUL_MODE_CTR};
constexpr int kCiphers[] = {ZUL_CIPHER_TDEA, ZUL_CIPHER_AES128, ZUL_CIPHER_AES192, ZUL_CIPHER_AES256};

bool pads(int mode) {
    return mode == ZUL_MODE_ECB || mode == ZUL_MODE_CBC;
}

int block_length(int cipher) {
    return cipher == ZUL_CIPHER_TDEA ? 8 : 16;
}

const Bytes key = sequence(32);
const Bytes iv = from_hex("F0F1F2F3F4F5F6F7FFFFFFFFFFFFFFFE");

} // namespace

// The vectors also show which option means which mode.
TEST(CipherBytes, MeetsTheStandardByNameAndByOption) {
    const std::map<std::string, int> options = {
        {"ECB", 0}, {"CBC", 0x100}, {"OFB", 0x200}, {"CFB", 0x300}, {"CTR", 0x400}};
    for (const test::Vector& vector : test::read_vectors("cipher/aes.txt")) {
        const Bytes k = vector.hex("Key"), plain = vector.hex("Plaintext"), want = vector.hex("Ciphertext"),
                    v = vector.has("IV") ? vector.hex("IV") : Bytes(16);
        const std::string mode = vector.text("Mode"), bits = std::to_string(8 * k.size()),
                          name = "aes" + bits + (mode == "ECB" ? "" : "/" + mode);
        const int size = static_cast<int>(want.size()),
                  option = options.at(mode) | static_cast<int>(k.size() / 8) << 4;
        Bytes out(want.size());
        EXPECT_RESULT(CIPHER_Bytes(1, out.data(), plain.data(), size, k.data(), v.data(), nullptr, option),
                      0);
        EXPECT_EQ(out, want);
        // In place; any nonzero value encrypts.
        Bytes data = plain;
        EXPECT_RESULT(CIPHER_Bytes(-7, data.data(), data.data(), size, k.data(), v.data(), name.c_str(), 0),
                      0);
        EXPECT_EQ(data, want);
        EXPECT_RESULT(CIPHER_Bytes(0, data.data(), data.data(), size, k.data(), v.data(), name.c_str(), 0),
                      0);
        EXPECT_EQ(data, plain);
        std::string text(2 * want.size() + 2, '#');
        EXPECT_RESULT(CIPHER_Hex(1, text.data(), 2 * size, to_hex(plain).c_str(), to_hex(k).c_str(),
                                 to_hex(v).c_str(), name.c_str(), 0),
                      0);
        EXPECT_EQ(text.back(), '#');
        EXPECT_EQ(from_hex(text.c_str()), want);
        EXPECT_EQ(text.find_first_of("abcdef"), std::string::npos);
    }
}

TEST(CipherBytes, RefusesMisuse) {
    const Bytes in = sequence(32);
    const uint8_t *k = key.data(), *v = iv.data(), *i = in.data();
    Bytes out(32, 0x5A);
    uint8_t* o = out.data();
    const struct {
        uint8_t* out;
        const uint8_t* in;
        int length;
        const uint8_t *key, *iv;
        const char* name;
        int options, code;
    } cases[] = {
        {o, i, 32, k, v, nullptr, 0, -BAD_PARAM_ERROR},
        {o, i, 32, k, v, "aes128/CBC", 0x100, -BAD_PARAM_ERROR},
        {o, i, 32, k, v, nullptr, 0x520, -BAD_MODE_ERROR},
        {o, i, 32, k, v, nullptr, 0x150, -BAD_FLAG_ERROR},
        {nullptr, nullptr, -1, nullptr, nullptr, nullptr, 0xF0, -BAD_FLAG_ERROR},
        {o, i, -1, k, v, nullptr, 0x420, BAD_PARAM_ERROR},
        {o, i, INT_MIN, k, v, nullptr, 0x420, BAD_PARAM_ERROR},
        {nullptr, i, 32, k, v, nullptr, 0x120, NULL_ERROR},
        {o, nullptr, 32, k, v, nullptr, 0x120, NULL_ERROR},
        {o, i, 32, nullptr, v, nullptr, 0x120, NULL_ERROR},
        {o, i, 32, k, nullptr, nullptr, 0x120, BAD_IV_ERROR},
        {o, i, 32, k, nullptr, "aes256cfb", 0, BAD_IV_ERROR},
        {o, i, 32, k, nullptr, "tdea-ctr", 0, BAD_IV_ERROR},
        {o, i, 17, k, v, nullptr, 0x20, BAD_LENGTH_ERROR},
        {o, i, 9, k, v, nullptr, 0x110, BAD_LENGTH_ERROR},
    };
    for (const auto& c : cases) {
        for (const int encrypt : {0, 1}) {
            SCOPED_TRACE(testing::Message() << "case " << &c - cases);
            EXPECT_RESULT(CIPHER_Bytes(encrypt, c.out, c.in, c.length, c.key, c.iv, c.name, c.options),
                          c.code);
        }
    }
    EXPECT_EQ(out, Bytes(32, 0x5A));
    EXPECT_EQ(CIPHER_Bytes(1, o, i, 32, k, nullptr, nullptr, 0x20), 0);
}

TEST(CipherHex, RefusesMisuse) {
    const std::string k = "000102030405060708090a0b0c0d0e0f", v = k, in = k + k;
    const std::string kv = k + "00", shortKey = k.substr(1);
    std::string out(80, '#');
    char* o = out.data();
    const struct {
        char* out;
        int room;
        const char *in, *key, *iv;
        int options, code;
    } cases[] = {
        {o, 64, in.c_str(), k.c_str(), v.c_str(), 0, -BAD_PARAM_ERROR},
        {nullptr, 64, in.c_str(), k.c_str(), v.c_str(), 0x120, NULL_ERROR},
        {nullptr, 0, in.c_str(), k.c_str(), v.c_str(), 0x120, NULL_ERROR}, // there is no length query
        {o, 64, nullptr, k.c_str(), v.c_str(), 0x120, NULL_ERROR},
        {o, 64, in.c_str(), nullptr, v.c_str(), 0x120, NULL_ERROR},
        {o, 64, "", k.c_str(), v.c_str(), 0x120, BAD_PARAM_ERROR},
        {o, -1, "no 8", k.c_str(), v.c_str(), 0x420, SHORT_BUF_ERROR}, // no room even for the NUL
        {o, 64, in.c_str(), "", v.c_str(), 0x120, BAD_PARAM_ERROR},
        {o, 64, in.c_str(), shortKey.c_str(), v.c_str(), 0x120, BAD_KEY_LEN_ERROR},
        {o, 64, in.c_str(), kv.c_str(), v.c_str(), 0x120, BAD_KEY_LEN_ERROR},
        {o, 64, in.c_str(), k.c_str(), v.c_str(), 0x140, BAD_KEY_LEN_ERROR},
        {o, 64, in.c_str(), k.c_str(), nullptr, 0x120, BAD_IV_ERROR},
        {o, 64, in.c_str(), k.c_str(), "", 0x120, BAD_IV_ERROR},
        {o, 64, in.c_str(), k.c_str(), shortKey.c_str(), 0x120, BAD_IV_ERROR},
        {o, 64, in.c_str(), k.c_str(), kv.c_str(), 0x420, BAD_IV_ERROR},
        {o, 63, in.c_str(), k.c_str(), v.c_str(), 0x120, SHORT_BUF_ERROR},
        {o, 0, in.c_str(), k.c_str(), v.c_str(), 0x120, SHORT_BUF_ERROR},
        {o, INT_MIN, in.c_str(), k.c_str(), v.c_str(), 0x120, SHORT_BUF_ERROR},
        {o, 64, in.c_str() + 2, k.c_str(), v.c_str(), 0x120, BAD_LENGTH_ERROR},
    };
    for (const auto& c : cases) {
        for (const int encrypt : {0, 1}) {
            SCOPED_TRACE(testing::Message() << "case " << &c - cases);
            EXPECT_RESULT(CIPHER_Hex(encrypt, c.out, c.room, c.in, c.key, c.iv, nullptr, c.options), c.code);
        }
    }
    EXPECT_EQ(out, std::string(80, '#'));
    // In ECB nobody looks at the IV. Separators do not count, and a digit left over is dropped.
    EXPECT_RESULT(CIPHER_Hex(1, o, 32, "6bc1bee2:2e409f96 e93d7e11-7393172a.a",
                             "2b7e1516 28aed2a6 abf71588 09cf4f3c", "none", "aes128", 0),
                  0);
    EXPECT_STREQ(o, "3AD77BB40D7A3660A89ECAF32466EF97");
    // A text that is not empty may stand for no bytes.
    EXPECT_RESULT(CIPHER_Hex(1, o, 0, "no 8", k.c_str(), v.c_str(), "aes128cbc", 0), 0);
    EXPECT_STREQ(o, "");
}

// A file's content is what the byte form makes of the padded data.
TEST(CipherFile, RoundTripsEveryModeAndLength) {
    const test::TempDir dir;
    const std::string cipherText = dir.file("cipher text"), back = dir.file("back");
    for (const size_t size : {0u, 1u, 15u, 16u, 17u, 4095u, 4096u, 4097u, 100000u}) {
        const Bytes plain = sequence(size);
        const std::string source = dir.write("plain", plain);
        for (const int cipher : kCiphers) {
            for (const int mode : kModes) {
                SCOPED_TRACE(testing::Message() << std::hex << (cipher | mode) << " " << std::dec << size);
                const int block = block_length(cipher), length = static_cast<int>(size);
                Bytes expected = plain;
                if (pads(mode)) {
                    expected.resize(size + static_cast<size_t>(block - length % block));
                    PAD_BytesBlock(expected.data(), static_cast<int>(expected.size()), plain.data(), length,
                                   block, 0);
                }
                if (!expected.empty()) {
                    EXPECT_EQ(CIPHER_Bytes(1, expected.data(), expected.data(),
                                           static_cast<int>(expected.size()), key.data(), iv.data(), nullptr,
                                           cipher | mode),
                              0);
                }
                EXPECT_RESULT(CIPHER_File(1, cipherText.c_str(), source.c_str(), key.data(), iv.data(),
                                          nullptr, cipher | mode),
                              0);
                EXPECT_EQ(test::read_file(cipherText), expected);
                EXPECT_RESULT(CIPHER_File(0, back.c_str(), cipherText.c_str(), key.data(), iv.data(), nullptr,
                                          cipher | mode),
                              0);
                EXPECT_EQ(test::read_file(back), plain);
            }
        }
    }
}

TEST(CipherFile, RefusesDamageAndLeavesNoOutput) {
    const test::TempDir dir;
    const std::string out = dir.file("out");
    const Bytes good = sequence(4096 + 16);
    for (const size_t size : {16u, 4096u, 4112u}) {
        for (const char* end : {"00", "11", "0302", "FF", "0203", "0F101010101010101010101010101010"}) {
            Bytes data(good.begin(), good.begin() + static_cast<long>(size));
            const Bytes wrong = from_hex(end);
            std::copy(wrong.begin(), wrong.end(), data.end() - static_cast<long>(wrong.size()));
            if (data.size() - wrong.size() > 0)
                data[size - wrong.size() - 1] = 0x77;
            CIPHER_Bytes(1, data.data(), data.data(), static_cast<int>(size), key.data(), iv.data(),
                         "aes128cbc", 0);
            const std::string in = dir.write("in", data);
            SCOPED_TRACE(testing::Message() << size << " " << end);
            EXPECT_RESULT(CIPHER_File(0, out.c_str(), in.c_str(), key.data(), iv.data(), "aes128cbc", 0),
                          DECRYPT_ERROR);
            EXPECT_FALSE(test::file_exists(out));
        }
    }
    const std::string kept = dir.write("kept", "kept");
    for (const size_t size : {0u, 1u, 15u, 17u, 4095u, 4097u}) {
        const std::string in = dir.write("in", Bytes(good.begin(), good.begin() + static_cast<long>(size)));
        EXPECT_RESULT(CIPHER_File(0, kept.c_str(), in.c_str(), key.data(), nullptr, "aes256", 0),
                      BAD_LENGTH_ERROR);
    }
    EXPECT_EQ(test::read_text(kept), "kept");
}

TEST(CipherFile, FailureLeavesNothingUnderAnotherNameEither) {
    const test::TempDir dir;
    const std::string in = dir.write("in", sequence(200000)), out = dir.write("out", "before");
    const std::string linked = dir.file("hard link");
    std::filesystem::create_hard_link(out, linked);
    EXPECT_RESULT(CIPHER_File(0, out.c_str(), in.c_str(), key.data(), iv.data(), "aes128cbc", 0),
                  DECRYPT_ERROR);
    EXPECT_FALSE(test::file_exists(out));
    EXPECT_EQ(test::read_text(linked), "");
}

TEST(CipherFile, RefusesMisuseBeforeItTouchesAFile) {
    const test::TempDir dir;
    const std::string in = dir.write("in", sequence(64)), kept = dir.write("kept", "kept");
    const std::string missing = dir.file("missing"), nowhere = dir.file("no folder/out"), folder = dir.path();
    const std::string other = dir.file("./in"), link = dir.file("link"), endless(10000, 'x');
    const std::string made = dir.file("made");
    std::filesystem::create_hard_link(in, link);
    const char *i = in.c_str(), *o = kept.c_str();
    const uint8_t *k = key.data(), *v = iv.data();
    const struct {
        const char *out, *in;
        const uint8_t *key, *iv;
        int options, code;
    } cases[] = {
        {o, i, k, v, 0, -BAD_PARAM_ERROR},
        {nullptr, i, k, v, 0x120, NULL_ERROR},
        {o, nullptr, k, v, 0x120, NULL_ERROR},
        {o, i, nullptr, v, 0x120, NULL_ERROR},
        {o, i, k, nullptr, 0x120, BAD_IV_ERROR},
        {o, missing.c_str(), k, nullptr, 0x120, BAD_IV_ERROR},
        {o, missing.c_str(), k, v, 0x120, OPEN_ERROR},
        {o, "", k, v, 0x120, OPEN_ERROR},
        {o, folder.c_str(), k, v, 0x120, OPEN_ERROR},
        {o, endless.c_str(), k, v, 0x120, OPEN_ERROR},
        {i, i, k, v, 0x120, BAD_PARAM_ERROR},
        {other.c_str(), i, k, v, 0x420, BAD_PARAM_ERROR},
        {link.c_str(), i, k, v, 0x20, BAD_PARAM_ERROR},
        {nowhere.c_str(), i, k, v, 0x120, CREATE_ERROR},
        {"", i, k, v, 0x120, CREATE_ERROR},
        {folder.c_str(), i, k, v, 0x120, CREATE_ERROR},
        {endless.c_str(), i, k, v, 0x120, CREATE_ERROR},
#ifndef _WIN32
        {"/dev/full", i, k, v, 0x120, WRITE_ERROR},
#endif
#ifdef __linux__
        {made.c_str(), "/proc/self/mem", k, v, 0x420, READ_ERROR}, // opens, and fails at the first read
#endif
    };
    for (const auto& c : cases) {
        for (const int encrypt : {0, 1}) {
            SCOPED_TRACE(testing::Message() << "case " << &c - cases);
            if (c.code == WRITE_ERROR && encrypt == 0)
                continue; // the pad check comes first
            EXPECT_RESULT(CIPHER_File(encrypt, c.out, c.in, c.key, c.iv, nullptr, c.options), c.code);
        }
    }
    EXPECT_EQ(test::read_text(kept), "kept");
    EXPECT_EQ(test::read_file(in), sequence(64));
    EXPECT_FALSE(test::file_exists(missing) || test::file_exists(made));
    EXPECT_FAILURE(CIPHER_File(1, nowhere.c_str(), i, k, v, "tdea-ctr", 0), CREATE_ERROR,
                   "Cannot create file '" + nowhere + "'");
}

#ifndef _WIN32
// The length of a pipe shows only at its end.
TEST(CipherFile, ReadsPipes) {
    const test::TempDir dir;
    const std::string out = dir.file("out");
    const Bytes plain = sequence(5000);
    for (const int cut : {0, 3, 5008}) {
        Bytes data(plain.size() + 8);
        const int size = PAD_BytesBlock(data.data(), static_cast<int>(data.size()), plain.data(), 5000, 8, 0);
        CIPHER_Bytes(1, data.data(), data.data(), size, key.data(), iv.data(), "tdea-cbc", 0);
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const auto written = static_cast<size_t>(size - cut);
        ASSERT_EQ(write(ends[1], data.data(), written), static_cast<ssize_t>(written));
        close(ends[1]);
        const std::string in = "/dev/fd/" + std::to_string(ends[0]);
        EXPECT_RESULT(CIPHER_File(0, out.c_str(), in.c_str(), key.data(), iv.data(), "tdea-cbc", 0),
                      cut == 0 ? 0 : BAD_LENGTH_ERROR);
        close(ends[0]);
        if (cut == 0)
            EXPECT_EQ(test::read_file(out), plain);
        else
            EXPECT_FALSE(test::file_exists(out));
    }
}
#endif
