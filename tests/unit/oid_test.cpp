#include "asn1/oid.h"
#include "asn1/oid_octets.h"
#include "asn1/oid_table.h"
#include "hash/digest.h"
#include "support/asn_lists.h"

using namespace zul;

static AsnList oid_node(const char* content) {
    Bytes der = test::from_hex(content);
    der.insert(der.begin(), {6, static_cast<uint8_t>(der.size())});
    return asn_ParseBytes(der.data(), der.size());
}

// Each name leads to octets that lead back to a name with the same octets, and the first row of either wins.
TEST(Oid, EveryRowIsReachedBothWays) {
    std::vector<std::string> names, octets;
    std::string lines;
    for (const OidRow& row : kOidTable) {
        const bool firstName = std::find(names.begin(), names.end(), row.name) == names.end();
        const bool firstOctets = std::find(octets.begin(), octets.end(), row.octets) == octets.end();
        names.emplace_back(row.name);
        octets.emplace_back(row.octets);
        OidInfo rec;
        const int length = oid_FromName(&rec, row.name);
        ASSERT_GT(length, 2) << row.name;
        const Bytes wanted = test::from_hex(row.octets);
        const bool same = Bytes(rec.bytes, rec.bytes + length) == wanted;
        EXPECT_EQ(same, firstName) << row.name;

        const AsnList node = oid_node(row.octets);
        EXPECT_EQ(asn_GetOid(node.head(), &rec), 0);
        EXPECT_EQ(rec.name == std::string(row.name), firstOctets || names.back() == rec.name) << row.name;
        EXPECT_EQ(asn_OidEquals(node.head(), &rec), 0);
        char dotted[100] = "";
        EXPECT_GT(oid_ToDotted(node.head(), dotted, sizeof dotted - 1), 0);
        lines += row.name + std::string("|") + dotted + "\n";
    }
    EXPECT_EQ(names.size(), 96u);
    // SHA-256 of "name|dotted form" lines, from the standards' own dotted forms.
    uint8_t digest[kSha256Size];
    ASSERT_EQ(
        hash_bytes(digest, sizeof digest, lines.data(), static_cast<int64_t>(lines.size()), kDigestSha256),
        int{kSha256Size});
    EXPECT_EQ(test::to_hex(digest, sizeof digest),
              "b848168c3ea4dfb2fce2980270f881ee88da3ec57d3017acdf92a49ac6c41e7b");
    EXPECT_EQ(names.front(), "rsaEncryption");
    EXPECT_EQ(names.back(), "ocspNonce");
}

TEST(Oid, NamesIgnoreCaseAndRepeatsTakeTheFirst) {
    OidInfo rec;
    EXPECT_EQ(oid_FromName(&rec, "SHA256"), 9);
    EXPECT_STREQ(rec.name, "sha256");
    EXPECT_EQ(oid_FromName(&rec, "sha25"), 0);
    EXPECT_EQ(rec.length, 0);
    EXPECT_EQ(oid_FromName(&rec, ""), 0);
    EXPECT_EQ(oid_FromName(&rec, nullptr), 0);
    const struct {
        const char *content, *name; // null: unknown
    } cases[] = {{"2B0E03021D", "sha1WithRSAEncryption"},
                 {"2A864886F70D010105", "sha1WithRSAEncryption"},
                 {"2A864886F70D010101", "rsaEncryption"},
                 {"2A03", nullptr},
                 {"", nullptr},
                 {"2A864886F70D0101", nullptr}};
    for (const auto& c : cases) {
        EXPECT_EQ(asn_GetOid(oid_node(c.content).head(), &rec), c.name == nullptr ? -1 : 0) << c.content;
        EXPECT_STREQ(rec.name, c.name == nullptr ? "" : c.name);
    }
    EXPECT_EQ(oid_FromName(&rec, "sha-1WithRSAEncryption"), 5);
    EXPECT_EQ(asn_GetOid(asn_NewNull().head(), &rec), -1);
}

// The first octet stands for itself always; an arc may have the 128 bits of a UUID (ITU-T X.667) and more.
TEST(Oid, DottedForm) {
    const struct {
        const char *content, *dotted; // null: none
    } cases[] = {{"551D0F", "2.5.29.15"},
                 {"2B0601040197552AD72401", "1.3.6.1.4.1.3029.42.11172.1"},
                 {"09", "0.9"},
                 {"8837", "2.56.55"},
                 {"2A00", "1.2.0"},
                 {"2A8003", nullptr},
                 {"88", "2.56"},
                 {"6983F09DA7EBCFDEE0C7A1A7B2C0948CC8F9D776", "2.25.329800735698586629295641978511506172918"},
                 {"69FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF7F",
                  "2.25.210624583337114373395836055367340864637790190801098222508621955071"},
                 {"69FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF7F", nullptr},
                 {"", nullptr}};
    for (const auto& c : cases) {
        char text[300];
        const AsnList node = oid_node(c.content);
        const int length = oid_ToDotted(node.head(), text, sizeof text - 1);
        ASSERT_EQ(length, c.dotted == nullptr ? -1 : static_cast<int>(strlen(c.dotted))) << c.content;
        if (c.dotted != nullptr) {
            EXPECT_STREQ(text, c.dotted);
            EXPECT_EQ(oid_ToDotted(node.head(), text, 3), std::min(length, 3));
            EXPECT_EQ(text, std::string(c.dotted).substr(0, 3));
        }
    }
}

TEST(Oid, RowsThatAreNotWellMadeAreRefused) {
    std::string octets = "2A";
    for (int i = 1; i < 31; i++)
        octets += " 01";
    uint8_t out[32];
    EXPECT_EQ(oid_octets_from_hex(out, octets.c_str()), 31);
    EXPECT_EQ(oid_octets_from_hex(out, (octets + " 01").c_str()), 0);
    EXPECT_STREQ(err_text(), "Line too long in (internal) OID data");
    EXPECT_EQ(oid_octets_from_hex(out, "2A 100"), 0);
    EXPECT_STREQ(err_text(), "Invalid hex value in (internal) OID data");
    for (const char* row : {"2A-03", "2A  03"}) {
        err_clear();
        EXPECT_EQ(oid_octets_from_hex(out, row), 0);
        EXPECT_STREQ(err_text(), "Invalid hex string in (internal) OID data");
    }
}
