#include "asn1/asn_walk.h"
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

TEST(AsnWalk, StepsAndFetches) {
    const AsnList good = parse_hex("3012 020101 3006 020102 800155 3005 020103 0500");
    ASSERT_TRUE(good);
    const asn_Node* head = good.head();
    EXPECT_EQ(asn_GetInt(asn_FindTag(head, kAsnInteger)), 1);
    EXPECT_EQ(asn_GetInt(asn_FindTagAtLevel(head, kAsnInteger, 2)), 2);
    EXPECT_EQ(asn_GetInt(asn_FindTagAtLevelN(head, kAsnInteger, 2, 2)), 3);
    EXPECT_EQ(asn_FindTagAtLevelN(head, kAsnInteger, 3, 2), nullptr);
    EXPECT_EQ(asn_NextAtLevel(head, 1), asn_FindTag(head, kAsnInteger));
    EXPECT_EQ(asn_GetInt(asn_Skip(head, 3, 1)->next), 3);
    EXPECT_EQ(asn_FindContext(head, 0)->data[0], 0x55);
    EXPECT_EQ(asn_FindContextAtLevel(head, 0, 1), nullptr);
    EXPECT_EQ(asn_FindTag(nullptr, 2), nullptr);
    const AsnList copy = asn_FetchElement(head, kAsnSequence, 1, 1);
    EXPECT_EQ(hex_of(copy), "3006020102800155");
    EXPECT_EQ(copy.tail()->level, 1u);
    EXPECT_EQ(hex_of(asn_FetchElement(head, kAsnInteger, 3, -1)), "020103");
    EXPECT_FALSE(asn_FetchElement(head, kAsnInteger, 4, -1));
}

TEST(AsnWalk, OidValuesAreFoundInsideStrings) {
    const auto extension = [](const char* name, AsnList value) {
        return asn_NewSequence(asn_LinkList(asn_NewOid(name), asn_NewOctetStringOf(std::move(value))));
    };
    const AsnList list = asn_NewSequence(asn_LinkList(
        asn_NewBitStringOf(0, asn_NewSequence(extension("keyUsage", asn_NewBitString(5, "\xA0", 1)))),
        asn_NewOctetStringOf(asn_NewOctetStringOf(extension("title", asn_NewInteger(7)))), asn_NewNull()));
    const AsnList usage = asn_FindOidValue(list.head(), "KEYUSAGE", kAsnOctetString);
    ASSERT_TRUE(usage);
    EXPECT_EQ(usage.head()->length, 4u);
    EXPECT_EQ(usage.head()->level, 0u);
    const AsnList title = asn_FindOidValue(list.head(), "title", kAsnOctetString);
    ASSERT_TRUE(title);
    EXPECT_EQ(title.head()->length, 3u);
    EXPECT_FALSE(asn_FindOidValue(list.head(), "title", kAsnBoolean));
    EXPECT_FALSE(asn_FindOidValue(list.head(), "surname", kAsnOctetString));
    EXPECT_FALSE(asn_FindOidValue(list.head(), "no such name", kAsnOctetString));
    EXPECT_FALSE(asn_FindOidValue(nullptr, "title", kAsnOctetString));
    const AsnList bare = asn_New(kAsnConstructed, kAsnSequence);
    EXPECT_FALSE(asn_FindOidValue(bare.head(), "title", kAsnOctetString));
    EXPECT_STREQ(err_text(), "Invalid HeaderSize found");

    // Strings in strings by the thousand cost neither the stack nor the square of their number.
    Bytes layers(1 << 20);
    for (size_t i = 0; i + 5 <= layers.size(); i += 5) {
        const size_t inside = layers.size() - i - 5;
        layers[i] = 4;
        layers[i + 1] = 0x83;
        for (size_t k = 0; k < 3; k++)
            layers[i + 2 + k] = static_cast<uint8_t>(inside >> (16 - 8 * k));
    }
    Bytes titles;
    for (int i = 0; i < 100000; i++)
        titles.insert(titles.end(), {6, 3, 0x55, 4, 12});
    const AsnList many = asn_ParseAll(titles.data(), titles.size());
    ASSERT_TRUE(many);
    EXPECT_FALSE(asn_FindOidValue(many.head(), "title", kAsnOctetString));

    const AsnList deep = asn_ParseBytes(layers.data(), layers.size());
    ASSERT_TRUE(deep);
    EXPECT_FALSE(asn_FindOidValue(deep.head(), "title", kAsnOctetString));
}
