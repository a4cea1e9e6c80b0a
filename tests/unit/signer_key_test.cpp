#include "cert/path/cert_signature.h"
#include "support/der_view.h"
#include "zulcore.h"

using namespace zul;
using test::view;

namespace {

// element is an element of DER in hex, shorter than 128 octets.
std::string element(const char* identifier, const std::string& content) {
    const auto size = static_cast<uint8_t>(content.size() / 2);
    return identifier + test::to_hex(&size, 1) + content;
}

const std::string kDsaOid = "06072a8648ce380401", kDsaNumbers = "02011702010b020102";

std::string dsa_key(const std::string& parameters, const std::string& bits = "00020105") {
    return element("30", element("30", kDsaOid + parameters) + element("03", bits));
}

// The key of RFC 8032, 7.1, test 1.
const std::string kEd25519 =
    "302a300506032b6570032100d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a";

} // namespace

TEST(SignerKey, RefusesWhatIsNoKey) {
    const std::string numbers = element("30", kDsaNumbers);
    const struct {
        std::string key;
        int code, codeBelowIssuer; // codeBelowIssuer: with an issuer whose key has parameters
    } rows[] = {
        {"", BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {"0500", BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {element("30", element("30", kDsaOid)), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {element("30", "300006000300"), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {"3000" + kEd25519.substr(4), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {kEd25519, 0, 0},
        {kEd25519 + "00", BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(numbers), 0, 0},
        {dsa_key(""), NOT_SUPPORTED_ERROR, 0},
        {dsa_key("0500"), NOT_SUPPORTED_ERROR, 0},
        {dsa_key("020101"), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(element("30", kDsaNumbers.substr(6))), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(element("30", kDsaNumbers + "020101")), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(element("30", "0201f7" + kDsaNumbers.substr(6))), BAD_FORMAT_ERROR,
         BAD_FORMAT_ERROR}, // p < 0
        {dsa_key(element("30", "020100" + kDsaNumbers.substr(6))), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(numbers, ""), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(numbers, "01020104"), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR}, // a bit unused
        {dsa_key(numbers, "000401ff"), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
        {dsa_key(numbers, "00020105020105"), BAD_FORMAT_ERROR, BAD_FORMAT_ERROR},
    };
    const Bytes issuerBytes = test::from_hex(dsa_key(numbers));
    SignerKey issuer;
    ASSERT_EQ(issuer.read(view(issuerBytes), nullptr), 0);
    for (const auto& row : rows) {
        const Bytes bytes = test::from_hex(row.key);
        SignerKey alone, below;
        EXPECT_EQ(alone.read(view(bytes), nullptr), row.code) << row.key;
        EXPECT_EQ(below.read(view(bytes), &issuer), row.codeBelowIssuer) << row.key;
        EXPECT_EQ(alone.is_read(), row.code == 0) << row.key;
    }
}

TEST(SignerKey, TakesAlgorithmsOfItsOwnAlone) {
    const std::string dsa = dsa_key(element("30", kDsaNumbers)), sha1 = "06072a8648ce380403",
                      md5 = "06092a864886f70d010104", ecdsa = "06082a8648ce3d040302";
    const struct {
        const std::string &key, algorithm;
        std::string signature;
        int code;
    } rows[] = {
        {dsa, "06032b6570", "3006020101020101", SIGNATURE_ERROR},
        {dsa, sha1 + "020101", "3006020101020101", BAD_FORMAT_ERROR},
        {dsa, sha1, "", SIGNATURE_ERROR},
        {dsa, sha1, "3003020101", SIGNATURE_ERROR},
        {dsa, sha1, "3009020101020101020101", SIGNATURE_ERROR},
        {dsa, sha1, "3006020100020101", SIGNATURE_ERROR},
        {dsa, sha1 + "0500", "300602010b020101", SIGNATURE_ERROR}, // r = q
        {kEd25519, sha1, "3006020101020101", SIGNATURE_ERROR},
        {kEd25519, ecdsa, "3006020101020101", SIGNATURE_ERROR},
        {kEd25519, md5 + "0500", "00", NOT_SUPPORTED_ERROR},
        {kEd25519, // PSS of SHA-256 with MD5 in its mask
         "06092a864886f70d01010a3033a00f300d06096086480165030402010500a11b301906092a864886f70d010108300c06082"
         "a864886f7"
         "0d02050500a203020120",
         "00", NOT_SUPPORTED_ERROR},
        {kEd25519, "06032a0304", "00", NOT_SUPPORTED_ERROR},
        {kEd25519, "06032b65700500", "00", BAD_FORMAT_ERROR},
        {kEd25519, "06032b6570", "00", SIGNATURE_ERROR},
    };
    PathBudget budget;
    for (const auto& row : rows) {
        const Bytes bytes = test::from_hex(row.key), encoded = test::from_hex(element("30", row.algorithm)),
                    signature = test::from_hex(row.signature);
        SignerKey key;
        ASSERT_EQ(key.read(view(bytes), nullptr), 0);
        AlgorithmView algorithm;
        DerReader reader(view(encoded));
        ASSERT_TRUE(algorithm_view_read(reader, algorithm));
        EXPECT_EQ(key.check(view(bytes), algorithm, view(signature), budget), row.code)
            << row.algorithm << " " << row.signature;
    }
    EXPECT_EQ(budget.signatures(), static_cast<int>(std::size(rows)));
}
