#include "cert/fields/oid_names.h"
#include "cert/names/name_print.h"
#include "cert/names/string_value.h"
#include "cert/names/subject_names.h"
#include "support/der_view.h"
#include "zulcore.h"

using namespace zul;
using test::element, test::view;

namespace {

std::string attribute(const std::string& oid, const std::string& value) {
    return element(0x30, element(0x06, oid) + value);
}
std::string cn(uint8_t type, const std::string& content) {
    return attribute("\x55\x04\x03", element(type, content));
}
std::string name(const std::vector<std::string>& rdns) {
    std::string all;
    for (const std::string& rdn : rdns)
        all += element(0x31, rdn);
    return element(0x30, all);
}

template<class Put>
std::string put(Put write, const std::string& bytes) {
    TextBuffer out;
    write(out, view(bytes));
    return std::string(out.text());
}
constexpr auto bytes = test::text_from_hex;

} // namespace

TEST(CertNameText, Names) {
    const struct {
        std::string name, text;
    } kCases[] = {
        {name({}), ""},
        {name({attribute("\x55\x04\x06", element(0x13, "AU")),
               attribute("\x55\x04\x0A", element(0x0C, "Zo\xC3\xAB")),
               cn(0x13, "a") + attribute("\x55\x04\x0B", element(0x13, "b"))}),
         "C=AU, O=Zo\xC3\xAB, CN=a+OU=b"},
        // A value cannot look like more attributes or another line, and keeps its ends.
        {name({cn(0x0C, "a, O=b+C=c;\"<>\\")}), R"(CN=a\, O=b\+C=c\;\"\<\>\\)"},
        {name({cn(0x0C, " # ")}), R"(CN=\ #\ )"},
        {name({cn(0x0C, "#")}), R"(CN=\#)"},
        {name({cn(0x0C, " ")}), R"(CN=\ )"},
        {name({cn(0x0C, "")}), "CN="},
        {name({cn(0x0C, std::string("a\r\n\0\x7F", 5))}), R"(CN=a\x0d\x0a\x00\x7f)"},
        {name({cn(0x0C, "\xE2\x80\xA8\xE2\x80\xAE\xC2\x85\xEF\xBB\xBF\xD8\x9C")}),
         R"(CN=\xe2\x80\xa8\xe2\x80\xae\xc2\x85\xef\xbb\xbf\xd8\x9c)"},
        {name({cn(0x0C, "\xF3\xA0\x81\x81")}), R"(CN=\xf3\xa0\x81\x81)"}, // a tag character
        // Bytes that encode no character: overlong, a surrogate, cut off, Latin-1.
        {name({cn(0x0C, "\xC0\xAF\xED\xA0\x80z\xE2\x82")}), R"(CN=\xc0\xaf\xed\xa0\x80z\xe2\x82)"},
        {name({cn(0x13, "Z\xFC")}), R"(CN=Z\xfc)"},
        {name({cn(0x14, "Z\xFC\x85")}), "CN=Z\xC3\xBC\\xc2\\x85"},
        {name({cn(0x1E, bytes("005A00FC20AC D83DDE00"))}), "CN=Z\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {name({cn(0x1E, bytes("000A D83D0041 DE00 41"))}), R"(CN=\x0a\xd8\x3dA\xde\x00\x41)"},
        {name({cn(0x1C, bytes("0000005A 0001F600 0000D800 00110000"))}),
         "CN=Z\xF0\x9F\x98\x80\\x00\\x00\\xd8\\x00\\x00\\x11\\x00\\x00"},
        {name({cn(0x1C, bytes("00000020"))}), R"(CN=\ )"},
        // Unknown types of attributes and of values
        {name({attribute("\x2A\x03", element(0x13, "x")), attribute("\x88\x37", element(0x02, "\x05"))}),
         "1.2.3=x, 2.999=#020105"},
        {bytes("30023100"), "#30023100"}, // an empty RelativeDistinguishedName
        {name({element(0x30, element(0x06, "\x2A"))}), "#3007310530030"
                                                       "6012a"},
        {name({cn(0x13, "a")}) + "x", "#300c310a3008060355040313016178"},
    };
    for (const auto& one : kCases)
        EXPECT_EQ(put(put_name, one.name), one.text);
}

TEST(CertNameText, ObjectIdentifiers) {
    const struct {
        const char *hex, *text;
    } kCases[] = {
        {"550403", "2.5.4.3"},
        {"00", "0.0"},
        {"4F", "1.39"},
        {"50", "2.0"},
        {"8837", "2.999"},
        {"2A864886F70D010101", "1.2.840.113549.1.1.1"},
        // The largest arc of a UUID (X.667), 2^128 - 1; one bit more is not spelled out.
        {"6983FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF7F", "2.25.340282366920938463463374607431768211455"},
        {"6984808080808080808080808080808080808000", "2.25.340282366920938463463374607431768211456"},
        {"6981808080808080808080808080808080808080 00", "#6981808080808080808080808080808080808080"
                                                        "00"},
        {"83DCEB940A", "2.999999930"}, // 80 is taken off a number in digits of a thousand millions
        {"2A80", "#2a80"},
        {"2A8001", "#2a8001"},
        {"", "#"},
    };
    for (const auto& one : kCases)
        EXPECT_EQ(put(put_oid_dotted, bytes(one.hex)), one.text);
    EXPECT_EQ(oid_name(view("\x55\x1D\x13")), "basicConstraints");
    EXPECT_EQ(oid_name(view(bytes("2B06010505070303"))), "codeSigning");
    EXPECT_EQ(oid_name(view("\x55\x1D")), "");
}

TEST(CertNameText, Addresses) {
    const struct {
        const char *hex, *text;
    } kCases[] = {
        // RFC 5952, 4
        {"C0000201", "192.0.2.1"},
        {"20010DB8000000000001000000000001", "2001:db8::1:0:0:1"},
        {"20010DB8000000010001000100010001", "2001:db8:0:1:1:1:1:1"},
        {"00000000000000000000000000000000", "::"},
        {"00000000000000000000000000000001", "::1"},
        {"20010000000000000000000000000000", "2001::"},
        {"ABCD", "#abcd"},
    };
    for (const auto& one : kCases)
        EXPECT_EQ(put(put_ip_address, bytes(one.hex)), one.text);
    EXPECT_EQ(put(put_ip_range, bytes("0A000000FF000000")), "10.0.0.0/8");
    EXPECT_EQ(put(put_ip_range, bytes("0A000000FF00FF00")), "10.0.0.0/255.0.255.0");
    EXPECT_EQ(put(put_ip_range, bytes("0A000000")), "#0a000000");
}

// RFC 9525, 6.3
TEST(SubjectNames, Hosts) {
    const struct {
        std::string presented;
        const char* host;
        bool matches;
    } kCases[] = {
        {"www.example.com", "www.example.com", true},
        {"WWW.Example.COM", "www.example.com", true},
        {"example.com", "www.example.com", false},
        {"*.example.com", "www.example.com", true},
        {"*.EXAMPLE.com", "www.example.com", true},
        {"*.example.com", "example.com", false},
        {"*.example.com", "a.b.example.com", false},
        {"*.example.com", "xn--bcher-kva.example.com", true},
        {"*.com", "example.com", false},
        {"*", "localhost", false},
        {"*.*.example.com", "a.b.example.com", false},
        {"w*.example.com", "www.example.com", false},
        {"*w.example.com", "www.example.com", false},
        {"www.*.com", "www.example.com", false},
        {"xn--*.example.com", "xn--bcher-kva.example.com", false},
        {"localhost", "localhost", true},
        {"www.example.com.", "www.example.com", false},
        {".example.com", "www.example.com", false},
        {"www..example.com", "www..example.com", false},
        {std::string("www.example.com\0.evil.org", 25), "www.example.com", false},
        {"my_host.example.com", "my_host.example.com", false},
        {"-www.example.com", "-www.example.com", false},
        {" www.example.com", "www.example.com", false},
        {"", "", false},
    };
    for (const auto& one : kCases)
        EXPECT_EQ(host_name_matches(one.presented, one.host), one.matches)
            << one.presented << ' ' << one.host;
}

TEST(SubjectNames, References) {
    const std::string sanWithoutMail =
        element(0x82, "www.example.com") + element(0x82, "xn--bcher-kva.example") +
        element(0x87, bytes("C0000201")) + element(0x87, bytes("20010DB8000000000000000000000001")) +
        element(0x87, bytes("0A0000FF000000FF")) + element(0x86, "https://uri.example/");
    const std::string mail = element(0x81, "Joe@Example.com");
    const std::string wideMail =
        element(0xA0, element(0x06, bytes("2B06010505070809")) +
                          element(0xA0, element(0x0C, "j\xC3\xBC@xn--bcher-kva.example")));
    const std::string subject =
        name({cn(0x0C, "first.example"), cn(0x0C, "cn.example"),
              attribute(bytes("2A864886F70D010901"), element(0x16, "old@example.com"))});
    const std::string all = sanWithoutMail + mail + wideMail;
    const struct {
        const std::string& san;
        const char* reference;
        int options, code;
    } kCases[] = {
        {all, "www.example.com", 0, 0},
        {all, "WWW.EXAMPLE.COM.", 0, 0},
        {all, "b\u00FCcher.example", 0, 0},
        {all, "XN--BCHER-KVA.example", 0, 0},
        {all, "other.example.com", 0, NO_MATCH_ERROR},
        {all, "192.0.2.1", 0, 0},
        {all, "192.0.2.2", 0, NO_MATCH_ERROR},
        {all, "::ffff:192.0.2.1", 0, NO_MATCH_ERROR},
        {all, "10.0.0.255", 0, NO_MATCH_ERROR}, // eight octets are no address
        {all, "2001:DB8:0:0::1", 0, 0},
        {all, "[2001:db8::1]", 0, 0},
        {all, "Joe@EXAMPLE.com", 0, 0},
        {all, "joe@example.com", 0, NO_MATCH_ERROR},
        {all, "j\u00FC@B\u00FCcher.example", 0, 0},
        {all, "J\u00FC@b\u00FCcher.example", 0, NO_MATCH_ERROR},
        {all, "uri.example", 0, NO_MATCH_ERROR},
        // The subject counts on demand, where no name of subjectAltName speaks against it.
        {all, "cn.example", ZUL_CERT_SUBJECT_NAME, NO_MATCH_ERROR},
        {mail, "cn.example", 0, NO_MATCH_ERROR},
        {mail, "cn.example", ZUL_CERT_SUBJECT_NAME, 0},
        {mail, "first.example", ZUL_CERT_SUBJECT_NAME, NO_MATCH_ERROR},
        {mail, "old@example.com", ZUL_CERT_SUBJECT_NAME, NO_MATCH_ERROR},
        {sanWithoutMail, "old@example.com", 0, NO_MATCH_ERROR},
        {sanWithoutMail, "old@example.com", ZUL_CERT_SUBJECT_NAME, 0},
        {all, "", 0, BAD_PARAM_ERROR},
        {all, "*.example.com", 0, BAD_PARAM_ERROR},
        {all, "my_host", 0, BAD_PARAM_ERROR},
        {all, "1.2.3.256", 0, BAD_PARAM_ERROR},
        {all, "1.2.3", 0, BAD_PARAM_ERROR},
        {all, "[192.0.2.1]", 0, BAD_PARAM_ERROR},
        {all, "2001:db8:::1", 0, BAD_PARAM_ERROR},
        {all, "a@b@", 0, BAD_PARAM_ERROR},
        {all, "www.example.com\n", 0, BAD_PARAM_ERROR},
    };
    for (const auto& one : kCases) {
        CertificateView certificate;
        CertExtensions extensions;
        certificate.subject = view(subject);
        extensions.subjectAltName = view(one.san);
        EXPECT_EQ(check_subject_name(certificate, extensions, one.reference, one.options), one.code)
            << one.reference;
    }
}
