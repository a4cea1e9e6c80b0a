#include "encode/base64.h"
#include "encode/hex.h"
#include "platform/cpu.h"
#include "support/unit_test.h"

using namespace zul;

static std::string encode(const Bytes& data) {
    std::vector<char> out(b64_encoded_length(data.size()) + 1);
    EXPECT_EQ(b64_encode(out.data(), out.size(), data.data(), data.size()), out.size() - 1);
    return out.data();
}

// The text stands at the end of a block of its own, with no NUL, so that a sanitizer sees a read past it.
static Bytes decode(const std::string& text, size_t room) {
    const std::vector<char> exact(text.begin(), text.end());
    Bytes out(room);
    out.resize(b64_decode(out.data(), room, exact.data(), exact.size()));
    Bytes again(room);
    again.resize(b64_decode(again.data(), room, text.c_str()));
    EXPECT_EQ(out, again) << text;
    return out;
}

TEST(Rfc4648, Vectors) {
    for (const auto& v : test::read_vectors("encode/rfc4648.txt")) {
        const std::string text = v.text("Data");
        const Bytes data(text.begin(), text.end());
        EXPECT_EQ(encode(data), v.text("Base64"));
        EXPECT_EQ(decode(v.text("Base64"), data.size()), data);
        char hex[16];
        EXPECT_EQ(hex_encode(hex, sizeof hex, data.data(), data.size()), 2 * data.size());
        EXPECT_EQ(hex, v.text("Base16"));
    }
}

TEST(Base64, DecodesLeniently) {
    const struct {
        const char* text;
        const char* bytes;
    } cases[] = {
        {"QUJD=RA==", "ABC"},
        {"=QUJD", ""},
        {"Q", ""},
        {"QUJDR", "ABC"},
        {"Q U\r\nJ\tD", "ABC"},
        {"QUJDREVG", "ABCDEF"},
        {"QU*JDR_EV-G\x80\xFF", "ABCDEF"},
        {"QUJDREVGR0\r\nhJ", "ABCDEFGHI"},
    };
    for (const auto& c : cases) {
        const std::string expected = c.bytes;
        EXPECT_EQ(b64_decoded_length(c.text), expected.size()) << c.text;
        EXPECT_EQ(decode(c.text, 16), Bytes(expected.begin(), expected.end())) << c.text;
    }
    // A length beyond the NUL changes nothing.
    const std::string ended("QUJD\0REVG", 9);
    EXPECT_EQ(b64_decoded_length(ended.data(), ended.size()), 3u);
    EXPECT_EQ(decode(ended, 9).size(), 3u);
}

TEST(Base64, LosesTheGroupThatDoesNotFit) {
    const struct {
        const char* text;
        size_t room, written;
    } cases[] = {
        {"QUJDREVG", 5, 3},   {"QUJDREVG", 2, 0}, {"QUJDREVG", 6, 6}, {"QUJDREU=", 5, 5},
        {"QUJDREU=", 4, 3},   {"QUJDRA==", 4, 4}, {"QUJDRA==", 3, 3}, {"Q\nUJDREVG", 2, 0},
        {"Q\nUJDREVG", 5, 3}, {"QUJD", 0, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(decode(c.text, c.room).size(), c.written) << c.text << " room " << c.room;
}

TEST(Base64, RoundTripsWhateverTheLines) {
    Bytes data(1000);
    for (size_t i = 0; i < data.size(); i++)
        data[i] = static_cast<uint8_t>(i * i >> 3);
    const std::string text = encode(data);
    for (size_t width = 1; width < 130; width += 3) {
        std::string lines;
        for (size_t i = 0; i < text.size(); i += width)
            lines += text.substr(i, width) + "\r\n";
        EXPECT_EQ(b64_decoded_length(lines.c_str()), data.size()) << width;
        EXPECT_EQ(decode(lines, data.size()), data) << width;
    }
}

namespace {

// What the readers of encodings make of a text, with a mark after the room that they were given.
Bytes readings(const std::string& text, size_t room) {
    Bytes all;
    for (const bool isHex : {false, true}) {
        Bytes out(room + 1, 0xAA);
        const size_t size = isHex ? hex_decode(out.data(), room, text.c_str())
                                  : b64_decode(out.data(), room, text.data(), text.size());
        const size_t wanted = isHex ? hex_decoded_length(text.c_str()) : b64_decoded_length(text.c_str());
        out.push_back(static_cast<uint8_t>(size));
        out.push_back(static_cast<uint8_t>(wanted));
        all.insert(all.end(), out.begin(), out.end());
    }
    return all;
}

} // namespace

// Each value of a character at each place of a text of several vectors.
TEST(EncodingKernels, ReadAsThePortableCode) {
    Bytes data(150);
    for (size_t i = 0; i < data.size(); i++)
        data[i] = static_cast<uint8_t>(i * 89 + 7);
    std::string hex(300, '\0');
    hex_encode_lower(hex.data(), hex.size() + 1, data.data(), data.size());
    for (const std::string& whole : {encode(data), hex})
        for (unsigned c = 0; c < 256; c++)
            for (size_t at = 0; at < whole.size(); at += c == '\n' ? 1 : 7) {
                std::string text = whole;
                text[at] = static_cast<char>(c);
                const size_t room = at % 3 == 0 ? 150 : 150 - at % 100;
                cpu_mask_features(kCpuAvx2);
                const Bytes portable = readings(text, room);
                cpu_mask_features(0);
                ASSERT_EQ(readings(text, room), portable) << text << " " << c << " at " << at;
            }
}

TEST(EncodingKernels, WriteAsThePortableCode) {
    for (size_t size = 0; size < 130; size++) {
        Bytes data(size);
        for (size_t i = 0; i < size; i++)
            data[i] = static_cast<uint8_t>(i * 89 + size);
        std::string texts[2][3];
        for (const bool masked : {false, true}) {
            cpu_mask_features(masked ? kCpuAvx2 : 0u);
            texts[masked][0] = encode(data);
            for (const bool lower : {false, true}) {
                std::string& hex = texts[masked][1 + lower];
                hex.resize(2 * size);
                (lower ? hex_encode_lower : hex_encode)(hex.data(), 2 * size + 1, data.data(), size);
            }
        }
        cpu_mask_features(0);
        for (int i = 0; i < 3; i++)
            EXPECT_EQ(texts[0][i], texts[1][i]);
    }
}
