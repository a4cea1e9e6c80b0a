#include "support/module_calls.h"

using test::Bytes;

namespace {

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
        EXPECT_RESULT(TDEA_BytesMode(data.data(), data.data(), 24, key.data(), 1, c.mode, iv.data()), 0);
        EXPECT_EQ(data, want);
        EXPECT_RESULT(TDEA_BytesMode(data.data(), data.data(), 24, key.data(), 0, c.mode, iv.data()), 0);
        EXPECT_EQ(data, plain);

        char text[50];
        text[49] = '#';
        EXPECT_RESULT(TDEA_HexMode(text, kPlainHex, kKeyHex, 1, c.mode, kIvHex), 0);
        EXPECT_STREQ(text, c.hex);
        EXPECT_RESULT(TDEA_HexMode(text, text, kKeyHex, 0, c.mode, kIvHex), 0);
        EXPECT_STREQ(text, kPlainHex);
        EXPECT_EQ(text[49], '#');
        text[33] = '#';
        EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, kKeyB64, 1, c.mode, kIvB64), 0);
        EXPECT_STREQ(text, c.b64);
        EXPECT_RESULT(TDEA_B64Mode(text, text, kKeyB64, 0, c.mode, kIvB64), 0);
        EXPECT_STREQ(text, kPlainB64);
        EXPECT_EQ(text[33], '#');

        EXPECT_RESULT(TDEA_File(made.c_str(), plainFile.c_str(), key.data(), 1, c.mode, iv.data()), 0);
        Bytes content = test::read_file(made);
        EXPECT_EQ(content.size(), c.hex[0] == 'A' && c.hex[1] == '9' ? 24u : 32u);
        EXPECT_EQ(Bytes(content.begin(), content.begin() + 24), want);
        EXPECT_RESULT(TDEA_File(back.c_str(), made.c_str(), key.data(), 0, c.mode, iv.data()), 0);
        EXPECT_EQ(test::read_file(back), plain);
    }
    // One byte of base64 and one of hex: the output is as long as the data, not as a block.
    char text[6] = "#####";
    EXPECT_RESULT(TDEA_B64Mode(text, "VA==", kKeyB64, 1, "OFB", kIvB64), 0);
    EXPECT_STREQ(text, "qQ==");
    EXPECT_RESULT(TDEA_HexMode(text, "54", kKeyHex, 1, "CTR", kIvHex), 0);
    EXPECT_STREQ(text, "A9");
}

// What the family adds to the checks that it shares with CIPHER_: the mode, base64, and the order of the
// arguments.
TEST(Tdea, RefusesMisuse) {
    const Bytes key = test::from_hex(kKeyHex), iv = test::from_hex(kIvHex);
    const uint8_t *k = key.data(), *v = iv.data();
    const test::TempDir dir;
    const std::string in = dir.write("in", "12345678"), made = dir.file("made");
    Bytes out(16, 0x5A);
    char text[64] = "untouched";
    const struct {
        const char* mode;
        int code;
    } modes[] = {{nullptr, BAD_PARAM_ERROR},
                 {"", BAD_MODE_ERROR},
                 {"CB", BAD_MODE_ERROR},
                 {"CBCC", BAD_MODE_ERROR},
                 {" CBC", BAD_MODE_ERROR}};
    for (const auto& c : modes) {
        EXPECT_RESULT(TDEA_BytesMode(out.data(), k, 16, k, 1, c.mode, v), c.code);
        EXPECT_RESULT(TDEA_HexMode(text, kPlainHex, kKeyHex, 1, c.mode, kIvHex), c.code);
        EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, kKeyB64, 1, c.mode, kIvB64), c.code);
        EXPECT_RESULT(TDEA_File(made.c_str(), in.c_str(), k, 1, c.mode, v), c.code);
    }
    EXPECT_RESULT(TDEA_BytesMode(out.data(), k, -1, k, 1, "CBC", v), BAD_PARAM_ERROR);
    EXPECT_RESULT(TDEA_BytesMode(out.data(), k, 16, nullptr, 1, "CBC", v), NULL_ERROR);
    EXPECT_RESULT(TDEA_BytesMode(out.data(), k, 16, k, 1, "CBC", nullptr), BAD_IV_ERROR);
    EXPECT_EQ(out, Bytes(16, 0x5A));

    const std::string longKey = std::string(kKeyB64) + "AA==";
    EXPECT_RESULT(TDEA_HexMode(text, kPlainHex, "", 1, "CBC", kIvHex), BAD_PARAM_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, "", kKeyB64, 1, "CBC", kIvB64), BAD_PARAM_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, kKeyB64 + 4, 1, "CBC", kIvB64), BAD_KEY_LEN_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, longKey.c_str(), 1, "CBC", kIvB64), BAD_KEY_LEN_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, kKeyB64, 1, "CTR", kKeyB64), BAD_IV_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64, kKeyB64, 1, "CTR", "/////////w=="), BAD_IV_ERROR);
    EXPECT_RESULT(TDEA_B64Mode(text, kPlainB64 + 4, kKeyB64, 1, "ECB", nullptr), BAD_LENGTH_ERROR);
    EXPECT_STREQ(text, "untouched");

    EXPECT_RESULT(TDEA_File(made.c_str(), in.c_str(), k, 1, "CBC", nullptr), BAD_IV_ERROR);
    EXPECT_RESULT(TDEA_File(made.c_str(), in.c_str(), k, 0, "ECB", v), DECRYPT_ERROR);
    EXPECT_FALSE(test::file_exists(made));
}
