#include "encode/hex.h"
#include "support/unit_test.h"

using namespace zul;

TEST(Hex, DecodesLeniently) {
    const struct {
        const char* text;
        const char* bytes;
    } cases[] = {
        {"", ""},
        {"ABC", "ab"},
        {"DE:AD be-ef", "deadbeef"},
        {"0g1", "01"},
        {" a b\r\nc\td ", "abcd"},
        {"aAfF09", "aaff09"},
        {"/0:9@AGF`agf", "09afaf"},
        {"\xC1\xB0\x31", ""},
        {"1\xFF\x32 3", "12"},
    };
    for (const auto& c : cases) {
        const std::vector<uint8_t> expected = test::from_hex(c.bytes);
        ASSERT_EQ(hex_decoded_length(c.text), expected.size()) << c.text;
        for (size_t room = 0; room <= expected.size() + 1; room++) {
            std::vector<uint8_t> out(room);
            out.resize(hex_decode(out.data(), room, c.text));
            Bytes cut = expected;
            cut.resize(std::min(room, cut.size()));
            EXPECT_EQ(out, cut) << c.text << " room " << room;
        }
    }
}

TEST(Hex, EncodesEveryByteInBothCases) {
    std::vector<uint8_t> all(256);
    for (size_t i = 0; i < all.size(); i++)
        all[i] = static_cast<uint8_t>(i);
    std::vector<char> upper(513), lower(513);
    EXPECT_EQ(hex_encode(upper.data(), upper.size(), all.data(), all.size()), 512u);
    EXPECT_EQ(hex_encode_lower(lower.data(), lower.size(), all.data(), all.size()), 512u);
    EXPECT_EQ(std::string(lower.data()), test::to_hex(all));
    for (size_t i = 0; i < 512; i++)
        EXPECT_EQ(upper[i], lower[i] >= 'a' ? lower[i] - 'a' + 'A' : lower[i]);
    size_t length = 0;
    std::vector<uint8_t> back(256);
    EXPECT_TRUE(hex_decode_strict(back.data(), &length, upper.data(), 512));
    EXPECT_EQ(length, 256u);
    EXPECT_EQ(back, all);
}

TEST(Hex, StrictRefusesAnythingElseAndLeavesNothing) {
    for (const std::string text : {"A", "ABC", "AG", "GA", "A B ", "AB\n1", "AB:CD1", "0x11", "ab\xB0\xB1"}) {
        std::vector<uint8_t> out(text.size() / 2, 0xCC);
        size_t length = 99;
        EXPECT_FALSE(hex_decode_strict(out.data(), &length, text.data(), text.size())) << text;
        EXPECT_EQ(length, 0u);
        for (const uint8_t byte : out)
            EXPECT_TRUE(byte == 0 || byte == 0xCC) << text;
    }
    size_t length = 99;
    EXPECT_TRUE(hex_decode_strict(nullptr, &length, "", 0));
    EXPECT_EQ(length, 0u);
}
