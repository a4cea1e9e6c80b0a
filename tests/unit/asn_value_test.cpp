#include "asn1/oid.h"
#include "support/asn_lists.h"

using namespace zul;
using test::hex_of, test::parse_hex;

TEST(AsnValue, Integers) {
    const struct {
        const char* input;
        int64_t value;
        int length;
    } cases[] = {
        {"020100", 0, 0},           {"02020080", 128, 1}, {"0201FF", 255, 1}, {"0204FFFFFFFF", 0xFFFFFFFF, 4},
        {"02050080000000", -1, 4},  {"0200", -1, 0},      {"0A0105", 5, -1},  {"800105", -1, -1},
        {"0205 0102030405", -1, -1}};
    for (const auto& c : cases) {
        uint8_t bytes[4];
        const AsnList list = parse_hex(c.input);
        EXPECT_EQ(asn_GetInt(list.head()), c.value) << c.input;
        EXPECT_EQ(asn_GetIntegerBytes(list.head(), bytes, sizeof bytes), c.length) << c.input;
    }
    EXPECT_EQ(asn_GetInt(nullptr), -1);
    for (const auto& [input, value] : {std::pair("01020001", 1), {"010100", 0}, {"0100", -1}, {"020101", -1}})
        EXPECT_EQ(asn_GetBoolean(parse_hex(input).head()), value) << input;
}

TEST(AsnValue, BitFlags) {
    const struct {
        uint32_t flags;
        const char* content; // with the octet of unused bits
    } cases[] = {{0, "00"},
                 {5, "05A0"},
                 {0x80, "0001"},
                 {0x180, "070180"},
                 {0x80000000, "0000000001"},
                 {0xFFFFFFFF, "00FFFFFFFF"}};
    for (const auto& c : cases) {
        uint8_t bytes[4];
        unsigned unused;
        const size_t n = asn_BitFlagsToBytes(c.flags, bytes, &unused);
        const AsnList list = asn_NewBitString(unused, bytes, n);
        EXPECT_EQ(Bytes(list.head()->data, list.head()->data + list.head()->length),
                  test::from_hex(c.content));
        EXPECT_EQ(asn_GetBitFlags(list.head()), c.flags);
    }
    EXPECT_EQ(asn_GetBitFlags(parse_hex("030205BF").head()), 5u); // unused bits that are set
    EXPECT_EQ(asn_GetBitFlags(parse_hex("030209FF").head()), 0u);
    EXPECT_EQ(asn_GetBitFlags(parse_hex("0300").head()), 0u);
    err_clear();
    EXPECT_EQ(asn_GetBitFlags(parse_hex("0306000102030405").head()), 0u);
    EXPECT_STREQ(err_text(), "ASN.1 internal error: unexpected BITSTRING longer than 32-bits");
    EXPECT_EQ(asn_GetBitFlags(parse_hex("230403020780").head()), 0u);
    EXPECT_STREQ(err_text(), "ASN.1 internal error: constructed BITSTRING not supported");
}

TEST(AsnValue, StringsAndTheirSegments) {
    const struct {
        bool (*get)(const asn_Node*, SecretBuffer&);
        const char *input, *content; // content null: false
    } cases[] = {{asn_GetOctets, "0402AABB", "AABB"},
                 {asn_GetOctets, "0400", ""},
                 {asn_GetOctets, "2480 0401AA 2403 0401BB 0402CCDD 0000", "AABBCCDD"},
                 {asn_GetOctets, "2403 020101", nullptr},
                 {asn_GetOctets, "8001AA", nullptr},
                 {asn_GetBitString, "030305AAFF", "AAE0"},
                 {asn_GetBitString, "030100", ""},
                 {asn_GetBitString, "0300", nullptr},
                 {asn_GetPrimitiveData, "8002AABB", "AABB"},
                 {asn_GetPrimitiveData, "30020500", nullptr},
                 {asn_StoreData, "8002AABB", "AABB"},
                 {asn_StoreData, "0480", nullptr},
                 {asn_StoreData, "30020500", nullptr}};
    for (const auto& c : cases) {
        SecretBuffer content;
        const AsnList list = parse_hex(c.input);
        EXPECT_EQ(c.get(list.head(), content), c.content != nullptr) << c.input;
        EXPECT_FALSE(c.get(nullptr, content));
        if (c.content == nullptr)
            continue;
        EXPECT_EQ(Bytes(content.data(), content.data() + content.size()), test::from_hex(c.content))
            << c.input;
        EXPECT_EQ(content.text()[content.size()], '\0');
        const size_t size = content.size();
        EXPECT_TRUE(asn_DataAppend(content, list.head()));
        EXPECT_EQ(content.size(), size + (list.head()->data == nullptr ? 0 : list.head()->length));
    }
    SecretBuffer content;
    asn_StoreData(parse_hex("0480").head(), content);
    EXPECT_STREQ(err_text(), "asn_StoreData internal error: indefinite-length not supported");
    asn_StoreData(asn_New(0, 4).head(), content);
    EXPECT_STREQ(err_text(), "asn_StoreData internal error: invalid length");
}

TEST(AsnValue, Times) {
    const struct {
        uint32_t tag;
        const char *content, *text;
    } cases[] = {{kAsnUtcTime, "500101000000Z", "1950-01-01T00:00:00Z"},
                 {kAsnUtcTime, "491231235959Z", "2049-12-31T23:59:59Z"},
                 {kAsnGeneralizedTime, "20500102030405.123Z", "2050-01-02T03:04:05Z"},
                 {kAsnUtcTime, "9912311530Z", "1999-12-31T15:30:00Z"},
                 {kAsnUtcTime, "080314090001+0100", "2008-03-14T09:00:01Z"},
                 {kAsnUtcTime, "081301246060Z", "2008-13-01T24:60:60Z"},
                 {kAsnGeneralizedTime, "2008031409.5Z", "2008-03-14T09:00:00Z"},
                 {kAsnGeneralizedTime, "080314090000Z", "0803-14-09T00:00:00Z"},
                 {kAsnUtcTime, "-80314090000Z", ""},
                 {kAsnUtcTime, "9912", ""},
                 {kAsnUtcTime, "990000", "1999-00-00T00:00:00Z"},
                 {kAsnIa5String, "500101000000Z", ""}};
    for (const auto& c : cases) {
        const std::string content = c.content;
        Bytes der = {static_cast<uint8_t>(c.tag), static_cast<uint8_t>(content.size())};
        der.insert(der.end(), content.begin(), content.end());
        const AsnList list = asn_ParseBytes(der.data(), der.size());
        char out[kAsnTimeText];
        EXPECT_STREQ(asn_time_text(list.head(), out), c.text);
        EXPECT_STREQ(asn_TimeString(list.head()), c.text);
    }
    tm time;
    EXPECT_EQ(asn_GetTime(parse_hex("0500").head(), &time), 1);
    EXPECT_EQ(asn_GetTime(nullptr, &time), -1);
    ASSERT_EQ(asn_GetTime(parse_hex("170D3530303230313033303430355A").head(), &time), 0);
    EXPECT_EQ(std::vector({time.tm_year, time.tm_mon, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec}),
              std::vector({50, 1, 1, 3, 4, 5}));
    EXPECT_EQ(time.tm_wday + time.tm_yday + time.tm_isdst, 0);
}
