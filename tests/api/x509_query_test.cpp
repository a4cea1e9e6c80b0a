#include <algorithm>
#include <functional>

#include "support/module_calls.h"

using test::last_error, test::replaced;

namespace {

std::string v1() {
    return test::read_text(test::data_path("rsa/cert_v1.der"));
}

// The shortest certificate that is recognised, though useless: as an argument it would be a file name.
const char kTiny[] = "MDwwMAIBATAFBgMqAwQwADAeFw0yNjAxMDEwMDAwMDBaFw0yNzAxMDEwMDAwMDBaMAAwADAFBgMqAwQDAQA=";

using Call = std::function<int(char* out, int nChars, const char* certFile)>;

Call query_of(const char* words, int options = 0) {
    return [=](char* out, int nChars, const char* certFile) {
        return X509_QueryCert(out, nChars, certFile, words, options);
    };
}

template<auto Export>
Call of(int options = 0) {
    return
        [=](char* out, int nChars, const char* certFile) { return Export(certFile, out, nChars, options); };
}

int read_string(char* out, int nChars, const char* certFile) {
    return X509_ReadStringFromFile(out, nChars, certFile, 0);
}
int issuer_name(char* out, int nChars, const char* certFile) {
    return X509_CertIssuerName(certFile, out, nChars, nullptr, 0);
}
int valid_now(char*, int, const char* certFile) {
    return -X509_CertIsValidNow(certFile, 0);
}
int usage(char*, int, const char* certFile) {
    return X509_KeyUsageFlags(certFile);
}

std::string text_of(const Call& call, const std::string& certFile) {
    return test::text_of([&](char* out, int room) { return call(out, room, certFile.c_str()); });
}

} // namespace

TEST(X509Query, MatchesWords) {
    const struct {
        const char* words;
        int type;
    } cases[] = {
        {"notAfter", 2},
        {" \t\rSUBJECTNAME", 2},
        {"versionX", 1},
        {"keyUsageFlags of", 1},
        {"subjectName/1", 2},
        {"subjectName/ +0012x", 2},
        {"isCA/99999999999999999999", 1},
        {"cRLDistributionPointsURI/0000001", 2}, // 32 characters
        {"cRLDistributionPointsURI        /0", 2},
        {"", -BAD_PARAM_ERROR},
        {" ", -BAD_QUERY_ERROR},
        {"versio", -BAD_QUERY_ERROR},
        {"/1", -BAD_QUERY_ERROR},
        {"subjectName/0", -BAD_QUERY_ERROR},
        {"subjectName/x1", -BAD_QUERY_ERROR},
        {"cRLDistributionPointsURI/00000001", -BAD_QUERY_ERROR},
        {"is CA", -BAD_QUERY_ERROR},
        {"versi/1on", -BAD_QUERY_ERROR},
    };
    for (const auto& c : cases) {
        EXPECT_RECORDED(X509_QueryCert(nullptr, 0, "", c.words, ZUL_QUERY_GETTYPE), c.type,
                        std::max(0, -c.type))
            << c.words;
        EXPECT_EQ(X509_QueryCert(nullptr, 0, "", c.words, 0), std::min(c.type, -BAD_PARAM_ERROR)) << c.words;
    }
}

TEST(X509Query, KeepsToTheRoom) {
    enum { cut, pairs, whole };
    const struct {
        Call call;
        int length, rule;
    } cases[] = {
        {query_of("issuerName", ZUL_X509_LATIN1), 8, cut},
        {query_of("signatureValue"), 256, whole},
        {query_of("rfc822Name"), 0, whole},
        {of<X509_CertExpiresOn>(), 20, cut},
        {issuer_name, 17, cut},
        {of<X509_CertThumb>(ZUL_HASH_SHA256 | 0x10), 64, pairs},
        {of<X509_HashIssuerAndSN>(ZUL_HASH_MD5), 32, pairs},
        {read_string, 680, whole},
    };
    const std::string file = test::data_path("rsa/cert_v3_text.pem");
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        const std::string full = text_of(c.call, file);
        EXPECT_EQ(full.size(), static_cast<size_t>(c.length));
        EXPECT_EQ(c.call(nullptr, 5, file.c_str()), c.length);
        for (int room : {0, 1, 7, c.length - 1, c.length, c.length + 1}) {
            const bool fits = room < 1 || room >= c.length;
            const int partly = c.rule == cut ? room : c.rule == pairs ? room / 2 * 2 : -SHORT_BUF_ERROR;
            const int expected = fits ? c.length : partly;
            std::string text(static_cast<size_t>(std::max(room, 0)) + 2, '#');
            EXPECT_EQ(c.call(text.data(), std::max(room, 0), file.c_str()), expected) << room;
            EXPECT_EQ(ZUL_ErrorCode(), std::max(0, -expected));
            EXPECT_EQ(text.back(), '#');
            if (room > 0) {
                EXPECT_EQ(text.c_str(), full.substr(0, static_cast<size_t>(std::max(0, expected)))) << room;
            }
        }
    }
}

TEST(X509Query, ExpiryIsNoFailure) {
    const test::TempDir dir;
    const std::string since2000 = replaced(v1(), "261121071125Z", "000101000000Z");
    EXPECT_RESULT(X509_CertIsValidNow(dir.write("cert", since2000).c_str(), 0), 0);
    for (const std::string& outside : {replaced(since2000, "21261028071125Z", "20011028071125Z"),
                                       replaced(v1(), "261121071125Z", "490101000000Z")}) {
        EXPECT_RECORDED(X509_CertIsValidNow(dir.write("cert", outside).c_str(), 0), -1, 0);
    }
}

TEST(X509Query, SavesStrings) {
    const test::TempDir dir;
    const std::string line = text_of(read_string, test::data_path("rsa/cert_v1.der")), out = dir.file("out");
    EXPECT_EQ(text_of(read_string, line), line);
    EXPECT_RESULT(X509_SaveFileFromString(out.c_str(), line.c_str(), ZUL_X509_FORMAT_PEM), 0);
    const std::string pem = test::read_text(out), begin = "-----BEGIN CERTIFICATE-----\r\n";
    EXPECT_EQ(pem.substr(0, 95), begin + line.substr(0, 64) + "\r\n");
    const std::string body = " " + pem.substr(begin.size(), pem.find("-----END") - begin.size());
    for (const std::string& text : {line, body, pem}) {
        EXPECT_RESULT(X509_SaveFileFromString(out.c_str(), text.c_str(), 0), 0);
        EXPECT_EQ(test::read_text(out), v1());
    }
    EXPECT_RESULT(X509_SaveFileFromString(out.c_str(), kTiny, 0), 0);
    EXPECT_EQ(text_of(read_string, out), kTiny);

    const std::string notCertificate = "MCgwEDEOMAwGA1UEAwwFc3RvcmUCFCU+rft5yw6dJuPOhvwwQ/M5OEMD";
    for (const std::string& text : {notCertificate, line.substr(0, 400), line + "*", out}) {
        EXPECT_FAILURE(X509_SaveFileFromString(out.c_str(), text.c_str(), 0), -INVALID_DATA_ERROR,
                       "Not valid X.509 data")
            << text;
        EXPECT_EQ(text_of(read_string, out), kTiny);
    }
    const std::string missing = dir.file("none/out");
    EXPECT_FAILURE(X509_SaveFileFromString(missing.c_str(), line.c_str(), 0), -CREATE_ERROR,
                   "Cannot create file '" + missing + "'");
    EXPECT_EQ(X509_SaveFileFromString("", line.c_str(), 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_SaveFileFromString(out.c_str(), "", 0), -BAD_PARAM_ERROR);
}

TEST(X509Query, ReportsWhatIsMissing) {
    const test::TempDir dir;
    const std::string cert = test::data_path("rsa/cert_v1.der"), none = dir.file("none");
    const std::string noTime = dir.write("time", replaced(v1(), "261121071125Z", "x61121071125Z"));
    const std::string noSerial = dir.write("serial", replaced(v1(), "\x02\x14\x25", "\x04\x14\x25"));
    const struct {
        Call call;
        std::string certFile;
        int code;
        std::string text;
    } cases[] = {
        {of<X509_CertThumb>(8), cert, BAD_FLAG_ERROR, ""},
        {of<X509_CertIssuedOn>(), noTime, INVALID_DATA_ERROR, "Cannot find time in cert '" + noTime + "'"},
        {valid_now, noTime, BAD_FORMAT_ERROR, "Missing time field in cert"},
        {of<X509_CertSerialNumber>(), noSerial, BAD_FORMAT_ERROR, "No Serial Number found in cert"},
        {of<X509_HashIssuerAndSN>(), noSerial, BAD_FORMAT_ERROR,
         "Could not find IssuerAndSerialNumber in certificate '" + noSerial +
             "'\n; No Issuer and Serial Number found in cert"},
        {query_of("version"), none, OPEN_ERROR, "Unable to open file '" + none + "'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        EXPECT_FAILURE(c.call(nullptr, 0, c.certFile.c_str()), -c.code, c.text);
    }
    for (const Call& call :
         {Call(valid_now), Call(usage), of<X509_CertIssuedOn>(), of<X509_CertThumb>(),
          of<X509_HashIssuerAndSN>(), Call(read_string), Call(issuer_name), query_of("isCA")}) {
        EXPECT_RESULT(call(nullptr, 0, nullptr), -BAD_PARAM_ERROR);
        EXPECT_EQ(call(nullptr, 0, ""), -BAD_PARAM_ERROR);
        EXPECT_FAILURE(call(nullptr, 0, test::data_path("rsa/public_spki.der").c_str()), -BAD_FORMAT_ERROR,
                       "Not a valid X.509 certificate");
    }
    EXPECT_EQ(X509_HashIssuerAndSN(cert.c_str(), nullptr, -1, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_QueryCert(nullptr, 0, cert.c_str(), nullptr, ZUL_QUERY_GETTYPE), -BAD_PARAM_ERROR);
}
