#include <algorithm>

#include "support/module_calls.h"

using test::base64;
using test::Bytes;
using test::last_error;
using test::pem;

// What is said where something is wrong; that good signatures and lists of many makers are read is tested
// with the certificates of tests/data/x509.

namespace {

std::string path_of(const std::string& file) {
    return test::data_path("x509/" + file);
}

Bytes der_of(const std::string& file) { // a PEM file's content
    return test::der_of(test::read_text(path_of(file)));
}

} // namespace

TEST(X509Verify, SaysWhatIsWrong) {
    const test::TempDir dir;
    const std::string ca = path_of("ca.pem"), dsaCa = path_of("dsa_ca.pem"), leaf = path_of("all_sha1.pem");
    const Bytes number = test::from_hex("3003020105"), unsignedObject = test::from_hex("300730000303000102");
    const Bytes fourFields = test::from_hex("300a30003000030200010500");
    const std::string missing = dir.file("missing");
    // The signature of a DSA certificate ends it; its SEQUENCE begins behind the octet of unused bits.
    const Bytes signedByDsa = test::read_file(path_of("dsa_rsa.der"));
    const std::string noSequence = pem(test::patched(signedByDsa, "2a8648ce38040303", 10, "31"));
    const std::string evenKey = pem(test::patched(der_of("ca.pem"), "0203010001", -1, "40"));
    const struct {
        const char* what;
        std::string cert, issuer;
        int result;
        std::string text;
    } cases[] = {
        {"good", leaf, ca, 0, ""},
        {"no certificate", "", ca, BAD_PARAM_ERROR, ""},
        {"no issuer", leaf, "", BAD_PARAM_ERROR, ""},
        {"missing", missing, ca, OPEN_ERROR, "Unable to open file '" + missing + "'"},
        {"missing issuer", leaf, missing, OPEN_ERROR, "Unable to open file '" + missing + "'"},
        {"request as issuer", leaf, path_of("request_openssl.der"), BAD_FORMAT_ERROR,
         "Not a valid X.509 certificate"},
        {"no ASN.1", path_of("make.py"), ca, INVALID_DATA_ERROR, "Invalid ASN.1 data"},
        {"text of a number", pem(number), ca, BAD_FORMAT_ERROR, "Invalid Certificate file '...'"},
        {"file of a number", dir.write("number", number), ca, INVALID_DATA_ERROR,
         "Invalid Certificate file '" + dir.file("number") + "'"},
        {"text without algorithm", pem(unsignedObject), ca, BAD_FORMAT_ERROR,
         "Could not find signature in certificate '...'"},
        {"a fourth field", pem(fourFields), ca, BAD_FORMAT_ERROR,
         "Could not find signature in certificate '...'"},
        {"file without algorithm", dir.write("unsigned", unsignedObject), ca, INVALID_DATA_ERROR,
         "Could not find signature in certificate '" + dir.file("unsigned") + "'"},
        {"other issuer", leaf, path_of("v1_md5.der"), -1, "Signature did not verify"},
        {"RSA with a DSA key", leaf, dsaCa, NOT_SUPPORTED_ERROR,
         "Unsupported key algorithm 'dsa': require `rsaEncryption'"},
        {"unusable key", leaf, evenKey, INVALID_DATA_ERROR, "Unable to convert public key"},
        {"PSS", path_of("pss.pem"), ca, NOT_SUPPORTED_ERROR,
         "Unsupported signature algorithm 1.2.840.113549.1.1.10"},
        {"DSA with an RSA key", dsaCa, ca, NOT_SUPPORTED_ERROR,
         "Unexpected key algorithm rsaEncryption: require `dsa'"},
        {"inherited parameters", path_of("dsa_by_inherited.der"), path_of("dsa_inherited.der"),
         NOT_SUPPORTED_ERROR, "No public key parameters: inherited DSS-Params not supported"},
        {"DSA signature that is no SEQUENCE", noSequence, dsaCa, -1,
         "Wrong format for signature; Signature did not verify"},
        {"other DSA issuer", dsaCa, path_of("dsa2048_sha1.der"), -1, "Signature did not verify"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_RECORDED(X509_VerifyCert(c.cert.c_str(), c.issuer.c_str()), c.result,
                        c.result == -1 ? int{SIGNATURE_ERROR} : c.result);
        EXPECT_EQ(last_error(), c.text);
    }
    EXPECT_EQ(X509_VerifyCert(nullptr, ca.c_str()), BAD_PARAM_ERROR);
    EXPECT_EQ(X509_VerifyCert(leaf.c_str(), nullptr), BAD_PARAM_ERROR);
}

TEST(X509Verify, SeesEveryDamage) {
    const std::string ca = path_of("ca.pem"), leaf = path_of("all_sha1.pem");
    const Bytes crl = test::read_file(path_of("crl_v2.der"));
    ASSERT_EQ(X509_CheckCertInCRL(leaf.c_str(), pem(crl).c_str(), ca.c_str(), nullptr, 0), 1);
    const std::pair<Bytes, std::string> certificates[] = {
        {test::read_file(path_of("dsa_rsa.der")), path_of("dsa_ca.pem")}, {der_of("all_sha1.pem"), ca}};
    for (const uint8_t change : std::initializer_list<uint8_t>{0x01, 0x20, 0x80}) {
        for (size_t i = 0; i < crl.size(); i++) {
            Bytes damaged = crl;
            damaged[i] ^= change;
            EXPECT_EQ(X509_CheckCertInCRL(leaf.c_str(), pem(damaged).c_str(), ca.c_str(), nullptr, 0),
                      -SIGNATURE_ERROR)
                << i;
        }
        for (const auto& [good, issuer] : certificates) {
            ASSERT_EQ(X509_VerifyCert(pem(good).c_str(), issuer.c_str()), 0);
            for (size_t i = 0; i < good.size(); i++) {
                Bytes damaged = good;
                damaged[i] ^= change;
                EXPECT_NE(X509_VerifyCert(pem(damaged).c_str(), issuer.c_str()), 0) << i;
            }
        }
    }
}

TEST(X509CheckCertInCrl, SaysWhatIsWrong) {
    const test::TempDir dir;
    const std::string ca = path_of("ca.pem"), crl = path_of("crl_v2.der"), other = path_of("v1_md5.der");
    const std::string leaf = path_of("all_sha1.pem"), missing = dir.file("missing");
    // An invalid date of the certificate's entry.
    const std::string badDate = pem(test::patched(test::read_file(crl), "3230303530353031", 0, "78"));
    // No end of the algorithm. The text must not be a file's name for the signature, and a list for the
    // look-up.
    const std::string openEnd = base64(test::patched(test::read_file(crl), "0500038201", -12, "80"));
    const std::string noFile = "Unable to open file '" + missing + "'";
    const struct {
        const char* what;
        std::string cert, crl, issuer, date;
        int result;
        std::string text;
    } cases[] = {
        {"listed", leaf, crl, ca, "2020-05-05T01:02:03", 1, ""},
        {"text", pem(der_of("all_sha1.pem")), test::read_text(path_of("crl_v1.pem")), "", "", 0, ""},
        {"no certificate", "", crl, "", "", -BAD_PARAM_ERROR, ""},
        {"no CRL", leaf, "", "", "", -BAD_PARAM_ERROR, ""},
        {"bad date comes first", missing, missing, missing, "2020-13-01", -BAD_PARAM_ERROR,
         "Date format is invalid"},
        {"signature goes before the certificate", missing, crl, other, "", -SIGNATURE_ERROR,
         "Signature did not verify"},
        {"missing issuer", leaf, crl, missing, "", -SIGNATURE_ERROR, noFile},
        {"missing list to verify", leaf, missing, ca, "", -SIGNATURE_ERROR, noFile},
        {"text that is a list up to its entries", leaf, openEnd, ca, "", -SIGNATURE_ERROR,
         "Invalid ASN.1 data"},
        {"missing certificate", missing, missing, "", "", -OPEN_ERROR, noFile},
        {"missing list", leaf, missing, "", "", -OPEN_ERROR, noFile + "; Invalid CRL"},
        {"request", path_of("request_openssl.der"), crl, "", "", -BAD_FORMAT_ERROR,
         "Not a valid X.509 certificate"},
        {"certificate as list", leaf, leaf, "", "", -BAD_FORMAT_ERROR, "Invalid CRL"},
        {"other issuer", path_of("gnutls_leaf.pem"), crl, "", "", -ISSUER_ERROR,
         "Cert issuer is not the same as CRL issuer"},
        {"invalid date", leaf, badDate, "", "", 1, ""},
        {"invalid date, asked for", leaf, badDate, "", "2020-01-01", -INVALID_DATA_ERROR,
         "Invalid revocation date in CRL"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_RECORDED(
            X509_CheckCertInCRL(c.cert.c_str(), c.crl.c_str(), c.issuer.c_str(), c.date.c_str(), 1), c.result,
            std::max(0, -c.result));
        EXPECT_EQ(last_error(), c.text);
    }
    EXPECT_EQ(X509_CheckCertInCRL(nullptr, crl.c_str(), nullptr, nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_CheckCertInCRL(leaf.c_str(), nullptr, nullptr, nullptr, 0), -BAD_PARAM_ERROR);
}

// With the exponent 1 the encoded digest is its own signature, so that anybody could sign.
TEST(X509Verify, TrustsNoExponentOfOne) {
    Bytes forged = test::patched(der_of("ca.pem"), "0203010001", 2, "00");
    const auto length = [&](size_t at) { return forged[at + 2] * 256 + forged[at + 3]; };
    const int tbs = length(4) + 4, room = 256;
    unsigned char* const signature = forged.data() + forged.size() - room;
    ASSERT_EQ(RSA_EncodeMsg(signature, room, forged.data() + 4, tbs, ZUL_EMSIG_PKCSV1_5 | ZUL_HASH_SHA256),
              0);
    EXPECT_EQ(X509_VerifyCert(pem(forged).c_str(), pem(forged).c_str()), INVALID_DATA_ERROR);
}
