#include <functional>

#include "support/module_calls.h"

using test::base64;
using test::Bytes;

// Certificates of other makers (tests/data/x509) and what openssl says of them.

namespace {

using Text = std::function<int(char* out, int nChars)>;

// A text, or "!" and the code of the error.
std::string text_of(const Text& call) {
    int code = 0;
    const std::string text = test::text_of(call, &code);
    return code == 0 ? text : "!" + std::to_string(code);
}

std::string unescaped(const std::string& text) {
    std::string out;
    for (size_t i = 0; i < text.size(); i++)
        if (text[i] == '\\' && i + 3 < text.size() && text[i + 1] == 'x') {
            out += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            out += text[i];
        }
    return out;
}

std::string path_of(const std::string& file) {
    return test::data_path("x509/" + file);
}

Bytes encoding(const std::string& file) { // of a file of DER, BER or PEM
    const std::string text = test::read_text(path_of(file));
    return text.starts_with("-----BEGIN") ? test::der_of(text) : Bytes(text.begin(), text.end());
}

constexpr const char* kTexts[] = {
    "serialNumber",         "signatureValue",           "keyUsageString",
    "subjectKeyIdentifier", "authorityKeyIdentifier",   "rfc822Name",
    "extKeyUsageString",    "cRLDistributionPointsURI", "authorityInfoAccessURI"};
constexpr const char* kCutTexts[] = {"notBefore",   "notAfter",           "issuerName",
                                     "subjectName", "signatureAlgorithm", "subjectPublicKeyAlgorithm"};
constexpr const char* kNumbers[] = {"version", "sigAlgID", "keyUsageFlags", "isCA"};
constexpr struct {
    const char* name;
    int option;
} kDigests[] = {{"sha1", ZUL_HASH_SHA1}, {"md5", ZUL_HASH_MD5}, {"sha256", ZUL_HASH_SHA256}};

// Expected is one record, where what is missing is empty or 0.
struct Expected {
    const test::Vector& v;
    bool partial = v.has("partial") && v.number("partial") == 1;

    void text(const std::string& name, const Text& call, bool isCut) const {
        if (partial && !v.has(name))
            return;
        const std::string expected = v.has(name) ? unescaped(v.text(name)) : "";
        EXPECT_EQ(text_of(call), expected) << name;
        const int less = static_cast<int>(expected.size()) - 1;
        if (less < 1 || expected[0] == '!')
            return;
        std::string room(expected.size() + 1, '#');
        EXPECT_EQ(call(room.data(), less), isCut ? less : -SHORT_BUF_ERROR) << name;
        if (isCut) {
            EXPECT_STREQ(room.c_str(), expected.substr(0, expected.size() - 1).c_str()) << name;
        }
    }
    void number(const std::string& name, int value) const {
        if (!partial || v.has(name)) {
            EXPECT_EQ(value, v.has(name) ? v.number(name) : 0) << name;
        }
    }
};

Text query(const std::string& cert, const char* name, int options = 0) {
    return [=, &cert](char* out, int n) { return X509_QueryCert(out, n, cert.c_str(), name, options); };
}

void expect_queries(const Expected& e, const std::string& cert) {
    const char* c = cert.c_str();
    for (const char* name : kTexts)
        e.text(name, query(cert, name), false);
    for (const char* name : kCutTexts)
        e.text(name, query(cert, name), true);
    for (const char* name : kNumbers)
        e.number(name, X509_QueryCert(nullptr, 0, c, name, 0));
    e.number("keyUsageFlags", X509_KeyUsageFlags(c));
    e.text("issuerLatin1", query(cert, "issuerName", ZUL_X509_LATIN1), true);
    e.text("subjectLatin1", query(cert, "subjectName", ZUL_X509_LATIN1), true);
    const struct {
        int (*call)(const char*, char*, int, const char*, int);
        const char *name, *latin1;
    } names[] = {{X509_CertIssuerName, "issuerName", "issuerLatin1"},
                 {X509_CertSubjectName, "subjectName", "subjectLatin1"}};
    for (const auto& n : names) {
        e.text(
            n.name, [&](char* out, int room) { return n.call(c, out, room, nullptr, 0); }, true);
        e.text(
            n.latin1, [&](char* out, int room) { return n.call(c, out, room, "", ZUL_X509_LATIN1); }, true);
    }
    e.text(
        "notBefore", [&](char* out, int n) { return X509_CertIssuedOn(c, out, n, 0); }, true);
    e.text(
        "notAfter", [&](char* out, int n) { return X509_CertExpiresOn(c, out, n, 0); }, true);
    e.text(
        "serialNumber", [&](char* out, int n) { return X509_CertSerialNumber(c, out, n, 0); }, false);
}

void expect_digests(const Expected& e, const std::string& cert) {
    const char* c = cert.c_str();
    const auto is = [&](const char* name, const Text& call) {
        if (!e.partial || e.v.has(name)) {
            EXPECT_EQ(text_of(call), e.v.text(name)) << name;
        }
    };
    for (const auto& digest : kDigests)
        is(digest.name, [&](char* out, int n) { return X509_CertThumb(c, out, n, digest.option); });
    is("issuerAndSN", [&](char* out, int n) { return X509_HashIssuerAndSN(c, out, n, ZUL_HASH_SHA1); });
}

void expect_public_key(const Expected& e, const std::string& cert, const test::TempDir& dir) {
    if (e.partial)
        return;
    const std::string key =
        text_of([&](char* out, int n) { return RSA_GetPublicKeyFromCert(out, n, cert.c_str()); });
    const std::string file = dir.file("key");
    if (!e.v.has("publicKey")) {
        EXPECT_EQ(key[0], '!');
        return;
    }
    ASSERT_EQ(RSA_SavePublicKey(file.c_str(), key.c_str(), 0), 0);
    EXPECT_EQ(
        text_of([&](char* out, int n) { return HASH_HexFromFile(out, n, file.c_str(), ZUL_HASH_SHA1); }),
        e.v.text("publicKey"));
}

// A certificate as a string goes to files and comes back.
void expect_round_trip(const std::string& cert, const test::TempDir& dir) {
    const auto read = [](const std::string& from) {
        return text_of([&](char* out, int n) { return X509_ReadStringFromFile(out, n, from.c_str(), 0); });
    };
    const std::string text = read(cert), der = dir.file("der"), armoured = dir.file("pem");
    ASSERT_EQ(X509_SaveFileFromString(der.c_str(), text.c_str(), 0), 0);
    ASSERT_EQ(X509_SaveFileFromString(armoured.c_str(), text.c_str(), ZUL_X509_FORMAT_PEM), 0);
    EXPECT_EQ(base64(test::read_file(der)), text);
    EXPECT_EQ(test::read_text(armoured).rfind("-----BEGIN CERTIFICATE-----", 0), 0U);
    EXPECT_EQ(read(armoured), text);
    EXPECT_EQ(text_of([&](char* out, int n) { return HASH_HexFromFile(out, n, der.c_str(), ZUL_HASH_SHA1); }),
              text_of([&](char* out, int n) { return X509_CertThumb(cert.c_str(), out, n, 0); }));
}

void expect_signature(const test::Vector& v, const std::string& cert) {
    const std::string issuer = path_of(v.text("issuer")), verify = v.text("verify");
    const int result = X509_VerifyCert(cert.c_str(), issuer.c_str()), code = ZUL_ErrorCode();
    if (verify == "yes") {
        EXPECT_EQ(result, 0);
        EXPECT_NE(X509_VerifyCert(cert.c_str(), path_of("v1_md5.der").c_str()), 0); // issued nothing
    } else if (verify == "no") {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(code, SIGNATURE_ERROR);
    } else {
        EXPECT_EQ(verify, "refused");
        EXPECT_GT(result, 0);
        EXPECT_EQ(code, result);
    }
}

} // namespace

TEST(X509Data, Certificates) {
    const test::TempDir dir;
    for (const test::Vector& v : test::read_vectors("x509/certificates.txt")) {
        const std::string file = v.text("file"), text = base64(encoding(file));
        ASSERT_GT(text.size(), 256U);
        for (const std::string& cert : {path_of(file), text, test::pem(encoding(file))}) {
            SCOPED_TRACE(file + " as " + cert.substr(0, 4));
            const Expected e{v};
            expect_queries(e, cert);
            expect_digests(e, cert);
            expect_public_key(e, cert, dir);
            expect_signature(v, cert);
            expect_round_trip(cert, dir);
        }
    }
}

TEST(X509Data, RequestsAndLists) {
    const std::string stranger = path_of("v1_md5.der");
    for (const test::Vector& v : test::read_vectors("x509/signed.txt")) {
        const std::string signedPath = path_of(v.text("signed")), issuer = path_of(v.text("issuer"));
        SCOPED_TRACE(signedPath);
        EXPECT_EQ(X509_VerifyCert(signedPath.c_str(), issuer.c_str()), 0);
        EXPECT_EQ(X509_VerifyCert(signedPath.c_str(), stranger.c_str()), -1);
        if (!v.has("certificate"))
            continue;
        const std::string cert = path_of(v.text("certificate")), date = v.text("revoked");
        const auto check = [&](const char* with, const char* at) {
            return X509_CheckCertInCRL(cert.c_str(), signedPath.c_str(), with, at, 0);
        };
        const bool revoked = date != "no";
        EXPECT_EQ(check(nullptr, nullptr), revoked);
        EXPECT_EQ(check(issuer.c_str(), ""), revoked);
        EXPECT_EQ(check(stranger.c_str(), nullptr), -SIGNATURE_ERROR);
        EXPECT_EQ(check(nullptr, "1999-12-31"), 0);
        EXPECT_EQ(check(nullptr, revoked ? date.c_str() : "2059-12-31"), revoked);
        if (revoked) {
            std::string before = date;
            before[18]--; // the last digit of the seconds is not 0
            EXPECT_EQ(check(nullptr, before.c_str()), 0);
        }
    }
}
