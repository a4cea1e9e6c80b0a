#include <algorithm>
#include <sstream>

#include "support/der_damage.h"
#include "support/module_calls.h"

using test::last_error;

namespace {

std::string report_of(const std::string& object, int options = 0) {
    return test::text_of(
        [&](char* out, int room) { return CERT_Report(out, room, object.c_str(), options); });
}

std::string answer_of(const std::string& object, const char* query) {
    return test::text_of(
        [&](char* out, int room) { return CERT_Query(out, room, object.c_str(), query, 0); });
}

// The lines of a report with single blanks.
std::vector<std::string> lines_of(const std::string& report) {
    std::vector<std::string> lines;
    std::istringstream all(report);
    for (std::string line, word; std::getline(all, line);) {
        std::istringstream words(line);
        std::string joined;
        while (words >> word)
            joined += (joined.empty() ? "" : " ") + word;
        lines.push_back(joined);
    }
    return lines;
}

std::vector<std::string> split(const std::string& text) {
    constexpr char kBar[] = " | ";
    std::vector<std::string> parts;
    for (size_t at = 0; at != std::string::npos;) {
        const size_t end = text.find(kBar, at);
        parts.push_back(text.substr(at, end - at));
        at = end == std::string::npos ? end : end + 3;
    }
    return parts;
}

std::string object_named(const std::string& name) {
    std::string object;
    for (const test::Vector& block : test::read_vectors("cert_report/reports.txt")) {
        if (block.text("Name") == name)
            object = block.text("Object");
        block.text("Lines");
    }
    return "-----BEGIN X-----\n" + object + "\n-----END X-----\n";
}

} // namespace

TEST(CertReport, HoldsWhatTheObjectHolds) {
    for (const test::Vector& block : test::read_vectors("cert_report/reports.txt")) {
        const std::string name = block.text("Name");
        const std::string object = "-----BEGIN X-----\n" + block.text("Object") + "\n-----END X-----\n";
        const std::vector<std::string> lines = lines_of(report_of(object));
        for (const std::string& line : split(block.text("Lines")))
            EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << name << ": " << line;
    }
}

// What does not belong into an object is refused, or seen in its report.
TEST(CertReport, ShowsDamage) {
    int count = 0;
    for (const test::Vector& block : test::read_vectors("cert_report/reports.txt")) {
        SCOPED_TRACE(block.text("Name"));
        test::DerDamage damage(test::from_base64(block.text("Object")), [&](const test::Bytes& damaged,
                                                                            const test::Bytes& stranger) {
            const std::string object = test::pem(damaged), hex = test::to_hex(stranger);
            if (CERT_Report(nullptr, 0, object.c_str(), ZUL_CERT_JSON) < 0)
                return;
            count++;
            EXPECT_NE(report_of(object, ZUL_CERT_JSON).find(hex), std::string::npos) << hex;
        });
        damage.each();
        block.text("Lines");
    }
    EXPECT_GT(count, 1000);
}

TEST(CertReport, SeveralObjectsAreNumbered) {
    const std::string both = object_named("request") + object_named("crl");
    const std::string text = report_of(both);
    EXPECT_EQ(text.find("[1] CertificationRequest\n"), 0u);
    EXPECT_NE(text.find("\n\n[2] CertificateList\n"), std::string::npos);
    EXPECT_EQ(report_of(object_named("crl")).find("CertificateList\n"), 0u);
    // An object of another kind is shown among others, and alone is an error.
    const std::string other = "-----BEGIN X-----\nMAA=\n-----END X-----\n";
    EXPECT_NE(report_of(other + both).find("[1] Unknown\n  encoding                    malformed 3000\n"),
              std::string::npos);
    EXPECT_FAILURE(CERT_Report(nullptr, 0, other.c_str(), 0), -BAD_FORMAT_ERROR,
                   "Not a certificate, request, CRL or OCSP response");
}

TEST(CertReport, Rooms) {
    const std::string object = object_named("names");
    const std::string text = report_of(object), json = report_of(object, ZUL_CERT_JSON);
    EXPECT_NE(json.find("\\udb40\\udc01"), std::string::npos) << json; // U+E0001 is not shown
    for (size_t room = 1; room <= text.size() + 1; room++) {
        std::string out(room + 1, '#');
        const int length = CERT_Report(out.data(), static_cast<int>(room), object.c_str(), 0);
        ASSERT_GE(length, 0);
        EXPECT_GE(static_cast<size_t>(length) + 3, std::min(room, text.size()));
        EXPECT_STREQ(out.c_str(), text.substr(0, static_cast<size_t>(length)).c_str());
        EXPECT_NE(CNV_CheckUTF8(out.c_str()), 0);
    }
    std::string out(json.size(), '#');
    EXPECT_RESULT(CERT_Report(out.data(), static_cast<int>(json.size()) - 1, object.c_str(), ZUL_CERT_JSON),
                  -SHORT_BUF_ERROR);
    EXPECT_STREQ(out.c_str(), "");
}

TEST(CertReport, Failures) {
    EXPECT_RESULT(CERT_Report(nullptr, 0, nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_Report(nullptr, 0, "", 0), -BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_Report(nullptr, 0, "no such file", 0), -OPEN_ERROR);
    EXPECT_RESULT(CERT_Report(nullptr, 0, object_named("crl").c_str(), 1), -BAD_FLAG_ERROR);
    const std::string key = test::data_path("rsa/private_pkcs8.pem");
    EXPECT_RESULT(CERT_Report(nullptr, 0, key.c_str(), 0), -NO_DATA_ERROR);
}

TEST(CertQuery, Answers) {
    const struct {
        const char *object, *query, *answer;
    } kCases[] = {
        {"standard extensions", "kind", "certificate"},
        {"standard extensions", "VERSION", "3"},
        {"standard extensions", "serialNumber", "01"},
        {"standard extensions", "issuer", "CN=CA"},
        {"standard extensions", "notBefore", "1950-01-01T00:00:00Z"},
        {"standard extensions", "notAfter", "2050-01-01T00:00:00Z"},
        {"standard extensions", "publicKeyAlgorithm", "id-Ed25519"},
        {"standard extensions", "publicKeyBits", "256"},
        {"standard extensions", "curve", ""},
        {"standard extensions", "signatureAlgorithm", "sha256WithRSAEncryption"},
        {"standard extensions", "isSelfIssued", "1"},
        {"standard extensions", "selfSigned", "0"},
        {"standard extensions", "subjectKeyIdentifier", "0102"},
        {"standard extensions", "authorityKeyIdentifier", "03"},
        {"standard extensions", "keyUsage", "keyCertSign\ncRLSign"},
        {"standard extensions", "extKeyUsage", "serverAuth\nmsSmartcardLogon\n1.2.3.4"},
        {"standard extensions", "isCA", "1"},
        {"standard extensions", "pathLength", "3"},
        {"standard extensions", "policies", "1.2.3\n2.23.140.1.2.1"},
        {"standard extensions", "nameConstraints",
         "permitted:dNSName:example.com\npermitted:iPAddress:10.0.0.0/8\nexcluded:rfc822Name:.example.org"},
        {"standard extensions", "crl", "http://c/"},
        {"standard extensions", "ocsp", "http://o/"},
        {"standard extensions", "caIssuers", ""},
        {"standard extensions", "dns", ""},
        {"standard extensions", "thisUpdate", ""},
        {"names", "subject", "CN=M\u00FCller, CN=\u03A9\u00DF, CN=\U0001F600\\xf3\\xa0\\x80\\x81"},
        {"extensions of others", "tlsFeature", "status_request\nstatus_request_v2\n99"},
        {"extensions of others", "sctCount", "2"},
        {"pss", "publicKeyBits", "1024"},
        {"brainpool", "curve", "brainpoolP384r1"},
        {"brainpool", "sctCount", "0"},
        {"good request", "dns", "r.example"},
        {"good request", "subjectAltName", "dNSName:r.example"},
        {"good request", "isCA", "0"},
        {"crl", "kind", "crl"},
        {"crl", "thisUpdate", "2026-01-01T00:00:00Z"},
        {"crl", "nextUpdate", "2026-02-01T00:00:00Z"},
        {"crl", "crlNumber", "0x400000000000000000"},
        {"crl", "extensions", "cRLNumber\ndeltaCRLIndicator\nissuingDistributionPoint"},
        {"crl", "subject", ""},
        {"crl", "publicKey", ""},
        {"unsuccessful response", "kind", "ocspResponse"},
    };
    for (const auto& one : kCases)
        EXPECT_EQ(answer_of(object_named(one.object), one.query), one.answer) << one.query;
    EXPECT_LT(std::stoi(answer_of(object_named("crl"), "daysLeft")), 0);
}

TEST(CertQuery, Failures) {
    const std::string object = object_named("names"), request = object_named("request");
    EXPECT_RESULT(CERT_Query(nullptr, 0, object.c_str(), "", 0), -BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_Query(nullptr, 0, "", "issuer", 0), -BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_Query(nullptr, 0, object.c_str(), "issuer", 1), -BAD_FLAG_ERROR);
    EXPECT_FAILURE_WITH(CERT_Query(nullptr, 0, object.c_str(), "issuers", 0), -BAD_QUERY_ERROR,
                        "Queries: kind, version, serialNumber, issuer,");
    EXPECT_EQ(last_error().find("extensions"), last_error().size() - 10); // not cut
    // A text that is not ASCII makes the extension malformed; others are answered.
    EXPECT_FAILURE(CERT_Query(nullptr, 0, object.c_str(), "dns", 0), -BAD_FORMAT_ERROR,
                   "Invalid extension subjectAltName");
    EXPECT_RESULT(CERT_Query(nullptr, 0, request.c_str(), "subject", 0), -BAD_FORMAT_ERROR);
    EXPECT_RESULT(CERT_Query(nullptr, 0, object_named("malformed fields").c_str(), "subject", 0),
                  -BAD_FORMAT_ERROR);
    EXPECT_RESULT(CERT_Query(nullptr, 0, object_named("crl").c_str(), "revokedCount", 0), -BAD_FORMAT_ERROR);
}

TEST(CertCheckName, Exports) {
    const std::string certificate = test::data_path("x509/all_sha1.pem");
    EXPECT_FAILURE_WITH(CERT_CheckName(certificate.c_str(), "www.example.net", 0), NO_MATCH_ERROR,
                        "The certificate is not for 'www.example.net' but for ");
    EXPECT_RESULT(CERT_CheckName(certificate.c_str(), "a b", 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_CheckName(certificate.c_str(), "", 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(CERT_CheckName(certificate.c_str(), "localhost", ZUL_CERT_JSON), BAD_FLAG_ERROR);
    EXPECT_RESULT(CERT_CheckName(object_named("crl").c_str(), "localhost", 0), BAD_FORMAT_ERROR);
    EXPECT_RESULT(CERT_CheckName(object_named("names").c_str(), "localhost", 0), BAD_FORMAT_ERROR);
}
