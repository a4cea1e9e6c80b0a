#include <functional>

#include "support/asn_lists.h"
#include "x509/fields/certificate_extensions.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

#ifndef _WIN32
#include <unistd.h>
#endif

using namespace zul;

namespace {

// Fields of certificates, as short as they can be.
const char kAlgorithm[] = "300706052b0e03021d";
const char kTimes[] = "301e 170d3230303130313030303030305a 170d3330303130313030303030305a";
const char kName[] = "300c310a300806035504030c0141";
const char kKey[] = "300f 300706052b0e03021d 0304000401aa";
const char kSignature[] = "030300abcd";

AsnList of(const std::string& hex) {
    return test::parse_hex(hex, true);
}

AsnList object(const std::string& toBeSigned, const std::string& rest) {
    return asn_NewSequence(asn_Link(asn_NewSequence(of(toBeSigned)), of(rest)));
}

AsnList certificate(const std::string& extensions = "") {
    AsnList fields = of("a003020102 020105" + (std::string(kAlgorithm) + kName + kTimes + kName + kKey));
    if (!extensions.empty())
        fields = asn_Link(std::move(fields), asn_NewExplicit(3, asn_NewSequence(of(extensions))));
    return asn_NewSequence(asn_LinkList(asn_NewSequence(std::move(fields)), of(kAlgorithm), of(kSignature)));
}

std::string der_of(const AsnList& list) {
    const SecretBuffer der = asn_Encode(list);
    return {der.text(), der.size()};
}

} // namespace

TEST(X509Input, TakesEveryFormAndReportsTheRest) {
    // Long enough for base64 in an argument.
    const AsnList known = certificate("30818b 0603551d11 048183" + std::string(262, 'a'));
    const std::string der = der_of(known), b64 = asn_EncodeBase64(known.head()).text();
    std::string lines = b64;
    for (size_t i = 64; i < lines.size(); i += 66)
        lines.insert(i, "\r\n");
    const std::string pem = "-----BEGIN X-----\n" + lines + "\n-----END X-----\n";
    const std::string damaged = "-----BEGIN X-----\n" + lines.substr(0, 200) + "\n-----END X-----\n";
    const test::TempDir dir;
    const std::string big =
        std::string("\x30\x84\x01\x00\x00\x00\x04\x84\x00\xFF\xFF\xFA", 12) + std::string(0xFFFFFA, 'x');
    const struct {
        const char* what;
        std::string argument;
        int result;
        const char* text;
        bool isText;
    } cases[] = {
        {"base64", b64, 0, "", true},
        {"base64 in lines", lines + "\n", 0, "", true},
        {"PEM", pem, 0, "", true},
        {"text before PEM", "Subject: A\n" + pem, 0, "", true},
        {"DER file", dir.write("der", der), 0, "", false},
        {"zeros after it", dir.write("zeros", der + std::string(5, '\0')), 0, "", false},
        {"base64 file", dir.write("b64", lines), 0, "", false},
        {"file that begins as a SEQUENCE does", dir.write("0", "0 s: A\n" + pem), 0, "", false},
        {"file with a mark of its bytes' order", dir.write("bom", "\xEF\xBB\xBF" + pem), 0, "", false},
        {"damaged PEM", damaged, INVALID_DATA_ERROR, "Invalid ASN.1 data", true},
        {"PEM without end", pem.substr(0, 300), INVALID_DATA_ERROR, "Invalid ASN.1 data", true},
        {"damaged PEM file", dir.write("damaged", damaged), INVALID_DATA_ERROR, "Invalid ASN.1 data", true},
        {"cut off DER file", dir.write("cut", der.substr(0, 90)), INVALID_DATA_ERROR, "Invalid ASN.1 data",
         true},
        {"empty file", dir.write("empty", ""), INVALID_DATA_ERROR, "Invalid ASN.1 data", true},
        {"short base64", b64.substr(0, 256), OPEN_ERROR, "Unable to open file 'MI", true},
        {"damaged base64", b64.substr(0, 300), OPEN_ERROR, "Unable to open file '...'", true},
        {"other characters", b64 + "!", OPEN_ERROR, "Unable to open file '...'", true},
        {"no file", dir.file("none"), OPEN_ERROR, "Unable to open file '", true},
        {"folder", dir.path(), OPEN_ERROR, "Unable to open file '", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        err_clear();
        AsnList list;
        EXPECT_EQ(x509_read_certificate(c.argument.c_str(), list), c.result);
        EXPECT_EQ(std::string(err_text()).rfind(c.text, 0), 0u) << err_text();
        DerSource source;
        EXPECT_EQ(source.open(c.argument.c_str()), c.result);
        if (c.result != 0)
            continue;
        EXPECT_STREQ(err_text(), "");
        EXPECT_EQ(der_of(list), der);
        EXPECT_EQ(source.is_text(), c.isText);
        EXPECT_EQ(der_of(asn_ReadElement(source.stream())), der);
    }
    err_clear();
    AsnList list;
    EXPECT_EQ(x509_read_request(b64.c_str(), list), BAD_FORMAT_ERROR);
    EXPECT_STREQ(err_text(), "Not a valid certificate signing request");
    EXPECT_FALSE(list);
    // The limit of base64 counts blanks too.
    std::string padded = asn_EncodeBase64(certificate().head()).text();
    padded.resize(256, ' ');
    EXPECT_EQ(x509_read_certificate(padded.c_str(), list), OPEN_ERROR);
    EXPECT_EQ(x509_read_certificate((padded + " ").c_str(), list), 0);
    EXPECT_EQ(x509_read_object(dir.write("big", big).c_str(), list), INVALID_DATA_ERROR);
}

#ifndef _WIN32
// Whoever opened a pipe again would see something else than the first time, or wait forever.
TEST(X509Input, ReadsPipesOnce) {
    const auto data = [](const char* name) { return test::data_path(std::string("x509/") + name); };
    const test::TempDir dir;
    const std::string ca = data("ca.pem"), leaf = data("all_sha1.pem"), out = dir.file("dump");
    const struct {
        const char *what, *content;
        std::function<int(const char*)> call;
        int result;
    } cases[] = {
        {"read", "all_sha1.pem", [](const char* x) { return X509_QueryCert(nullptr, 0, x, "version", 0); },
         3},
        {"verify", "all_sha1.pem", [&](const char* x) { return X509_VerifyCert(x, ca.c_str()); }, 0},
        {"verify BER", "ber_outer.der", [&](const char* x) { return X509_VerifyCert(x, ca.c_str()); }, 0},
        {"issuer", "ca.pem", [&](const char* x) { return X509_VerifyCert(leaf.c_str(), x); }, 0},
        {"list", "crl_v2.der",
         [&](const char* x) { return X509_CheckCertInCRL(leaf.c_str(), x, ca.c_str(), nullptr, 0); }, 1},
        {"dump list", "crl_v2.der", [&](const char* x) { return X509_TextDump(out.c_str(), x, 0); }, 0},
        {"dump", "ca.pem", [&](const char* x) { return X509_TextDump(out.c_str(), x, 0); }, 0},
        {"path", "ca.pem", [](const char* x) { return X509_ValidatePath(x, nullptr, 1); }, 0},
        {"nothing", nullptr, [](const char* x) { return X509_CertIsValidNow(x, 0); }, INVALID_DATA_ERROR},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        if (c.content != nullptr) {
            const auto bytes = test::read_file(data(c.content));
            ASSERT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        }
        close(ends[1]);
        EXPECT_EQ(c.call(("/dev/fd/" + std::to_string(ends[0])).c_str()), c.result) << err_text();
        close(ends[0]);
    }
}
#endif

TEST(X509Input, KnowsKindsByTheirPlaces) {
    const std::string algorithm = kAlgorithm, name = kName, key = kKey, end = algorithm + kSignature;
    const std::string time = "170d3230303130313030303030305a";
    const struct {
        const char* what;
        AsnList list;
        const char* kind;
    } cases[] = {
        {"certificate", certificate(), "certificate"},
        {"version 1, serial number 0", object("020100" + algorithm + name + kTimes + name + key, end),
         "certificate"},
        {"no issuer", object("020101" + algorithm + kTimes + name + key, end), ""},
        {"a SET for validity", object("020101" + algorithm + name + "310f" + time + name + key, end), ""},
        {"no BIT STRING outside", object("020101" + algorithm + name + kTimes + name + key, algorithm), ""},
        {"request", object("020100" + name + key + "a000", end), "request"},
        {"request of version 1", object("020101" + name + key + "a000", end), ""},
        {"attribute certificate", object("0201013002a000a000" + algorithm + "020177" + kTimes + "3000", end),
         ""},
        {"CRL", object("020101" + algorithm + name + time, end), ""},
        {"algorithm without OID", object(algorithm + name + time, "30020500" + std::string(kSignature)), ""},
        {"no SEQUENCE", of("020101"), ""},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(c.list) << c.what;
        const asn_Node* head = c.list.head();
        const std::string kind = std::string(x509_is_certificate(head) ? "certificate" : "") +
                                 (x509_is_request(head) ? "request" : "");
        EXPECT_EQ(kind, c.kind) << c.what;
    }
    // What is missing is not taken from elsewhere: the two SEQUENCEs at the end are no subject and no key.
    const AsnList cut = object("020107" + algorithm + name + kTimes, algorithm + kSignature + name + key);
    const CertificateFields fields = certificate_fields(cut.head());
    int version = 0;
    EXPECT_EQ(certificate_version(fields, &version), 0);
    EXPECT_EQ(version, 1);
    EXPECT_TRUE(fields.notAfter != nullptr && fields.issuer != nullptr);
    EXPECT_TRUE(fields.subject == nullptr && fields.subjectPublicKeyInfo == nullptr && !fields.extensions);
    EXPECT_EQ(asn_Encode(issuer_and_serial_number(fields)).size(), 2u + 14 + 3);
    EXPECT_FALSE(issuer_and_serial_number(certificate_fields(nullptr)));
    EXPECT_EQ(validity_state(certificate_fields(nullptr)), BAD_FORMAT_ERROR);
}

TEST(X509Input, ReadsExtensions) {
    const struct {
        const char* what;
        std::string extensions;
        uint32_t usage;
        const char *usageText, *purposes, *rfc822, *uri;
        int rfc822Result = 0, purposesResult = 0;
    } cases[] = {
        {"none", "", 0, "", "", "", ""},
        {"critical", "300e 0603551d0f 0101ff 0404030207 80", 1, "digitalSignature", "", "", ""},
        {"ten bits", "300c 0603551d0f 0405 030306ffc0", 0x3FF,
         "digitalSignature,nonRepudiation,keyEncipherment,dataEncipherment,keyAgreement,keyCertSign,cRLSign,"
         "encipherOnly,decipherOnly",
         "", "", ""},
        {"the first of two", "300b 0603551d0f 0404 03020780 300b 0603551d0f 0404 03020640", 1,
         "digitalSignature", "", "", ""},
        {"no value", "3005 0603551d0f 300b 0603551d0e 0404 03020780", 0, "", "", "", ""},
        {"purposes", "3019 0603551d25 0412 3010 06082b06010505070301 06042a030405", 0, "",
         "serverAuth,1.2.3.4.5", "", ""},
        {"a purpose cut off", "3019 0603551d25 0412 3010 06082b06010505070301 06042a030485", 0, "", "", "",
         "", 0, INVALID_DATA_ERROR},
        {"names", "3014 0603551d11 040d 300b 820162 810161 810163 8000", 0, "", "", "a", ""},
        {"zero byte", "3010 0603551d11 0409 3007 8103610062 8100", 0, "", "", "", "", INVALID_DATA_ERROR},
        {"place", "3015 0603551d1f 040e 300c 300a a008 a006 850161 860162", 0, "", "", "", "b"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const AsnList list = certificate(c.extensions);
        ASSERT_TRUE(list);
        const CertificateFields fields = certificate_fields(list.head());
        char text[kKeyUsageText + 1];
        EXPECT_EQ(key_usage_flags(fields), c.usage);
        EXPECT_EQ(key_usage_text(key_usage_flags(fields), text), strlen(c.usageText));
        EXPECT_STREQ(text, c.usageText);
        SecretBuffer name;
        EXPECT_EQ(extended_key_usage_text(fields, name), c.purposesResult);
        EXPECT_STREQ(name.text(), c.purposes);
        EXPECT_EQ(rfc822_name(fields, name), c.rfc822Result);
        EXPECT_STREQ(name.text(), c.rfc822);
        EXPECT_EQ(crl_distribution_point_uri(fields, name), 0);
        EXPECT_STREQ(name.text(), c.uri);
    }
}
