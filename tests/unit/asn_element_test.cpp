#include "asn1/asn_element.h"
#include "support/asn_lists.h"

using namespace zul;

using test::bytes_of, test::parse_hex;

TEST(AsnElement, BecomesDer) {
    std::string deep, deepEnd, octets;
    for (int i = 0; i < 199; i++) {
        deep += "3080";
        deepEnd += "0000";
    }
    for (int i = 0; i < 200; i++)
        octets += "61";
    const struct {
        std::string ber, der; // none: a failure
    } cases[] = {
        {"30080201010403616263", "30080201010403616263"},
        {"30800201010000", "3003020101"},
        {"308400000003020101", "3003020101"},
        {"30800481C8" + octets + "0000", "3081CB0481C8" + octets},
        {"a080248004016100000000", "a003040161"},
        {"240704026162040163", "0403616263"},
        {"24802404040261620401630000", "0403616263"},
        {"2380030300 0a3b 0305045f291cd0 0000", "0307040a3b5f291cd0"},
        {"2300", "030100"},
        {"3306040141040142", "13024142"}, // segments of a character string are OCTET STRINGs
        {"3606160141160142", "16024142"}, // some writers repeat its type
        {"30083306040141040142", "300413024142"},
        {"3080 30800201010000 30800201020000 0000", "300a30030201013003020102"},
        {"a080040161a1800000 0401620000", "a008040161a100040162"}, // no segments: what it is is not known
        {"bf810080 0201050000", "bf810003020105"},
        {"bf801f03020105", "bf1f03020105"},
        {"bf0503020105", "a503020105"},
        {deep + "020101" + deepEnd, "deep"},
        {"2403020101", ""},
        {"30072405a003040161", ""},
        {"2303040161", ""},
        {"230803020180030200ff", ""}, // unused bits before the last segment
        {"23020300", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ber);
        AsnList list = parse_hex(c.ber);
        ASSERT_TRUE(list);
        EXPECT_EQ(asn_IsDer(list.head()), c.ber == c.der);
        const AsnList der = asn_ToDer(std::move(list));
        EXPECT_EQ(der.failed(), c.der.empty());
        if (!der)
            continue;
        // What it says of itself is what a parser makes of its encoding.
        const SecretBuffer encoding = asn_Encode(der);
        const AsnList again = asn_ParseBytes(encoding.data(), encoding.size());
        EXPECT_TRUE(asn_IsDer(again.head()));
        EXPECT_TRUE(asn_SameElement(again.head(), der.head()));
        EXPECT_EQ(asn_Length(der.head()), encoding.size());
        if (c.der != "deep")
            EXPECT_EQ(bytes_of(encoding), test::from_hex(c.der));
        else
            EXPECT_EQ(der.tail()->level, 199u);
    }
}

TEST(AsnElement, EndsWhereItsContentDoes) {
    // SEQUENCE { SEQUENCE { 1 }, SEQUENCE { 1 } of indefinite length, SEQUENCE { 1 }, 1, 2 }
    const AsnList list = parse_hex("30173003020101 30800201010000 3003020101 020101 020102");
    ASSERT_TRUE(list);
    const asn_Node* part[5];
    const asn_Node* next = list.head()->next;
    for (const asn_Node*& p : part) {
        p = next;
        next = asn_ElementEnd(next);
    }
    EXPECT_EQ(next, nullptr);
    EXPECT_EQ(asn_ElementEnd(list.head()), nullptr);
    EXPECT_EQ(asn_ElementEnd(nullptr), nullptr);

    EXPECT_EQ(bytes_of(asn_EncodeElement(part[0])), test::from_hex("3003020101"));
    EXPECT_EQ(bytes_of(asn_EncodeElement(part[1])), test::from_hex("30800201010000"));
    EXPECT_EQ(bytes_of(asn_EncodeElement(part[3])), test::from_hex("020101"));
    EXPECT_TRUE(asn_EncodeElement(nullptr).empty());
    EXPECT_TRUE(asn_EncodeElement(asn_New(kAsnConstructed, kAsnSequence).head()).empty());

    const AsnList made = asn_NewSequence(asn_NewInteger(1));
    EXPECT_TRUE(asn_SameElement(part[0], part[2]));
    EXPECT_TRUE(asn_SameElement(part[0], made.head()));
    EXPECT_FALSE(asn_SameElement(part[0], part[1]));
    EXPECT_FALSE(asn_SameElement(part[3], part[4]));
    EXPECT_FALSE(asn_SameElement(part[0], list.head()));
    EXPECT_FALSE(asn_SameElement(part[0], nullptr));
    EXPECT_FALSE(asn_SameElement(nullptr, nullptr));
}
