#include <climits>
#include <cstring>

#include "support/module_calls.h"

TEST(HmacExports, MeetTheStandardsInEveryRoom) {
    for (const char* file : {"hash/hmac_rfc2202.txt", "hash/hmac_rfc4231.txt"}) {
        for (const auto& v : test::read_vectors(file)) {
            const auto algorithm = static_cast<int>(v.number("Algorithm"));
            const std::vector<uint8_t> key = v.hex("Key"), data = v.hex("Data"), expected = v.hex("Mac");
            const auto keyLen = static_cast<int>(key.size()), dataLen = static_cast<int>(data.size());
            const auto room = static_cast<int>(expected.size());

            std::vector<unsigned char> mac(expected.size());
            EXPECT_EQ(HMAC_Bytes(mac.data(), room, data.data(), dataLen, key.data(), keyLen, algorithm),
                      room);
            EXPECT_EQ(mac, expected);

            char text[129];
            memset(text, '#', sizeof text);
            EXPECT_EQ(HMAC_HexFromBytes(text, 2 * room, data.data(), dataLen, key.data(), keyLen,
                                        algorithm | 0x100),
                      2 * room);
            EXPECT_EQ(text, test::to_hex(expected));
            EXPECT_EQ(HMAC_HexFromBytes(text, 7, data.data(), dataLen, key.data(), keyLen, algorithm), 6);
            EXPECT_EQ(text, test::to_hex(expected).substr(0, 6));
            EXPECT_EQ(
                HMAC_HexFromHex(text, 2 * room, v.text("Data").c_str(), v.text("Key").c_str(), algorithm),
                2 * room);
            EXPECT_EQ(text, test::to_hex(expected));
        }
    }
}

TEST(HmacExports, TellTheLength) {
    constexpr int kLengths[] = {20, 16, -17, 32, 48, 64, 28, 20, -17, -17, -17, -17, -17, -17, -17, -17};
    for (int algorithm = 0; algorithm < 16; algorithm++) {
        const int length = kLengths[algorithm];
        const int recorded = length < 0 ? BAD_FLAG_ERROR : 0, ofQuery = length < 0 ? BAD_BLK_LEN_ERROR : 0;
        EXPECT_RECORDED(HMAC_Bytes(nullptr, 0, "msg", 3, "key", 3, algorithm), length, recorded);
        unsigned char mac[64];
        EXPECT_EQ(HMAC_Bytes(mac, INT_MIN, "msg", 3, "key", 3, algorithm), length);
        EXPECT_RECORDED(HMAC_Bytes(mac, 64, "msg", 3, "key", 3, algorithm), length, recorded);

        // The hex forms double whatever a query finds: callers know a bad algorithm there as -34.
        EXPECT_RECORDED(HMAC_HexFromBytes(nullptr, 0, "msg", 3, "key", 3, algorithm), 2 * length, ofQuery);
        EXPECT_RECORDED(HMAC_HexFromHex(nullptr, 128, "6d7367", "6b6579", algorithm), 2 * length, ofQuery);
        char text[129];
        for (const bool fromHex : {false, true}) {
            memset(text, '#', sizeof text);
            const int result = fromHex ? HMAC_HexFromHex(text, 128, "6d7367", "6b6579", algorithm)
                                       : HMAC_HexFromBytes(text, 128, "msg", 3, "key", 3, algorithm);
            EXPECT_RECORDED(result, length < 0 ? -17 : 2 * length, recorded);
            EXPECT_EQ(strlen(text), length < 0 ? 0u : 2u * static_cast<unsigned>(length));
        }
    }
}

TEST(HmacExports, RefuseMisuse) {
    unsigned char mac[64];
    char text[129];
    EXPECT_RECORDED(HMAC_Bytes(mac, 64, nullptr, 0, "key", 3, 0), -6, 0);
    EXPECT_RECORDED(HMAC_Bytes(mac, 64, "msg", -1, "key", 3, 0), -6, 0);
    EXPECT_RECORDED(HMAC_Bytes(mac, 64, "msg", 3, nullptr, 0, 0), -6, 0);
    EXPECT_RECORDED(HMAC_Bytes(mac, 64, "msg", 3, "key", INT_MIN, 2), -6, 0);
    EXPECT_RECORDED(HMAC_HexFromBytes(text, 128, nullptr, 3, "key", 3, 0), -6, 0);
    EXPECT_RECORDED(HMAC_HexFromBytes(text, 128, "msg", 3, "key", -3, 0), -6, 0);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, nullptr, "6b6579", 0), -6, 0);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, "6d7367", nullptr, 0), -6, 0);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, "6d7367", "", 0), -33, 33);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, "6d736", "6", 2), -33, 33);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, "6d736", "6b6", 0), -7, 7);
    EXPECT_RECORDED(HMAC_HexFromHex(nullptr, 0, "6d7367", "6b6x", 8), -7, 7);
    EXPECT_RECORDED(HMAC_HexFromHex(text, 128, "6d736", "6b65", 8), -8, 8);
}

// MACs by Python.
TEST(HmacExports, TakeEmptyKeysAndMessagesAndWholeBlocks) {
    constexpr char kEmptyUnderKey[] = "5d5d139563c95b5967b9bd9a8c9b233a9dedb45072794cd232dc1b74832607d0";
    const struct {
        size_t keyLength; // of "k"; a key of one block is not digested
        int algorithm;
        const char* mac;
    } cases[] = {
        {0, ZUL_HASH_SHA256, "b613679a0814d9ec772f95d778c35fc5ff1697c493715653c6c712144292c5ad"},
        {64, ZUL_HASH_MD5, "114eeb1da42af605666663c84c40d185"},
        {64, ZUL_HASH_SHA256, "83026a325aaee70e36cfe607536aa1054104ad1077c36134810d4ccded1ccd3b"},
        {128, ZUL_HASH_SHA384,
         "6a2c7a0784f6a1f92a451c85fea7802d13f8ecd754735d6f6cab037b724713de9af127f457ce12fb1708cacda894480f"},
    };
    char text[129];
    for (const auto& c : cases) {
        const std::string key(c.keyLength, 'k');
        HMAC_HexFromBytes(text, 128, "", 0, key.data(), static_cast<int>(key.size()), c.algorithm);
        EXPECT_STREQ(text, c.mac);
    }
    for (const char* message : {"", "6x", "zzzz"}) {
        EXPECT_RECORDED(HMAC_HexFromHex(text, 64, message, "6B6579", ZUL_HASH_SHA256), 64, 0);
        EXPECT_STREQ(text, kEmptyUnderKey) << message;
    }
}
