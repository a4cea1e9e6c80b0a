#include <ctime>
#include <functional>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "support/key_calls.h"

using test::last_error;
using test::text_of;

namespace {

std::string data(const std::string& name) {
    return test::data_path("x509_make/" + name);
}

std::string query(const std::string& certificate, const char* what) {
    return text_of(
        [&](char* out, int room) { return X509_QueryCert(out, room, certificate.c_str(), what, 0); });
}

enum class Kind { self, cert, request, crl };

// Order holds what one call is given; an issuer's key pair and a subject's public key unless changed.
struct Order {
    Kind kind = Kind::cert;
    std::string file, issuer = data("issuer.pem"), subject = data("subject_public.pem"),
                      key = test::data_path("rsa/enc_aes256.pem");
    int number = 1, years = 1, usage = 0, options = ZUL_HASH_SHA256;
    std::string name = "CN=A", extensions, password = "password", list;

    int make() const {
        const char* const f = file.c_str();
        const char* const k = key.c_str();
        const char* const n = name.c_str();
        const char* const e = extensions.c_str();
        const char* const p = password.c_str();
        switch (kind) {
        case Kind::self:
            return X509_MakeCertSelf(f, k, number, years, n, e, usage, p, options);
        case Kind::cert:
            return X509_MakeCert(f, issuer.c_str(), subject.c_str(), k, number, years, n, e, usage, p,
                                 options);
        case Kind::request:
            return X509_CertRequest(f, k, n, e, p, options);
        case Kind::crl:
            return X509_MakeCRL(f, issuer.c_str(), k, p, list.c_str(), e, options);
        }
        return -1;
    }
};

class X509Make : public testing::Test {
  protected:
    Order order(Kind kind) const {
        Order o;
        o.kind = kind;
        o.file = dir.file("made");
        return o;
    }
    std::vector<uint8_t> made(const Order& o) const {
        EXPECT_RESULT(o.make(), 0);
        EXPECT_EQ(last_error(), "");
        return test::read_file(o.file);
    }

    test::TempDir dir;
};

} // namespace

TEST_F(X509Make, MakesTheSameAsOpenssl) {
    for (const auto& v : test::read_vectors("x509_make/made.txt")) {
        const std::string call = v.text("Call");
        Order o = order(call == "self"      ? Kind::self
                        : call == "cert"    ? Kind::cert
                        : call == "request" ? Kind::request
                                            : Kind::crl);
        o.options = static_cast<int>(v.number("Options"));
        if (o.kind != Kind::request)
            o.extensions = v.text("Extensions");
        if (o.kind == Kind::crl)
            o.list = v.text("CertList");
        else
            o.name = v.text("DistName");
        if (o.kind == Kind::self || o.kind == Kind::cert) {
            o.number = static_cast<int>(v.number("CertNum"));
            o.usage = static_cast<int>(v.number("KeyUsage"));
            o.years = v.has("YearsValid") ? static_cast<int>(v.number("YearsValid")) : 0;
        }
        EXPECT_EQ(test::to_hex(made(o)), v.text("DER"));
    }
}

TEST_F(X509Make, SignsWithEveryDigestInBothForms) {
    struct Form {
        Kind kind;
        int pem, der;
        std::string label;
    };
    for (const Form& form : {Form{Kind::self, ZUL_X509_FORMAT_PEM, 0, "CERTIFICATE"},
                             Form{Kind::request, 0, ZUL_X509_REQ_DER, "NEW CERTIFICATE REQUEST"},
                             Form{Kind::crl, ZUL_X509_FORMAT_PEM, 0, "X509 CRL"}})
        for (int digest = ZUL_HASH_SHA1; digest <= ZUL_HASH_SHA224; digest++) {
            SCOPED_TRACE(form.label + " " + std::to_string(digest));
            Order o = order(form.kind);
            o.extensions = form.kind == Kind::crl ? "thisUpdate=2026-1-2" : "notBefore=2026-1-2";
            o.options = digest | form.der;
            const std::vector<uint8_t> der = made(o);
            EXPECT_RESULT(X509_VerifyCert(o.file.c_str(), o.issuer.c_str()), 0);

            o.options = digest | form.pem;
            const std::vector<uint8_t> pem = made(o);
            const std::string begin = "-----BEGIN " + form.label + "-----\r\n";
            EXPECT_EQ(std::string(pem.begin(), pem.begin() + static_cast<long>(begin.size())), begin);
            EXPECT_EQ(pem[begin.size() + 64], '\r');
            EXPECT_EQ(PEM_FileToBinFile(o.file.c_str(), o.file.c_str()), 0);
            std::vector<uint8_t> decoded = test::read_file(o.file);
            decoded.resize(der.size());
            EXPECT_EQ(decoded, der);
        }
}

TEST_F(X509Make, LeavesOutEmptyFields) {
    Order o = order(Kind::cert);
    o.options = ZUL_X509_NO_BASIC;
    const std::vector<uint8_t> bare = made(o); // no [3], but version 3
    EXPECT_EQ(X509_QueryCert(nullptr, 0, o.file.c_str(), "version", 0), 3);
    o.options |= ZUL_X509_VERSION1;
    EXPECT_EQ(made(o).size() + 5, bare.size());

    Order request = order(Kind::request);
    request.options |= ZUL_X509_REQ_DER;
    const size_t size = made(request).size();
    request.options |= ZUL_X509_REQ_NOATTRS;
    EXPECT_EQ(made(request).size() + 2, size);
    EXPECT_RESULT(X509_VerifyCert(request.file.c_str(), request.issuer.c_str()), 0);
}

TEST_F(X509Make, BeginsAMinuteAgo) {
    const auto a_minute_ago = [] {
        const time_t now = time(nullptr);
        tm parts = *gmtime(&now);
        parts.tm_min -= 1;
        parts.tm_sec = 1;
        parts.tm_isdst = 0;
        const time_t moment = mktime(&parts);
        char text[32];
        strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", gmtime(&moment));
        return std::string(text);
    };
    Order o = order(Kind::self);
    o.years = 3;
    const std::string before = a_minute_ago();
    made(o);
    const std::string begin = query(o.file, "notBefore"), after = a_minute_ago();
    EXPECT_TRUE(begin == before || begin == after) << before << " " << begin;
    EXPECT_EQ(std::stoi(query(o.file, "notAfter")), std::stoi(begin) + 3);

    Order crl = order(Kind::crl);
    const time_t now = time(nullptr);
    const std::vector<uint8_t> bytes = made(crl);
    char date[16];
    strftime(date, sizeof date, "%Y%m%d", gmtime(&now));
    EXPECT_NE(test::to_hex(bytes).find("170d" + test::to_hex(reinterpret_cast<uint8_t*>(date + 2), 6)),
              std::string::npos);
}

TEST_F(X509Make, MakesACertificateOfARequest) {
    Order o = order(Kind::cert);
    o.name = "";
    o.subject = data("request.pem");
    made(o);
    // UTF8String prints as hex bytes, and what has no keyword is left out.
    EXPECT_EQ(query(o.file, "subjectName"), "C=AU;O=45 78 20 61 6D 70 6C 65;CN=41 6E 6E");
    EXPECT_RESULT(X509_VerifyCert(data("request.pem").c_str(), o.file.c_str()), 0);

    // The same from text, and with one's own name.
    o.subject = test::read_text(data("request.pem"));
    o.extensions = "notBefore=2026-01-01";
    const std::vector<uint8_t> fromText = made(o);
    o.subject = data("subject_public.pem");
    o.name = "C=AU;O=45 78 20 61 6D 70 6C 65;CN=41 6E 6E";
    EXPECT_EQ(made(o), fromText);
}

TEST_F(X509Make, TakesKeysAndCertificatesInEveryForm) {
    Order o = order(Kind::cert);
    o.extensions = "notBefore=2026-01-01";
    const std::vector<uint8_t> expected = made(o);

    Order texts = o;
    texts.key = test::read_text(o.key);
    texts.subject = test::read_text(o.subject);
    texts.issuer =
        text_of([&](char* out, int room) { return X509_ReadStringFromFile(out, room, o.issuer.c_str(), 0); });
    EXPECT_EQ(made(texts), expected);

    texts.key = test::read_key(o.key, o.password.c_str());
    texts.subject = test::read_key(o.subject);
    EXPECT_EQ(made(texts), expected);

    Order self = order(Kind::self), own = o; // a private key stands for its public half
    self.file = dir.file("self");
    made(self);
    own.subject = texts.key;
    made(own);
    EXPECT_EQ(X509_VerifyCert(own.file.c_str(), o.issuer.c_str()), 0);
    EXPECT_EQ(X509_VerifyCert(self.file.c_str(), own.file.c_str()), 0);
}

TEST_F(X509Make, RefusesWhatIsWrong) {
    const std::string requestText = test::read_text(data("request.pem"));
    std::string tampered = requestText;
    tampered[tampered.size() - 60] ^= 3;
    const std::string nowhere = dir.file("nowhere"), small = dir.file("small");
    // Too short for a signature with SHA-512.
    ASSERT_EQ(
        RSA_MakeKeys(dir.file("public").c_str(), small.c_str(), 512, 4, 5, 1, "password", nullptr, 0, 0), 0);
    const std::function<void(Order&)> unable = [&](Order& o) { o.key = small, o.options = ZUL_HASH_SHA512; };
    struct Fault {
        Kind kind;
        int code;
        std::string text; // how the text ends
        std::function<void(Order&)> change;
    };
    const std::vector<Fault> faults = {
        {Kind::cert, BAD_PARAM_ERROR, "", [](Order& o) { o.issuer = ""; }},
        {Kind::cert, BAD_PARAM_ERROR, "", [](Order& o) { o.key = ""; }},
        {Kind::cert, BAD_PARAM_ERROR, "", [](Order& o) { o.password = "", o.options = 7; }},
        {Kind::self, BAD_PARAM_ERROR, "", [](Order& o) { o.name = ""; }},
        {Kind::request, BAD_PARAM_ERROR, "", [](Order& o) { o.name = ""; }},
        {Kind::crl, BAD_PARAM_ERROR, "", [](Order& o) { o.issuer = ""; }},
        {Kind::cert, BAD_FLAG_ERROR, "Invalid signature option",
         [](Order& o) { o.options = 7, o.key = "?"; }},
        {Kind::request, BAD_FLAG_ERROR, "", [](Order& o) { o.options = 15; }},
        {Kind::cert, OPEN_ERROR, "Unable to open issuer's private key file '" + nowhere + "'",
         [&](Order& o) { o.key = o.subject = o.issuer = nowhere; }},
        {Kind::cert, OPEN_ERROR, "Unable to open issuer's private key file '...'",
         [](Order& o) { o.key = std::string(300, 'x'); }},
        {Kind::cert, OPEN_ERROR, "Unable to open subject's public key file '" + nowhere + "'",
         [&](Order& o) { o.subject = o.issuer = nowhere; }},
        {Kind::cert, OPEN_ERROR, "Unable to open issuer's certificate file '" + nowhere + "'",
         [&](Order& o) { o.issuer = nowhere, o.name = "X=1"; }},
        {Kind::cert, DECRYPT_ERROR, "Internal key data is faulty; Unable to read private key data",
         [](Order& o) { o.key = "PVTR" + std::string(80, 'A'); }},
        {Kind::cert, BAD_FORMAT_ERROR, "Not a valid certificate signing request",
         [](Order& o) { o.name = ""; }},
        {Kind::cert, NOT_SUPPORTED_ERROR,
         "Unsupported key algorithm '1.2.840.10045.2.1': require `rsaEncryption'",
         [](Order& o) { o.name = "", o.subject = data("request_ec.pem"); }},
        {Kind::cert, SIGNATURE_ERROR, "Signature is invalid",
         [&](Order& o) { o.name = "", o.subject = tampered; }},
        {Kind::cert, BAD_PARAM_ERROR, "Invalid distinguished name string",
         [](Order& o) { o.name = "commonName=Bob", o.extensions = "mpeg=1"; }},
        {Kind::cert, BAD_PARAM_ERROR, "Invalid attribute name in extension",
         [](Order& o) { o.extensions = "subjectAltNameURI=http://a", o.password = "wrong"; }},
        {Kind::cert, BAD_PARAM_ERROR, "Invalid value of serialNumber in extension",
         [](Order& o) { o.extensions = "serialNumber=;notBefore=x"; }},
        {Kind::cert, BAD_PARAM_ERROR, "Invalid value of subjectKeyIdentifier in extension",
         [](Order& o) { o.extensions = "subjectKeyIdentifier=-12"; }},
        {Kind::cert, BAD_PARAM_ERROR, "Invalid value of rfc822Name in extension",
         [](Order& o) { o.extensions = "rfc822Name=\xE9@b.c"; }},
        {Kind::cert, DECRYPT_ERROR, "Unable to read private key data",
         [](Order& o) { o.password = "wrong", o.issuer = o.subject; }},
        {Kind::cert, INVALID_DATA_ERROR, "Invalid DN in issuer certificate",
         [](Order& o) { o.issuer = data("request.pem"), o.subject = o.issuer; }},
        {Kind::cert, BAD_FORMAT_ERROR, "Unable to read public key file '" + data("request.pem") + "'",
         [](Order& o) { o.subject = data("request.pem"), o.extensions = "notBefore=x"; }},
        {Kind::cert, BAD_PARAM_ERROR, "notBefore time is invalid",
         [](Order& o) { o.extensions = "notBefore=2010-02-30;notAfter=x"; }},
        {Kind::cert, BAD_PARAM_ERROR, "notAfter time is invalid",
         [](Order& o) { o.extensions = "notAfter="; }},
        {Kind::self, BAD_PARAM_ERROR, "notAfter time is invalid", [](Order& o) { o.years = 0x7FFFFFFF; }},
        {Kind::self, BAD_PARAM_ERROR, "notAfter time is invalid",
         [](Order& o) { o.extensions = "notBefore=9999-01-01"; }},
        {Kind::self, BAD_PARAM_ERROR, "Invalid yearsValid value", [](Order& o) { o.years = 0; }},
        {Kind::self, SIGNATURE_ERROR, "Error creating signature", unable},
        {Kind::request, SIGNATURE_ERROR, "Unable to sign certificate", unable},
        {Kind::crl, SIGNATURE_ERROR, "Unable to sign CRL", unable},
        {Kind::self, CREATE_ERROR, "Cannot create file '" + dir.file("no/file") + "'",
         [&](Order& o) { o.file = dir.file("no/file"); }},
        {Kind::request, BAD_PARAM_ERROR, "Invalid distinguished name string",
         [&](Order& o) { o.name = "CN =Bob", o.key = nowhere; }},
        {Kind::request, READ_ERROR, "Unable to read private key file\n", [](Order& o) { o.password = "x"; }},
        {Kind::request, CREATE_ERROR, "Cannot create file " + dir.file("no/file"),
         [&](Order& o) { o.file = dir.file("no/file"); }},
        {Kind::crl, BAD_PARAM_ERROR, "Invalid attribute name 'notBefore'",
         [&](Order& o) { o.extensions = "notBefore=2010-01-01", o.issuer = nowhere; }},
        {Kind::crl, BAD_PARAM_ERROR, "thisUpdate time is invalid",
         [](Order& o) { o.extensions = "nextUpdate=x;thisUpdate=x"; }},
        {Kind::crl, BAD_PARAM_ERROR, "nextUpdate time is invalid",
         [&](Order& o) { o.extensions = "nextUpdate=2010-01-01T24:00:00", o.issuer = nowhere; }},
        {Kind::crl, OPEN_ERROR, "Unable to open file '" + nowhere + "'",
         [&](Order& o) { o.issuer = o.key = nowhere; }},
        {Kind::crl, READ_ERROR, "Unable to read private key file\n",
         [](Order& o) { o.password = "x", o.list = "x"; }},
        {Kind::crl, CREATE_ERROR, "Cannot create file " + dir.file("no/file"),
         [&](Order& o) { o.file = dir.file("no/file"); }},
    };
    for (const Fault& fault : faults) {
        Order o = order(fault.kind);
        fault.change(o);
        SCOPED_TRACE(fault.text + " " + o.name + " " + o.extensions);
        EXPECT_EQ(o.make(), fault.code) << last_error();
        const std::string text = last_error();
        EXPECT_TRUE(fault.text.empty() ? text.empty() : text.ends_with(fault.text)) << text;
        EXPECT_EQ(ZUL_ErrorCode(), fault.kind == Kind::crl ? 0 : fault.code);
        EXPECT_FALSE(test::file_exists(o.file));
    }
    for (const Kind kind : {Kind::cert, Kind::self, Kind::request, Kind::crl}) { // over the key itself
        Order o = order(kind);
        const std::string key = test::read_text(o.key);
        o.key = o.file = dir.write("key", key);
        EXPECT_EQ(o.make(), CREATE_ERROR);
        EXPECT_EQ(test::read_text(o.file), key);
    }
    for (const char* list : {"1", "1,", "1,2010-13-01", ",2010-01-01", "0x1,2010-01-01", "-1,2010-01-01",
                             "#x,2010-01-01", "#x1g,2010-01-01", "1,2010-01-01;;2,2010-01-01"}) {
        Order o = order(Kind::crl);
        o.list = list;
        EXPECT_EQ(o.make(), BAD_FORMAT_ERROR) << list;
        EXPECT_EQ(last_error(), "Invalid certlist string\n") << list;
        EXPECT_FALSE(test::file_exists(o.file));
    }
}

#ifndef _WIN32
// After a failure, what else is missing is told without opening a pipe, which would wait for a writer.
TEST_F(X509Make, DoesNotWaitForAPipe) {
    Order o = order(Kind::cert);
    o.name = "X=1";
    o.issuer = dir.file("pipe");
    ASSERT_EQ(mkfifo(o.issuer.c_str(), 0600), 0);
    EXPECT_FAILURE(o.make(), BAD_PARAM_ERROR, "Invalid distinguished name string");
}
#endif
