#include "asn1/asn_children.h"
#include "cms/enveloped/enveloped_data.h"
#include "cms/message/certificate_identifier.h"
#include "cms/signed/signed_data.h"
#include "cms/signed/signer_certificate.h"
#include "cms/signed/signer_info.h"
#include "hash/digest.h"
#include "support/asn_lists.h"
#include "support/der_bytes.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

using namespace zul;
using test::element, test::hex_of;

static std::string stored(const std::string& name) {
    return test::data_path("cms/" + name);
}

static AsnList parsed(const std::string& hex) {
    AsnList list = test::parse_hex(hex);
    EXPECT_TRUE(list) << hex;
    return list;
}

// opened opens a SignedData of version 1 without content, with these contents of its sets.
static int opened(SignedData& data, const std::string& certificates, const std::string& signers) {
    const test::TempDir dir;
    const std::string fields("\x02\x01\x01\x31\x00\x30\x0B\x06\x09\x2A\x86\x48\x86\xF7\x0D\x01\x07\x01", 18);
    const std::string sets = element(0xA0, certificates) + element(0x31, signers);
    return data.open(dir.write("message", element(0x30, fields + sets)).c_str());
}

TEST(SignedData, KnowsSignersByTheirCertificates) {
    AsnList one, two;
    ASSERT_EQ(x509_read_certificate(stored("one.der").c_str(), one), 0);
    ASSERT_EQ(x509_read_certificate(stored("two.der").c_str(), two), 0);
    const CertificateIdentifiers ours(certificate_fields(one.head())), other(certificate_fields(two.head()));
    SignedData both, byKey;
    ASSERT_EQ(both.open(stored("stream.der").c_str()), 0);
    ASSERT_EQ(byKey.open(stored("version3.der").c_str()), 0);
    EXPECT_TRUE(ours.include(identifier_digest(both.signer(1).identifier)));
    EXPECT_TRUE(other.include(identifier_digest(both.signer(0).identifier)));
    EXPECT_FALSE(ours.include(identifier_digest(both.signer(0).identifier)));
    EXPECT_FALSE(ours.include(identifier_digest(both.signer(2).identifier)));
    const asn_Node* key = byKey.signer(0).identifier;
    EXPECT_TRUE(ours.include(identifier_digest(key)));
    EXPECT_FALSE(other.include(identifier_digest(key)));

    const std::string octets = test::to_hex(key->data, 20);
    const std::string segments = "0407" + octets.substr(0, 14) + "040D" + octets.substr(14);
    const std::string name = "310B3009060355040613024155310C300A06035504030C03";
    const struct {
        std::string identifier;
        bool names;
    } cases[] = {
        {"3022301B" + name + "6F6E65020300FF01", true},
        {"30803080" + name + "6F6E65000002040000FF010000", true}, // BER of the same
        {"3021301B" + name + "6F6E650202FF01", false},            // a negative number
        {"3022301B" + name + "6F6E66020300FF01", false},
        {"301D301B" + name + "6F6E65", false},
        {"A018" + segments, true},
        {"8013" + octets.substr(0, 38), false},
        {"8015" + octets + "00", false},
        {"A000", false},
        {"020300FF01", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ours.include(identifier_digest(parsed(c.identifier).head())), c.names) << c.identifier;
    const CertificateIdentifiers nobody{CertificateFields()};
    for (const auto& c : cases)
        EXPECT_FALSE(nobody.include(identifier_digest(parsed(c.identifier).head())));
}

// A quadratic walk over so many would take minutes.
TEST(SignedData, WalksAreLinear) {
    constexpr int kCount = 200000;
    std::string elements;
    for (int i = 0; i < kCount; i++)
        elements += {'\x30', '\x03', '\x02', '\x01', static_cast<char>(i % 100)};
    SignedData data;
    ASSERT_EQ(opened(data, elements, elements), 0);
    ASSERT_EQ(data.signer_count(), kCount);
    ASSERT_EQ(data.certificates().count(), kCount);
    const auto check = [&](int i) {
        const AsnList certificate = data.certificates().certificate(i);
        return asn_GetInt(AsnChildren(certificate.head()).peek()) == i % 100 &&
               asn_GetInt(data.signer(i).version) == i % 100;
    };
    for (int i = 0; i < kCount; i++)
        ASSERT_TRUE(check(i)) << i;
    for (const int i : {77777, 77776, 0, 20, 19, 21, 20, kCount - 1})
        EXPECT_TRUE(check(i)) << i;
    for (const int i : {-1, kCount}) {
        EXPECT_FALSE(data.certificates().certificate(i));
        EXPECT_EQ(data.signer(i).version, nullptr);
    }
}

TEST(SignedData, LimitsSigners) {
    constexpr size_t kHeader = 5; // of so long an element
    const std::string most(kMaxX509Object - 3 * kHeader, 'x');
    const struct {
        std::string signers;
        int result;
    } cases[] = {
        {element(0x30, element(0x04, most)), 0},
        {element(0x30, element(0x04, most + "x")), INVALID_DATA_ERROR},
        {element(0x31, ""), INVALID_DATA_ERROR}, // no SignerInfo
    };
    for (const auto& c : cases) {
        SignedData data;
        EXPECT_EQ(opened(data, "", c.signers), c.result);
    }
}

// What is in a signer must not be looked at anew for each certificate: that would take minutes.
TEST(SignedData, FindsSignersInLinearTime) {
    const std::vector<uint8_t> small =
        test::from_hex("3038 302E 020101 3003 06012A 3000 301E"
                       "170D3230303130313030303030305A 170D3230303130313030303030305A"
                       "3000 3000 3003 06012A 030100");
    const std::string one(small.begin(), small.end()), serial("\x02\x01\x01", 3);
    const std::string name = element(0x30, element(0x04, std::string(4000000, 'x')));
    std::string certificates, nodes;
    for (int i = 0; i < 20000; i++)
        certificates += one;
    for (int i = 0; i < 1500000; i++)
        nodes += {'\x05', '\x00'};
    for (const std::string& signer :
         {element(0x80, "x") + element(0x30, nodes), element(0x30, name + serial)}) {
        SignedData data;
        SignerMatch match;
        ASSERT_EQ(opened(data, certificates, element(0x30, serial + signer)), 0);
        ASSERT_TRUE(x509_is_certificate(data.certificates().certificate(0).head()));
        EXPECT_EQ(find_signer(data, nullptr, match), NO_MATCH_ERROR);
    }
}

TEST(EnvelopedData, HasToEnd) {
    const test::TempDir dir;
    const std::vector<uint8_t> message = test::from_hex(
        "3080 06092A864886F70D010703 A080 3080 020100 3100 3080 06012A 3000 0000 0000 0000 0000");
    EXPECT_EQ(EnvelopedData().open(dir.write("message", message).c_str()), 0);
    for (const size_t cut : {2u, 4u, 6u, 8u}) {
        const std::string file = dir.write("cut", message.data(), message.size() - cut);
        EXPECT_EQ(EnvelopedData().open(file.c_str()), INVALID_DATA_ERROR) << cut;
    }
}

TEST(SignerInfo, TakesAttributesAsDer) {
    SignedData data;
    ASSERT_EQ(data.open(stored("attributes.der").c_str()), 0);
    const asn_Node* attributes = data.signer(0).signedAttributes;
    const std::string set = hex_of(signed_attributes_set(attributes, false));
    EXPECT_EQ(set.substr(0, 2), "31");
    EXPECT_EQ(hex_of(signed_attributes_set(attributes, true)), set);

    // The same attributes in another order, without lengths, and a digest in segments.
    std::vector<std::string> parts;
    for (AsnChildren children(attributes); !children.at_end();)
        parts.push_back(hex_of(asn_Encode(asn_CopyElement(children.take()))));
    ASSERT_EQ(parts.size(), 3u);
    const std::string digest = parts[2].substr(parts[2].size() - 64);
    const std::string open = "308006092A864886F70D01090431802480"
                             "0410" +
                             digest.substr(0, 32) + "0410" + digest.substr(32) + "000000000000";
    const AsnList other = parsed("A080" + open + parts[1] + parts[0] + "0000");
    EXPECT_EQ(hex_of(signed_attributes_set(other.head(), true)), set);
    EXPECT_EQ(hex_of(signed_attributes_set(other.head(), false)).substr(0, 8), "31803080");

    const AsnList values = parsed("A00E300C06032A030431050500040162"); // are sorted too
    EXPECT_EQ(hex_of(signed_attributes_set(values.head(), true)), "310e300c06032a030431050401620500");
    for (const char* none : {"A003020101", "A0053003020101", "3000", "BF000E300C06032A030431050500040162"})
        EXPECT_TRUE(signed_attributes_set(parsed(none).head(), true).empty()) << none;
}

TEST(SignerInfo, CountsValuesOfAttributes) {
    const std::string type = "06092A864886F70D010904", digest = "3010" + type + "3103040161";
    const struct {
        std::string attributes;
        int count;
    } cases[] = {
        {"A024" + digest + digest, 2},
        {"A0153013" + type + "3106040161040162", 2},
        {"A00F300D" + type + "3100", 0},
        {"A021" + digest + "300D" + type + "3100", 2},
        {"A012301006092A864886F70D0109033103040161", 0},
        {"A0143012" + digest, 0},
    };
    for (const auto& c : cases) {
        const asn_Node* value;
        const AsnList list = parsed(c.attributes);
        EXPECT_EQ(find_attribute(list.head(), "messageDigest", &value), c.count) << c.attributes;
        EXPECT_EQ(value != nullptr && value->data[0] == 'a', c.count > 0);
    }
}

TEST(SignerInfo, TakesNoOtherAlgorithmForADigest) {
    for (const char* other : {"3000", "300B06092A864886F70D01010B"})
        EXPECT_EQ(digest_algorithm_of(parsed(other).head()), -1) << other;
}
