#include "frame/file_writer.h"
#include "support/asn_lists.h"

using namespace zul;
using test::encoded, test::hex_of;

static AsnList integer_of(const char* magnitude) {
    const Bytes bytes = test::from_hex(magnitude);
    return asn_NewIntegerBytes(bytes.data(), bytes.size());
}

static tm time_of(int year, int month, int day) {
    tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = 1;
    time.tm_min = 2;
    time.tm_sec = 3;
    return time;
}

TEST(AsnBuild, MakersGiveDer) {
    EXPECT_EQ(hex_of(asn_NewInteger(0)), "020100");
    EXPECT_EQ(hex_of(asn_NewInteger(0x80)), "02020080");
    EXPECT_EQ(hex_of(asn_NewInteger(65537)), "0203010001");
    EXPECT_EQ(hex_of(asn_NewInteger(0xFFFFFFFF)), "020500ffffffff");
    EXPECT_EQ(hex_of(integer_of("0000FF")), "020200ff");
    EXPECT_EQ(hex_of(integer_of("00007F01")), "02027f01");
    EXPECT_EQ(hex_of(integer_of("0000")), "020100");
    EXPECT_EQ(hex_of(asn_NewBoolean(7)), "0101ff");
    EXPECT_EQ(hex_of(asn_NewBoolean(0)), "010100");
    EXPECT_EQ(hex_of(asn_NewOid("keyUsage")), "0603551d0f");
    EXPECT_EQ(hex_of(asn_NewOid("no such name")), "0600");
    EXPECT_EQ(hex_of(asn_NewContextPrim(2, "ab", 2)), "82026162");
    EXPECT_EQ(hex_of(asn_NewExplicit(3, asn_NewNull())), "a3020500");
    EXPECT_EQ(hex_of(asn_NewBitString(5, "\xA0", 1)), "030205a0");
    EXPECT_EQ(hex_of(asn_NewBitString(0, nullptr, 0)), "030100");
    EXPECT_EQ(hex_of(asn_NewBitStringOf(0, asn_NewSequence(asn_NewNull()))), "03050030020500");
    EXPECT_EQ(hex_of(asn_NewOctetStringOf(asn_LinkList(asn_NewNull(), asn_NewInteger(1)))), "04050500020101");
    EXPECT_EQ(hex_of(asn_NewSet(AsnList())), "3100");
    EXPECT_EQ(hex_of(asn_NewUTF8String("\xC3\xA9")), "0c02c3a9");
    EXPECT_EQ(hex_of(asn_NewUTF8String("\xE9")), "0c02c3a9"); // Latin-1
    EXPECT_EQ(encoded(asn_NewUTF8String(std::string(1000, '\xE9').c_str())).size(), 2004u);
    EXPECT_EQ(hex_of(asn_NewBMPString("a\xE9")), "1e04006100e9");
    EXPECT_EQ(hex_of(asn_NewHashAlgId(0x13)), "300d06096086480165030402010500");
    EXPECT_EQ(hex_of(asn_NewHashAlgId(9)), "300906052b0e03021a0500"); // an unknown number is SHA-1
}

TEST(AsnBuild, TimesTakeTheFormOfTheirYear) {
    EXPECT_EQ(encoded(asn_NewTime(time_of(2049, 12, 31)))[0], kAsnUtcTime);
    EXPECT_EQ(hex_of(asn_NewTime(time_of(1950, 1, 1))),
              "170d" + test::to_hex(reinterpret_cast<const uint8_t*>("500101010203Z"), 13));
    EXPECT_EQ(hex_of(asn_NewTime(time_of(2050, 1, 1))),
              "180f" + test::to_hex(reinterpret_cast<const uint8_t*>("20500101010203Z"), 15));
    EXPECT_EQ(encoded(asn_NewTime(time_of(1949, 1, 1)))[0], kAsnGeneralizedTime);
    EXPECT_FALSE(asn_NewUTCTime(time_of(2050, 1, 1)));
    EXPECT_STREQ(err_text(), "asn_NewUTCTime: Year out of range\n");
}

TEST(AsnBuild, LengthsTakeTheFewestOctets) {
    const struct {
        size_t n;
        const char* header;
    } cases[] = {{0, "0400"},
                 {127, "047f"},
                 {128, "048180"},
                 {255, "0481ff"},
                 {256, "04820100"},
                 {65535, "0482ffff"},
                 {65536, "0483010000"},
                 {0xFFFFFF, "0483ffffff"},
                 {0x1000000, "048401000000"}};
    const Bytes content(0x1000000, 7);
    for (const auto& c : cases) {
        const AsnList list = asn_NewOctetString(content.data(), c.n);
        const Bytes out = encoded(list);
        const size_t headerSize = out.size() - c.n;
        EXPECT_EQ(test::to_hex(out.data(), headerSize), c.header);
        EXPECT_EQ(asn_Length(list.head()), out.size());
        EXPECT_TRUE(asn_ParseBytes(out.data(), out.size()));
    }
}

TEST(AsnBuild, JoinsAndLinksRefuseWhatHasNoPlace) {
    EXPECT_FALSE(asn_Join(asn_NewNull(), asn_NewNull()));
    EXPECT_STREQ(err_text(), "asn_Join: Illegal join");
    EXPECT_FALSE(asn_NewSequence(asn_LinkList(asn_NewNull(), asn_New(0, 2))));
    EXPECT_STREQ(err_text(), "asn_Join: sub-length not set\n");
    EXPECT_FALSE(asn_NdefAppend(asn_NewNdefUniversal(16), asn_New(0, 2)));
    EXPECT_STREQ(err_text(), "asn_NdefAppend: sub-length not set\n");
    EXPECT_FALSE(asn_NdefAppend(asn_NewSequence(asn_NewNull()), asn_NewNull()));
    EXPECT_EQ(asn_Length(asn_New(0, 2).head()), 0u);
    EXPECT_STREQ(err_text(), "asn_Length: sub-length not set\n");
    const AsnList high = asn_New(0, 31); // a tag that takes more octets
    high.head()->length = 1;
    EXPECT_EQ(asn_Length(high.head()), 0u);
    EXPECT_EQ(asn_SetHeader(asn_New(0, 2).head()), 0u);
    EXPECT_STREQ(err_text(), "asn_SetHeader: Attempt to set header without length.");
    EXPECT_TRUE(asn_Encode(asn_LinkList(asn_NewNull(), asn_New(0, 2))).empty());

    // What an element that could not be made belongs to is not made without it.
    const tm year1949 = time_of(1949, 1, 1);
    EXPECT_FALSE(asn_NewSequence(asn_LinkList(asn_NewInteger(1), asn_NewUTCTime(year1949), asn_NewNull())));
    EXPECT_FALSE(asn_NewOctetStringOf(asn_NewSequence(asn_NewUTCTime(year1949))));
    EXPECT_STREQ(err_text(), "asn_NewUTCTime: Year out of range\n");

    const AsnList owner = asn_LinkList(asn_NewInteger(1), asn_NewInteger(2));
    EXPECT_FALSE(asn_Link(asn_NewNull(), AsnList(owner.head()->next)));
    EXPECT_STREQ(err_text(), "asn_Link: 2nd header is invalid\n");
    EXPECT_EQ(hex_of(owner), "020101020102");
}

TEST(AsnBuild, AJoinGoesBeforeWhatFollowsItsHeader) {
    AsnList list = asn_New(kAsnConstructed, kAsnSequence);
    asn_NewAfter(list, list.head(), 0, kAsnNull)->length = 0;
    list = asn_Join(std::move(list), asn_NewSequence(asn_NewInteger(5)));
    EXPECT_EQ(hex_of(list), "300530030201050500");
    list = asn_Link(std::move(list), asn_NewBoolean(1));
    EXPECT_EQ(hex_of(list), "3005300302010505000101ff");
    EXPECT_EQ(list.head()->next->next->level, 2u);
    EXPECT_EQ(asn_Length(list.head()), 12u);
    EXPECT_EQ(asn_Length(list.head()->next->next), 3u);
}

TEST(AsnBuild, IndefiniteLengthsNestAndReadBack) {
    AsnList inner = asn_NdefAppend(asn_NewNdefExplicit(0), asn_NewOctetString("ab", 2));
    inner = asn_AppendEOC(asn_NdefAppend(std::move(inner), asn_NewNull()));
    AsnList outer = asn_NdefAppend(asn_NewNdefUniversal(kAsnSequence), asn_NewOid("data"));
    outer = asn_AppendEOC(asn_NdefAppend(std::move(outer), std::move(inner)));
    const Bytes out = encoded(outer);
    EXPECT_EQ(test::to_hex(out), "308006092a864886f70d010701a08004026162050000000000");
    EXPECT_EQ(asn_Length(outer.head()), out.size());
    const AsnList back = asn_ParseBytes(out.data(), out.size());
    EXPECT_EQ(encoded(back), out);
    const asn_Node* read = back.head();
    for (const asn_Node* made = outer.head(); made != nullptr; made = made->next, read = read->next)
        EXPECT_EQ(read->level, made->level);
    // Inside a definite length too, made or copied from what was read.
    const std::string wrapped = hex_of(asn_NewSet(std::move(outer)));
    EXPECT_EQ(wrapped, "3119" + test::to_hex(out));
    EXPECT_EQ(hex_of(asn_NewSet(asn_CopyList(back.head()))), wrapped);
    EXPECT_EQ(hex_of(asn_CopyElement(back.head()->next->next)), "a0800402616205000000");
}

TEST(AsnBuild, SetsAreSortedByTheirEncodings) {
    AsnList members[6];
    const char* const given[] = {"31050201020500", "", "0500", "0201010500", "020101", "0401ff"};
    std::transform(given, given + 6, members, [](const char* hex) { return test::parse_hex(hex, true); });
    EXPECT_EQ(asn_Compare(nullptr, nullptr), 0);
    EXPECT_EQ(asn_Compare(members[4].head(), members[4].head()), 0);
    asn_SortSet(members, 6);
    const char* const wanted[] = {"020101", "0201010500", "0401ff", "0500", "31050201020500", ""};
    for (size_t i = 0; i < 6; i++)
        EXPECT_EQ(hex_of(members[i]), wanted[i]);
}

TEST(AsnBuild, OtherOutputsAgreeWithTheEncoding) {
    const test::TempDir dir;
    const AsnList list = asn_NewSequence(asn_LinkList(asn_NewInteger(1), asn_NewOctetString("secret", 6)));
    const std::string path = dir.file("out");
    {
        FileWriter file(path.c_str());
        EXPECT_EQ(asn_WriteFile(list.head(), file), 0);
        EXPECT_TRUE(file.finish());
    }
    EXPECT_EQ(test::read_file(path), encoded(list));
    EXPECT_EQ(hex_of(asn_ParseFile(path.c_str())), hex_of(list));
    const SecretBuffer base64 = asn_EncodeBase64(list.head());
    EXPECT_STREQ(base64.text(), "MAsCAQEEBnNlY3JldA==");
    EXPECT_EQ(hex_of(asn_ParseBase64(base64.text())), hex_of(list));
    testing::internal::CaptureStdout();
    asn_Dump(list.head());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "30 0b  #Level=0 length=0xb/11\n"
                                                      "   02 01  #Level=1 length=0x1/1\n"
                                                      "      01 \n"
                                                      "   04 06  #Level=1 length=0x6/6\n"
                                                      "      73 65 63 72 65 74 \n");
}
