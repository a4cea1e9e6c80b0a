#include <algorithm>

#include "support/key_calls.h"

using namespace test;

namespace {

class CertMake : public testing::Test {
  protected:
    int self_sign(const std::string& key, const std::string& description, int options = 0) const {
        return CERT_SelfSign(out_.c_str(), key.c_str(), description.c_str(), options);
    }
    int request(const std::string& key, const std::string& description) const {
        return CERT_Request(out_.c_str(), key.c_str(), description.c_str(), 0);
    }
    int issue(const std::string& subject, const std::string& description, int options = 0) const {
        return issue_by(root_, subject, description, options);
    }
    int issue_by(const std::string& issuer, const std::string& subject, const std::string& description,
                 int options = 0) const {
        return CERT_Issue(out_.c_str(), issuer.c_str(), rootKey().c_str(), subject.c_str(),
                          description.c_str(), options);
    }
    // made gives the PEM text of what the last call made.
    std::string made() const { return read_text(out_); }
    std::string authority(const std::string& description) const {
        EXPECT_RESULT(self_sign(rootKey(), description), 0);
        return made();
    }
    std::string asked(const std::string& description) const {
        EXPECT_RESULT(request(key(), description), 0);
        return made();
    }
    static std::string query(const std::string& certificate, const char* what) {
        return text_of([&](char* out, int room) {
            return X509_QueryCert(out, room, certificate.c_str(), what, ZUL_X509_LATIN1);
        });
    }
    bool holds(const std::string& hex) const { return to_hex(der_of(made())).find(hex) != std::string::npos; }

    static const std::string& key() { return kept_key("p-256"); }
    static const std::string& rootKey() { return kept_key("ed25519"); }

    const TempDir dir_;
    const std::string out_ = dir_.file("out.pem");
    std::string root_ = authority("CN=Root;profile=ca;pathLength=1;notBefore=2020-01-01;notAfter=2049-12-31");
};

} // namespace

TEST_F(CertMake, DescriptionsAreRefusedByName) {
    const struct {
        const char *description, *text;
    } rows[] = {
        {"CN=a;colour=red", "Unknown keyword; in 'colour=red'"},
        {"CN=a;dns=b_c", "A label has a character other than letters, digits and hyphens; in 'dns=b_c'"},
        {"CN=a;ip=1.2.3", "Not an IP address; in 'ip=1.2.3'"},
        {"C=AUS", "A country is two letters; in 'C=AUS'"},
        {"SERIALNUMBER=a_b", "A character that a PrintableString lacks; in 'SERIALNUMBER=a_b'"},
        {"CN=a\xFF", "Not valid UTF-8; in 'CN=a\xFF'"},
        {"CN=a\tb", "A control character; in 'CN=a\tb'"},
        {"CN=#x", "An empty value; in 'CN=#x'"},
        {"CN=a;uri=http://[::1]:abc/", "The URI's port is no number; in 'uri=http://[::1]:abc/'"},
        {"CN=a;uri=http://[::1]8/", "The URI's port is no number; in 'uri=http://[::1]8/'"},
        {"CN=a;uri=http://a@b@c/",
         "A label has a character other than letters, digits and hyphens; in 'uri=http://a@b@c/'"},
        {"CN=a;uri=http://[@a/", "A bracket outside the URI's host; in 'uri=http://[@a/'"},
        {"CN=a;uri=http://a/[", "A bracket outside the URI's host; in 'uri=http://a/['"},
        {"CN=a;uri=urn:a#b#c", "A second # in the URI; in 'uri=urn:a#b#c'"},
        {"CN=a;notBefore=9999-12-31T00:00:01;days=1", "A date beyond the year 9999"},
        {"CN=a;notBefore=9999-12-02;valid=1m", "A date beyond the year 9999"},
        {"CN=#x410", "Not pairs of hex digits; in 'CN=#x410'"},
        {"1.2.x=a", "Unknown keyword; in '1.2.x=a'"},
        {"DC=a.b", "A domain component is one label; in 'DC=a.b'"},
        {"E=\u00FC@a.example",
         "The address is not ASCII before the @: email= takes such an address; in 'E=\u00FC@a.example'"},
        {"subject='CN=a';O=b", "The subject is given already; in 'O=b'"},
        {"subject='CN=a;X=b'", "Unknown keyword; in 'X=b'; in 'subject=CN=a;X=b'"},
        {"CN=a;ca=1", "A flag stands alone, or is true or false; in 'ca=1'"},
        {"CN=a;profile=ca;ca=false", "The profile ca contradicts ca=false"},
        {"CN=a;profile=web",
         "Not a profile (server, client, email, code, ca, ocsp, timestamp); in 'profile=web'"},
        {"CN=a;profile=server", "A server has a name in dns= or an address in ip="},
        {"CN=a;profile=email;dns=b", "The profile email needs an address in email="},
        {"dns=a", "An issuer of certificates, of its own too, has a subject"},
        {"CN=a;keyUsage=keyCertSign", "The key usage keyCertSign goes with ca"},
        {"CN=a;keyUsage=keyEncipherment", "Keys of p-256 do not have this key usage"},
        {"CN=a;keyUsage=digitalSignature,encipherOnly", "encipherOnly and decipherOnly go with keyAgreement"},
        {"CN=a;pathLength=0", "A pathLength goes with ca and the key usage keyCertSign"},
        {"CN=a;ca;pathLength=0;keyUsage=cRLSign", "A pathLength goes with ca and the key usage keyCertSign"},
        {"CN=a;ca;pathLength=-1", "Not a number; in 'pathLength=-1'"},
        {"CN=a;permit=dns:b", "Constraints of names (permit, exclude) go with ca"},
        {"CN=a;inhibitAnyPolicy=0",
         "policyMapping, requireExplicitPolicy, inhibitPolicyMapping and inhibitAnyPolicy go with ca"},
        {"CN=a;ca;policyMapping=1.2:2.5.29.32.0",
         "anyPolicy is not mapped; in 'policyMapping=1.2:2.5.29.32.0'"},
        {"CN=a;policy=1.2.3,1.2.3:http://b", "A policy that is given already; in 'policy=1.2.3:http://b'"},
        {"CN=a;policy=1.2.3:b", "Not an absolute URI; in 'policy=1.2.3:b'"},
        {"CN=a;extension=2.5.29.17:0500",
         "An extension that has keywords of its own; in 'extension=2.5.29.17:0500'"},
        {"CN=a;extension=1.2.3:0501", "Not the DER of one element; in 'extension=1.2.3:0501'"},
        {"CN=a;extension=1.2.3:0500;extension=1.2.3:0500",
         "An extension that is given already; in 'extension=1.2.3:0500'"},
        {"CN=a;serial=0",
         "A serial number is above 0 and has at most 20 bytes, with the sign; in 'serial=0'"},
        {"CN=a;serial=80ffffffffffffffffffffffffffffffffffffff",
         "A serial number is above 0 and has at most 20 bytes, with the sign; in "
         "'serial=80ffffffffffffffffffffffffffffffffffffff'"},
        {"CN=a;serial=x", "Not hex digits; in 'serial=x'"},
        {"CN=a;notBefore=2026-02-30", "Not a date; in 'notBefore=2026-02-30'"},
        {"CN=a;notBefore=1949-12-31", "A date before 1950; in 'notBefore=1949-12-31'"},
        {"CN=a;notBefore=2026-01-02;notAfter=2026-01-01", "The validity ends before it begins"},
        {"CN=a;days=1;notAfter=never", "The end of the validity is given already; in 'notAfter=never'"},
        {"CN=a;days=0", "A span is a number and h, d, w, m or y; in 'days=0'"},
        {"CN=a;valid=9999y", "A date beyond the year 9999"},
        {"CN=a;tlsFeature=70000",
         "Not a TLS feature (status_request, status_request_v2, or a number); in 'tlsFeature=70000'"},
        {"CN=a;copy=keyUsage", "Extensions are copied from a request into the certificate that is issued for "
                               "it; in 'copy=keyUsage'"},
    };
    for (const auto& row : rows)
        EXPECT_FAILURE(self_sign(key(), row.description), BAD_PARAM_ERROR, row.text);
    EXPECT_FAILURE(self_sign(key(), "OU=" + std::string(65, 'a')), BAD_PARAM_ERROR,
                   "Longer than 64 characters; in 'OU=" + std::string(65, 'a') + "'");
    EXPECT_EQ(self_sign(key(), "OU=" + std::string(32, 'a') + "\u00FC" + std::string(31, 'a')), 0);
    // Nothing of a text that may be a key gets into the error text.
    EXPECT_FAILURE(self_sign(key(), "CN=a;other='" + std::string(300, 'k') + "'"), BAD_PARAM_ERROR,
                   "Another name is OID:utf8:TEXT or OID:HEX; in 'other=...'");
    for (const char* description :
         {"CN=a;days=1", "CN=a;serial=1", "CN=a;notBefore=2026", "CN=a;notAfter=2026"})
        EXPECT_EQ(request(key(), description), BAD_PARAM_ERROR) << description;
    EXPECT_FAILURE(request(key(), "keyUsage=digitalSignature"), BAD_PARAM_ERROR,
                   "Neither a subject nor an alternative name is given");
}

TEST_F(CertMake, KeysAndAlgorithms) {
    const struct {
        const char *key, *signature;
        int code;
    } rows[] = {{"ed25519", "ed25519ph", NOT_SUPPORTED_ERROR},
                {"ed25519", "rsa-sha256", BAD_KEY_ERROR},
                {"p-256", "ecdsa-sha512-256", NOT_SUPPORTED_ERROR},
                {"p-256", "ecdsa-sha3-256", 0},
                {"p-256", "ecdsa-sha999", NOT_SUPPORTED_ERROR},
                {"x25519", "ed25519", BAD_KEY_ERROR},
                {"rsa-1024", "'rsa-pss-sha512;salt=max'", 0},
                {"rsa-1024", "'rsa-pss-sha512;salt=20'", 0},
                {"rsa-1024", "rsa-pss-sha256", 0},
                {"rsa-1024", "'rsa-pss-sha256;salt=any'", NOT_SUPPORTED_ERROR},
                {"rsa-1024", "'rsa-pss-sha512;salt=63'", BAD_KEY_LEN_ERROR}};
    for (const auto& row : rows) {
        EXPECT_EQ(self_sign(make_key(row.key), std::string("CN=a;signature=") + row.signature), row.code)
            << row.signature << " " << last_error();
        const int verified = CERT_CheckPath(nullptr, 0, out_.c_str(), nullptr, out_.c_str(), nullptr, "", 0);
        EXPECT_EQ(row.code == 0 ? verified : 0, 0) << row.signature << " " << last_error();
    }
    for (const char* profile : {"code", "ocsp", "timestamp", "client", "server;dns=a"})
        EXPECT_FAILURE(issue(make_key("x25519"), std::string("CN=a;profile=") + profile), BAD_PARAM_ERROR,
                       "An X25519 key does not sign: of the profiles email alone is for it");
    EXPECT_EQ(issue(make_key("x25519"), "CN=a;profile=email;email=a@b"), 0) << last_error();
    EXPECT_FAILURE(self_sign(public_of(key()), "CN=a"), BAD_KEY_ERROR,
                   "Not a private key; in the signer's key");
    EXPECT_EQ(self_sign("no-such-file", "CN=a"), OPEN_ERROR);
    EXPECT_EQ(self_sign(key(), "CN=a", 2), BAD_FLAG_ERROR);
    for (const char* missing : {"", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(CERT_SelfSign(missing, key().c_str(), "CN=a", 0), BAD_PARAM_ERROR);
        EXPECT_EQ(CERT_Request(out_.c_str(), key().c_str(), missing, 0), BAD_PARAM_ERROR);
        EXPECT_EQ(CERT_Issue(out_.c_str(), root_.c_str(), missing, key().c_str(), "CN=a", 0),
                  BAD_PARAM_ERROR);
    }
}

TEST_F(CertMake, IssuersAreChecked) {
    EXPECT_RESULT(issue(key(), "CN=a"), 0);
    const std::string endEntity = made();
    const struct {
        std::string issuer;
        const char* description;
        int code;
        const char* text;
    } rows[] = {
        {endEntity, "CN=a", ISSUER_ERROR, "The issuer is no certification authority (basicConstraints)"},
        {authority("CN=a;ca;keyUsage=cRLSign"), "CN=a", ISSUER_ERROR,
         "The issuer's key usage lacks keyCertSign"},
        {authority("CN=a;ca;pathLength=0"), "CN=a;ca", ISSUER_ERROR,
         "The issuer's path length is 0: it issues to no authority"},
        {root_, "CN=a;ca;pathLength=1", BAD_PARAM_ERROR,
         "The pathLength has to be below that of the issuer, 1"},
        {root_, "CN=a;ca;pathLength=0", 0, ""},
        {root_, "CN=a;days=99999", BAD_PARAM_ERROR, "The validity exceeds that of the issuer's certificate"},
        {root_, "CN=a;notBefore=2019-12-31", BAD_PARAM_ERROR,
         "The validity exceeds that of the issuer's certificate"},
        {authority("CN=a;ca;notBefore=2020;notAfter=2021"), "CN=a", BAD_PARAM_ERROR,
         "The issuer's certificate has expired by then"},
        {"no-such-file", "CN=a", OPEN_ERROR, "Cannot open file 'no-such-file'; in the issuer's certificate"},
        {asked("CN=a"), "CN=a", BAD_FORMAT_ERROR, "Not a certificate; in the issuer's certificate"},
    };
    for (const auto& row : rows)
        EXPECT_FAILURE(issue_by(row.issuer, key(), row.description), row.code, row.text);
    EXPECT_EQ(issue(key(), "CN=a;days=99999", ZUL_CERT_BEYOND_ISSUER), 0);
    EXPECT_EQ(CERT_Issue(out_.c_str(), root_.c_str(), key().c_str(), key().c_str(), "CN=a", 0),
              NO_MATCH_ERROR);
    // A default keeps within the issuer's validity.
    EXPECT_EQ(issue(key(), "CN=a;ca;pathLength=0;notBefore=2048-01-01"), 0);
    EXPECT_EQ(query(made(), "notAfter"), "2049-12-31T23:59:59Z");
}

TEST_F(CertMake, ValiditiesAndSerialNumbers) {
    const struct {
        const char *description, *notBefore, *notAfter;
    } rows[] = {
        {"notBefore=2026-01-31;days=1", "2026-01-31T00:00:00Z", "2026-01-31T23:59:59Z"},
        {"notBefore=2026-01-31T12:00:00;valid=1m", "2026-01-31T12:00:00Z", "2026-02-28T11:59:59Z"},
        {"notBefore=2026-01-31;notAfter=2049-12-31", "2026-01-31T00:00:00Z", "2049-12-31T23:59:59Z"},
        {"notBefore=9999-12-31;days=1", "9999-12-31T00:00:00Z", "9999-12-31T23:59:59Z"},
        {"notBefore=9999-12-01;valid=1m;uri='http://u:p@[::1]:80/?#,urn:a'", "9999-12-01T00:00:00Z",
         "9999-12-31T23:59:59Z"},
        {"notBefore=2050;notAfter=never", "2050-01-01T00:00:00Z", "9999-12-31T23:59:59Z"},
        {"notBefore=2026-01-01", "2026-01-01T00:00:00Z", "2026-03-31T23:59:59Z"},
        {"notBefore=2026-01-01;ca", "2026-01-01T00:00:00Z", "2035-12-31T23:59:59Z"},
    };
    for (const auto& row : rows) {
        ASSERT_EQ(
            self_sign(key(), std::string("CN=a;serial=7f:") + std::string(38, 'f') + ";" + row.description),
            0)
            << last_error();
        EXPECT_EQ(query(made(), "notBefore"), row.notBefore);
        EXPECT_EQ(query(made(), "notAfter"), row.notAfter);
        EXPECT_EQ(query(made(), "serialNumber"), "7f" + std::string(38, 'f'));
    }
    ASSERT_EQ(self_sign(key(), "CN=a"), 0);
    const std::string serial = query(made(), "serialNumber");
    EXPECT_EQ(serial.size(), 32u);
    ASSERT_EQ(self_sign(key(), "CN=a"), 0);
    EXPECT_NE(query(made(), "serialNumber"), serial);
    EXPECT_EQ(X509_CertIsValidNow(made().c_str(), 0), 0);
}

// The tags tell a UTCTime from a GeneralizedTime.
TEST_F(CertMake, TimesBeyond2049AreGeneralized) {
    ASSERT_EQ(self_sign(key(), "CN=a;notBefore=2049-12-31;notAfter=2050-01-01T00:00:00"), 0);
    EXPECT_TRUE(holds("170d3439313233313030303030305a180f32303530303130313030303030305a"));
    ASSERT_EQ(self_sign(key(), "CN=a;notBefore=1950;notAfter=never"), 0);
    EXPECT_TRUE(holds("170d3530303130313030303030305a180f39393939313233313233353935395a"));
}

TEST_F(CertMake, RequestsGiveWhatIsNamed) {
    const std::string full =
        asked("CN=Asked;profile=ca;pathLength=0;dns=a.example;ip=192.0.2.1;extKeyUsage=clientAuth;"
              "mustStaple;extension=1.2.3.4:critical:0500;policy=1.2.3");
    ASSERT_RESULT(CERT_Issue(out_.c_str(), root_.c_str(), rootKey().c_str(), full.c_str(), nullptr, 0), 0);
    EXPECT_EQ(query(made(), "subjectName"), "CN=Asked");
    const struct {
        const char *copy, *hex; // of the extension
    } rows[] = {{"subjectAltName", "0603551d110413301182"
                                   "09612e6578616d706c65"
                                   "8704c0000201"},
                {"keyUsage", "0603551d0f0101ff040403020106"},
                {"extKeyUsage", "0603551d25040c300a06082b06010505070302"},
                {"basicConstraints", "0603551d130101ff040830060101ff020100"},
                {"tlsFeature", "06082b0601050507011804053003020105"},
                {"1.2.3.4", "06032a03040101ff04020500"}};
    for (const auto& row : rows)
        EXPECT_FALSE(holds(row.hex)) << row.copy;
    ASSERT_EQ(
        issue(full,
              "O=Given;copy=subjectAltName,basicConstraints,keyUsage,tlsFeature,extKeyUsage,1.2.3.4,1.2.3.5"),
        0)
        << last_error();
    for (const auto& row : rows)
        EXPECT_TRUE(holds(row.hex)) << row.copy;
    EXPECT_EQ(query(made(), "subjectName"), "O=Given");
    EXPECT_FALSE(holds("0603551d20")); // certificatePolicies
    ASSERT_EQ(issue(full, "dns=b.example,A.example;copy=subjectAltName"), 0);
    EXPECT_TRUE(holds("301c8209622e6578616d706c658209612e6578616d706c658704c0000201"));

    const struct {
        const char* description;
        int code;
        const char* text;
    } refused[] = {
        {"keyUsage=digitalSignature;copy=keyUsage", BAD_PARAM_ERROR,
         "The description gives it too; in an extension copied from the request"},
        {"copy=certificatePolicies", BAD_PARAM_ERROR,
         "An extension of this type is not copied: the description gives it; in an extension copied from the "
         "request"},
        {"copy=keyUsage", BAD_PARAM_ERROR, "The key usage keyCertSign goes with ca"},
        {"copy=all", BAD_PARAM_ERROR, "Not the name of an extension, or a dotted identifier; in 'copy=all'"},
    };
    for (const auto& row : refused)
        EXPECT_FAILURE(issue(full, row.description), row.code, row.text);
    const struct {
        const char* name;
        int code;
    } others[] = {{"1.3.6.1.5.5.7.8.9:utf8:\u00FC@a.example", 0},
                  {"1.3.6.1.5.5.7.8.9:utf8:u@a.example", BAD_FORMAT_ERROR}, // is an rfc822Name
                  {"1.3.6.1.5.5.7.8.9:utf8:\u00FC", BAD_FORMAT_ERROR},
                  {"1.3.6.1.5.5.7.8.9:020105", BAD_FORMAT_ERROR},
                  {"1.3.6.1.4.1.311.20.2.3:utf8:u@a", 0},
                  {"1.3.6.1.4.1.311.20.2.3:1603750040", BAD_FORMAT_ERROR},
                  {"1.2.3:utf8:a\u00A0b", 0},
                  {"1.2.3:0c0461c29f62", BAD_FORMAT_ERROR},
                  {"1.2.3:0c03617f62", BAD_FORMAT_ERROR},
                  {"1.2.3:020105", 0}};
    for (const auto& row : others)
        EXPECT_EQ(issue(asked(std::string("CN=a;other=") + row.name), "copy=subjectAltName"), row.code)
            << row.name << " " << last_error();
}

TEST_F(CertMake, RequestsAreNotTrusted) {
    ASSERT_EQ(request(rootKey(), "CN=Asked;dns=abcdef;email=a@bcdef.g"), 0);
    const Bytes good = der_of(made());
    // A request in which a text is another, signed anew: 74 bytes of algorithm and signature stand at the
    // end.
    const auto changed = [&](const std::string& from, const std::string& to, bool isSigned = true) {
        Bytes der = replaced(good, Bytes(from.begin(), from.end()), Bytes(to.begin(), to.end()));
        const Bytes toBeSigned(der.begin() + (der[1] == 0x81 ? 3 : 4), der.end() - 74);
        const Bytes signature = sign_data(toBeSigned, rootKey(), "ed25519");
        if (isSigned)
            std::copy(signature.begin(), signature.end(), der.end() - 64);
        return pem(der);
    };
    const struct {
        const char *from, *to;
        int code;
        const char* text;
    } rows[] = {
        {"abcdef", "abcdeg", 0, ""},
        {"abcdef", "abc_ef", BAD_FORMAT_ERROR,
         "A label has a character other than letters, digits and hyphens; in an extension copied from the "
         "request"},
        {"a@bcdef.g", "a@bcdef..", BAD_FORMAT_ERROR,
         "A label is empty; in an extension copied from the request"},
        {"Asked", "As ed", 0, ""},
        {"Asked", "As\ned", BAD_FORMAT_ERROR, "Invalid name: a control character"},
        {"Asked",
         "As\xC0"
         "ed",
         BAD_FORMAT_ERROR, "Invalid name: a string that is not encoded as its type says"},
    };
    for (const auto& row : rows) {
        EXPECT_FAILURE(issue(changed(row.from, row.to), "copy=subjectAltName"), row.code, row.text);
        EXPECT_EQ(issue(changed(row.from, row.to), "CN=a"), 0) << row.to;
    }
    EXPECT_FAILURE(issue(changed("abcdef", "abcdeg", false), "CN=a"), SIGNATURE_ERROR,
                   "The signature does not verify; in the request");
    EXPECT_EQ(issue(changed("abcdef", std::string("abc\0ef", 6)), "copy=subjectAltName"), BAD_FORMAT_ERROR);
}

TEST_F(CertMake, FilesOfKeysStay) {
    const std::string file = dir_.file("key.pem"), wide = "CN=\u00FC";
    ASSERT_EQ(KEY_Save(file.c_str(), key().c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_PEM), 0);
    const std::string saved = read_text(file);
    EXPECT_EQ(CERT_SelfSign(file.c_str(), file.c_str(), "CN=a", 0), CREATE_ERROR);
    EXPECT_EQ(CERT_Issue(file.c_str(), root_.c_str(), rootKey().c_str(), file.c_str(), "CN=a", 0),
              CREATE_ERROR);
    EXPECT_EQ(read_text(file), saved);
    dir_.write("out.pem", root_);
    EXPECT_EQ(issue_by(out_, key(), "CN=a"), CREATE_ERROR);
    EXPECT_EQ(made(), root_);
    EXPECT_EQ(self_sign(file, wide, ZUL_CERT_DER), 0);
    const std::string der = made();
    EXPECT_EQ(der[0], '\x30');
    EXPECT_EQ(KEY_Match(key().c_str(), read_key(out_).c_str()), 0);
    // A failure leaves what stood there.
    EXPECT_NE(self_sign(file, "CN="), 0);
    EXPECT_EQ(made(), der);
}
