#include <climits>
#include <cstring>

#include "support/module_calls.h"

using test::Bytes;

TEST(Padding, RoundTripsInPlaceAsBytesAndAsHex) {
    for (const int block : {8, 16}) {
        for (int length = 0; length <= 33; length++) {
            SCOPED_TRACE(testing::Message() << block << " " << length);
            const int pad = block - length % block, padded = length + pad;
            Bytes expected(static_cast<size_t>(length), 0xAB);
            expected.resize(static_cast<size_t>(padded), static_cast<uint8_t>(pad));

            Bytes data(expected.size() + 1, 0xAB);
            EXPECT_EQ(PAD_BytesBlock(nullptr, 0, data.data(), length, block, 0), padded);
            EXPECT_EQ(PAD_BytesBlock(data.data(), padded - 1, data.data(), length, block, 0),
                      -SHORT_BUF_ERROR);
            EXPECT_EQ(data, Bytes(data.size(), 0xAB));
            EXPECT_EQ(PAD_BytesBlock(data.data(), padded, data.data(), length, block, -1), padded);
            EXPECT_EQ(Bytes(data.begin(), data.end() - 1), expected);
            EXPECT_EQ(data.back(), 0xAB);
            EXPECT_EQ(PAD_UnpadBytes(data.data(), length - 1, data.data(), padded, block, 0),
                      -SHORT_BUF_ERROR);
            EXPECT_EQ(PAD_UnpadBytes(data.data(), length, data.data(), padded, block, 0), length);
            EXPECT_EQ(Bytes(data.begin(), data.end() - 1), expected);

            // The hex form copies the text as it is: its case, and letters that are no hex digits.
            std::string text;
            for (int i = 0; i < length; i++)
                text += i % 2 == 0 ? "aB" : "z:";
            char pads[3];
            snprintf(pads, sizeof pads, "%02X", static_cast<unsigned>(pad) & 0xFF);
            std::string expectedText = text;
            for (int i = 0; i < pad; i++)
                expectedText += pads;
            std::string buffer = text;
            buffer.resize(expectedText.size() + 2, '#');
            buffer[text.size()] = '\0';
            char* b = buffer.data();
            EXPECT_EQ(PAD_HexBlock(nullptr, 0, b, block, 0), 2 * padded);
            EXPECT_EQ(PAD_HexBlock(b, 2 * padded - 1, b, block, 0), -SHORT_BUF_ERROR);
            EXPECT_EQ(b, text);
            EXPECT_EQ(PAD_HexBlock(b, 2 * padded, b, block, 0), 2 * padded);
            EXPECT_EQ(b, expectedText);
            EXPECT_EQ(PAD_UnpadHex(b, 2 * length - 1, b, block, 0), -SHORT_BUF_ERROR);
            EXPECT_EQ(b, expectedText);
            EXPECT_EQ(PAD_UnpadHex(b, 2 * length, b, block, 0), 2 * length);
            EXPECT_EQ(b, text);
            EXPECT_EQ(buffer.back(), '#');
        }
    }
}

TEST(Padding, RefusesMisuse) {
    const Bytes in(32, 0x08);
    Bytes out(64, 0x5A);
    const uint8_t* i = in.data();
    uint8_t* o = out.data();
    const struct {
        uint8_t* out;
        int room;
        const uint8_t* in;
        int length, block, pad, unpad;
    } bytes[] = {
        {o, 64, i, 16, 12, -34, -34},
        {o, 64, i, 16, 0, -34, -34},
        {o, 64, i, 16, -8, -34, -34},
        {nullptr, 0, nullptr, -1, 32, -34, -34},
        {o, 64, nullptr, 1, 8, -14, -14},
        {o, 64, nullptr, -1, 8, -14, -14},
        {nullptr, 0, nullptr, 5, 8, -14, -14},
        {o, 64, i, -1, 8, -6, -26},
        {o, 64, i, INT_MIN, 8, -6, -26},
        {nullptr, 0, i, -8, 16, -6, -14},
        {nullptr, 0, i, INT_MAX, 8, -26, -14},
        {nullptr, 0, i, INT_MAX - 7, 8, -26, -14},
        {nullptr, 0, i, INT_MAX - 8, 8, INT_MAX - 7, -14},
        {nullptr, 0, nullptr, 0, 16, 16, -14},
        {o, 15, i, 8, 8, -30, 0},
        {o, -1, i, 8, 8, 16, -30},
        {o, 0, i, 16, 8, 24, -30},
        {o, 31, i, 31, 16, -30, -26},
    };
    for (const auto& c : bytes) {
        SCOPED_TRACE(testing::Message() << "case " << &c - bytes);
        EXPECT_EQ(PAD_BytesBlock(c.out, c.room, c.in, c.length, c.block, 0), c.pad);
        EXPECT_EQ(PAD_UnpadBytes(c.out, c.room, c.in, c.length, c.block, 0), c.unpad);
    }
    const Bytes damaged = test::from_hex("0011223344556608");
    EXPECT_EQ(PAD_UnpadBytes(o, 64, damaged.data(), 8, 8, 0), -DECRYPT_ERROR);
    EXPECT_EQ(out, Bytes(64, 0x5A));

    char text[64] = "untouched";
    const struct {
        char* out;
        int room;
        const char* in;
        int block, pad, unpad;
    } hex[] = {
        {text, 63, "0808080808080808", 12, -34, -34},
        {text, 63, nullptr, 9, -34, -34},
        {text, 63, nullptr, 8, -14, -14},
        {nullptr, 0, "", 8, 16, -14},
        {nullptr, 0, "080808080808080", 8, -7, -14},
        {text, 63, "080808080808080", 8, -7, -7},
        {text, 0, "", 8, 16, -7},
        {text, 0, "0808", 8, 16, -26},
        {text, 0, "0808080808080808", 16, 32, -26},
        {text, 0, "1122334455667700", 8, 32, -15},
        {text, 0, "1122334455667709", 8, 32, -15},
        {text, 0, "1122334455667702", 8, 32, -15},
        {text, 0, "11223344556677FF", 8, 32, -15},
        {text, 0, "zzzzzzzzzzzzzz09", 8, 32, -15},
        {text, 0, "112233445566770g", 8, 32, -15},
        {text, 0, "11223344556677  ", 8, 32, -15},
        {text, 0, "11223344550x0303", 8, 32, -15},
        {text, 0, "1122334455+30303", 8, 32, -15},
        {text, 9, "1122334455030303", 8, -30, -30},
        {text, 15, "00112233445566770808080808080808", 8, -30, -30},
    };
    for (const auto& c : hex) {
        SCOPED_TRACE(testing::Message() << "case " << &c - hex);
        EXPECT_EQ(PAD_HexBlock(c.out, c.room, c.in, c.block, 0), c.pad);
        EXPECT_EQ(PAD_UnpadHex(c.out, c.room, c.in, c.block, 0), c.unpad);
    }
    EXPECT_STREQ(text, "untouched");
    // Digits of the pad count in either case, and what stands before them is not looked at.
    EXPECT_EQ(PAD_UnpadHex(text, 12, "no hex-ok..:0202", 8, 0), 12);
    EXPECT_STREQ(text, "no hex-ok..:");
    EXPECT_EQ(PAD_UnpadHex(text, 2, "110f0F0f0f0F0f0f0f0f0f0f0f0f0f0F", 16, 0), 2);
    EXPECT_STREQ(text, "11");
}

TEST(Padding, LeavesTheErrorStateAlone) {
    ASSERT_EQ(WIPE_Data(nullptr, 1), BAD_PARAM_ERROR);
    unsigned char block[16] = {};
    char text[40];
    EXPECT_EQ(PAD_BytesBlock(block, 16, block, 3, 16, 0), 16);
    EXPECT_EQ(PAD_UnpadBytes(block, 16, block, 16, 12, 0), -BAD_BLK_LEN_ERROR);
    EXPECT_EQ(PAD_HexBlock(text, 39, "00", 8, 0), 16);
    EXPECT_EQ(PAD_UnpadHex(text, 39, text, 16, 0), -BAD_LENGTH_ERROR);
    EXPECT_EQ(ZUL_ErrorCode(), BAD_PARAM_ERROR);
    ASSERT_EQ(WIPE_Data(block, 1), 0);
    EXPECT_EQ(PAD_UnpadBytes(block, 16, nullptr, 16, 16, 0), -NULL_ERROR);
    EXPECT_EQ(ZUL_ErrorCode(), 0);
}
