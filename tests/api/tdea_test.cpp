#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

namespace {

using Bytes = std::vector<uint8_t>;

#define EXPECT_STATUS(call, code)                                                                            \
    do {                                                                                                     \
        EXPECT_EQ(call, code);                                                                               \
        EXPECT_EQ(ZUL_ErrorCode(), code);                                                                    \
    } while (0)

// SP 800-67's example ("The qufck brown fox jump") in ECB; the other modes as OpenSSL 3.0 enciphers it, the
// counter wrapping within the message.
const char* const kKeyHex = "0123456789ABCDEF23456789ABCDEF01456789ABCDEF0123";
const char* const kKeyB64 = "ASNFZ4mrze8jRWeJq83vAUVniavN7wEj";
const char* const kIvHex = "FFFFFFFFFFFFFFFF";
const char* const kIvB64 = "//////////8=";
const char* const kPlainHex = "54686520717566636B2062726F776E20666F78206A756D70";
const char* const kPlainB64 = "VGhlIHF1ZmNrIGJyb3duIGZveCBqdW1w";
const struct {
    const char *mode, *hex, *b64;
} kExamples[] = {
    {"ECB", "A826FD8CE53B855FCCE21C8112256FE668D5C05DD9B6B900", "qCb9jOU7hV/M4hyBEiVv5mjVwF3ZtrkA"},
    {"cbc", "3018A6D5EF25236CC84E01E05A4FB9ECE20B6F7D70C264EC", "MBim1e8lI2zITgHgWk+57OILb31wwmTs"},
    {"Cfb", "A9CD848B5151D44A35B21ED09511D71F15372A80600564F6", "qc2Ei1FR1Eo1sh7QlRHXHxU3KoBgBWT2"},
    {"OFB", "A9CD848B5151D44AE9A34ACFB698C32C59DF45AC426F3CF0", "qc2Ei1FR1Erpo0rPtpjDLFnfRaxCbzzw"},
    {"ctr", "A9CD848B5151D44A259A11EEF6FCA54038D181AC88D8543C", "qc2Ei1FR1EolmhHu9vylQDjRgayI2FQ8"},
};

} // namespace

TEST(Tdea, EnciphersBytesTextsAndFiles) {
    const test::TempDir dir;
    const Bytes key = test::from_hex(kKeyHex), iv = test::from_hex(kIvHex), plain = test::from_hex(kPlainHex);
    const std::string plainFile = dir.write("plain", plain), made = dir.file("made"), back = dir.file("back");
    for (const auto& c : kExamples) {
        SCOPED_TRACE(c.mode);
        const Bytes want = test::from_hex(c.hex);
        Bytes data = plain;
        EXPECT_STATUS(TDEA_BytesMode(data.data(), data.data(), 24, key.data(), 1, c.mode, iv.data()), 0);
        EXPECT_EQ(data, want);
        EXPECT_STATUS(TDEA_BytesMode(data.data(), data.data(), 24, key.data(), 0, c.mode, iv.data()), 0);
        EXPECT_EQ(data, plain);

        char text[50];
        text[49] = '#';
        EXPECT_STATUS(TDEA_HexMode(text, kPlainHex, kKeyHex, 1, c.mode, kIvHex), 0);
        EXPECT_STREQ(text, c.hex);
        EXPECT_STATUS(TDEA_HexMode(text, text, kKeyHex, 0, c.mode, kIvHex), 0);
        EXPECT_STREQ(text, kPlainHex);
        EXPECT_EQ(text[49], '#');
        text[33] = '#';
        EXPECT_STATUS(TDEA_B64Mode(text, kPlainB64, kKeyB64, 1, c.mode, kIvB64), 0);
        EXPECT_STREQ(text, c.b64);
        EXPECT_STATUS(TDEA_B64Mode(text, text, kKeyB64, 0, c.mode, kIvB64), 0);
        EXPECT_STREQ(text, kPlainB64);
        EXPECT_EQ(text[33], '#');

        EXPECT_STATUS(TDEA_File(made.c_str(), plainFile.c_str(), key.data(), 1, c.mode, iv.data()), 0);
        Bytes content = test::read_file(made);
        EXPECT_EQ(content.size(), c.hex[0] == 'A' && c.hex[1] == '9' ? 24u : 32u);
        EXPECT_EQ(Bytes(content.begin(), content.begin() + 24), want);
        EXPECT_STATUS(TDEA_File(back.c_str(), made.c_str(), key.data(), 0, c.mode, iv.data()), 0);
        EXPECT_EQ(test::read_file(back), plain);
    }
    // One byte of base64 and one of hex: the output is as long as the data, not as a block.
    char text[6] = "#####";
    EXPECT_STATUS(TDEA_B64Mode(text, "VA==", kKeyB64, 1, "OFB", kIvB64), 0);
    EXPECT_STREQ(text, "qQ==");
    EXPECT_STATUS(TDEA_HexMode(text, "54", kKeyHex, 1, "CTR", kIvHex), 0);
    EXPECT_STREQ(text, "A9");
}

TEST(Tdea, RefusesMisuse) {
    const Bytes key = test::from_hex(kKeyHex), iv = test::from_hex(kIvHex);
    const uint8_t *k = key.data(), *v = iv.data();
    Bytes out(16, 0x5A);
    uint8_t* o = out.data();
    const struct {
        uint8_t* out;
        const uint8_t* in;
        int length;
        const uint8_t* key;
        const char* mode;
        const uint8_t* iv;
        int code;
    } bytes[] = {
        {o, k, 16, k, nullptr, v, BAD_PARAM_ERROR},  {o, k, 16, k, "", v, BAD_MODE_ERROR},
        {o, k, 16, k, "CBCC", v, BAD_MODE_ERROR},    {o, k, 16, k, "XYZ", v, BAD_MODE_ERROR},
        {o, k, -1, k, "CBC", v, BAD_PARAM_ERROR},    {nullptr, k, 16, k, "CBC", v, NULL_ERROR},
        {o, nullptr, 16, k, "CBC", v, NULL_ERROR},   {o, k, 16, nullptr, "CBC", v, NULL_ERROR},
        {o, k, 16, k, "CBC", nullptr, BAD_IV_ERROR}, {o, k, 15, k, "CBC", v, BAD_LENGTH_ERROR},
        {o, k, 12, k, "ECB", v, BAD_LENGTH_ERROR},
    };
    for (const auto& c : bytes) {
        SCOPED_TRACE(testing::Message() << "case " << &c - bytes);
        EXPECT_STATUS(TDEA_BytesMode(c.out, c.in, c.length, c.key, 1, c.mode, c.iv), c.code);
    }
    EXPECT_EQ(out, Bytes(16, 0x5A));

    const std::string longKey = std::string(kKeyHex) + "00", longKeyB64 = std::string(kKeyB64) + "AA==";
    char text[64] = "untouched";
    const struct {
        const char *in, *key, *mode, *iv, *inB64, *keyB64, *ivB64;
        int code;
    } texts[] = {
        {kPlainHex, kKeyHex, nullptr, kIvHex, kPlainB64, kKeyB64, kIvB64, BAD_PARAM_ERROR},
        {kPlainHex, kKeyHex, "EBC", kIvHex, kPlainB64, kKeyB64, kIvB64, BAD_MODE_ERROR},
        {nullptr, kKeyHex, "CBC", kIvHex, nullptr, kKeyB64, kIvB64, NULL_ERROR},
        {kPlainHex, nullptr, "CBC", kIvHex, kPlainB64, nullptr, kIvB64, NULL_ERROR},
        {"", kKeyHex, "CBC", kIvHex, "", kKeyB64, kIvB64, BAD_PARAM_ERROR},
        {kPlainHex, "", "CBC", kIvHex, kPlainB64, "", kIvB64, BAD_PARAM_ERROR},
        {kPlainHex, kKeyHex + 2, "CBC", kIvHex, kPlainB64, kKeyB64 + 4, kIvB64, BAD_KEY_LEN_ERROR},
        {kPlainHex, longKey.c_str(), "CBC", kIvHex, kPlainB64, longKeyB64.c_str(), kIvB64, BAD_KEY_LEN_ERROR},
        {kPlainHex, kKeyHex, "CBC", nullptr, kPlainB64, kKeyB64, nullptr, BAD_IV_ERROR},
        {kPlainHex, kKeyHex, "CTR", kKeyHex, kPlainB64, kKeyB64, kKeyB64, BAD_IV_ERROR},
        {kPlainHex, kKeyHex, "CTR", "FFFFFFFFFFFFFF", kPlainB64, kKeyB64, "/////////w==", BAD_IV_ERROR},
        {kPlainHex + 2, kKeyHex, "ECB", nullptr, kPlainB64 + 4, kKeyB64, nullptr, BAD_LENGTH_ERROR},
    };
    for (const auto& c : texts) {
        SCOPED_TRACE(testing::Message() << "case " << &c - texts);
        EXPECT_STATUS(TDEA_HexMode(text, c.in, c.key, 1, c.mode, c.iv), c.code);
        EXPECT_STATUS(TDEA_B64Mode(text, c.inB64, c.keyB64, 0, c.mode, c.ivB64), c.code);
    }
    EXPECT_STREQ(text, "untouched");
    EXPECT_STATUS(TDEA_HexMode(nullptr, kPlainHex, kKeyHex, 1, "CBC", kIvHex), NULL_ERROR);
    EXPECT_STATUS(TDEA_B64Mode(nullptr, kPlainB64, kKeyB64, 1, "CBC", kIvB64), NULL_ERROR);

    const test::TempDir dir;
    const std::string in = dir.write("in", "12345678"), made = dir.file("made");
    EXPECT_STATUS(TDEA_File(made.c_str(), in.c_str(), k, 1, nullptr, v), BAD_PARAM_ERROR);
    EXPECT_STATUS(TDEA_File(made.c_str(), in.c_str(), k, 1, "CBC128", v), BAD_MODE_ERROR);
    EXPECT_STATUS(TDEA_File(made.c_str(), in.c_str(), k, 1, "CBC", nullptr), BAD_IV_ERROR);
    EXPECT_STATUS(TDEA_File(in.c_str(), in.c_str(), k, 1, "CBC", v), BAD_PARAM_ERROR);
    EXPECT_STATUS(TDEA_File(made.c_str(), made.c_str(), k, 1, "CBC", v), OPEN_ERROR);
    EXPECT_STATUS(TDEA_File(made.c_str(), in.c_str(), k, 0, "ECB", v), DECRYPT_ERROR);
    EXPECT_FALSE(test::file_exists(made));
    EXPECT_EQ(test::read_text(in), "12345678");
}
