#include <sstream>

#include "asn1/asn_encode.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "asn1/oid_dotted.h"
#include "cert/make/description.h"
#include "cert/make/name_values.h"
#include "cert/make/time_value.h"
#include "cert/names/domain_name.h"
#include "cert/names/name_check.h"
#include "frame/err.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

static std::string ascii_of(const std::string& name, DomainForm form = DomainForm::wildcard) {
    SecretBuffer ascii;
    return domain_to_ascii(ascii, name, form) == 0 ? std::string(ascii.text(), ascii.size()) : "";
}

// The forms are those that Python's codec "punycode" writes.
TEST(CertNames, DomainsBecomeAscii) {
    const struct {
        const char *name, *ascii;
    } rows[] = {{"WWW.Example.com", "www.example.com"},
                {"*.example.com", "*.example.com"},
                {"localhost", "localhost"},
                {"b\u00FCcher.example", "xn--bcher-kva.example"},
                {"fa\u00DF.l\u00B7l.example", "xn--fa-hia.xn--ll-0ea.example"},
                {"\u4ED6\u4EEC\u4E3A\u4EC0\u4E48\u4E0D\u8BF4\u4E2D\u6587", "xn--ihqwcrb4cv8a8dqg056pqjye"},
                {"3\u5E74b\u7D44\u91D1\u516B\u5148\u751F", "xn--3b-ww4c5e180e575a65lsy2b"},
                {"\u0265\u0308.example", "xn--4na04a.example"}, // a letter that has no form with this mark
                {"XN--BCHER-KVA.example", "xn--bcher-kva.example"}};
    for (const auto& row : rows)
        EXPECT_EQ(ascii_of(row.name), row.ascii) << err_text();
    const std::string label(63, 'a');
    EXPECT_EQ(ascii_of(label + "." + label + "." + label + "." + label.substr(2)).size(), 253u);
    std::istringstream refused(
        ". a..b example.com. -a.b a-.b a_b.c a*.b a.*.b * ab--c.d 1.2.3.4 a.1 xn--a.b "
        "xn--abc-.d xn--BCHER-9999.b B\u00DCCHER.b \u00C4.b \u0100.b \u0139.b u\u0308.b "
        "\u0308u.b a\u00B7b.c \u2603.b \xFC.b \xC0\xAF.b \xED\xA0\x80.b b\u00FC\u3002c "
        "xn--a-ecp.b");
    for (std::string name; refused >> name;)
        EXPECT_EQ(ascii_of(name), "") << name;
    for (const std::string& name : {std::string(), std::string("b\u00FC cher"), label + "a.b",
                                    label + "." + label + "." + label + "." + label.substr(1),
                                    label.substr(1) + "\u00FC.b", "\u00FC" + label + ".b"})
        EXPECT_EQ(ascii_of(name), "") << name;
    EXPECT_EQ(ascii_of("*.example.com", DomainForm::name), "");
}

static std::string general_name(const std::string& text, int (*make)(AsnList&, std::string_view)) {
    AsnList name;
    if (make(name, text) != 0)
        return "";
    const SecretBuffer der = asn_Encode(name);
    return test::to_hex(der.data(), der.size());
}

// As openssl writes them (-addext subjectAltName, nameConstraints).
TEST(CertNames, GeneralNamesAndConstraints) {
    const struct {
        const char *text, *der;
    } names[] = {{"ip:192.0.2.255", "8704c00002ff"},
                 {"ip:2001:DB8::1", "871020010db8000000000000000000000001"},
                 {"ip:::", "871000000000000000000000000000000000"},
                 {"ip:1:2:3:4:5:6:7::", "871000010002000300040005000600070000"},
                 {"ip:::ffff:192.0.2.1", "871000000000000000000000ffffc0000201"},
                 {"email:a.b@B\u00FCcher.example", "8119612e6240786e2d2d62636865722d6b76612e6578616d706c65"},
                 {"email:\u00FC@b.c", "a01406082b06010505070809a0080c06c3bc40622e63"},
                 {"rid:1.2.840.113549", "88062a864886f70d"},
                 {"dirName:C=de;CN=a", "a41b3019310b3009060355040613024445310a300806035504030c0161"},
                 {"other:1.2.3:0101ff", "a00906022a03a0030101ff"},
                 {"upn:u@b.c", "a015060a2b060104018237140203a0070c057540622e63"},
                 {"http://[2001:db8::1]:80/a%20b", "861d687474703a"},
                 {"ldap:///CN=x?y", "860e6c6461703a2f2f2f434e3d783f79"}};
    for (const auto& row : names) {
        const std::string der = general_name(row.text, general_name_read);
        EXPECT_EQ(der.find(row.der), 0u) << row.text << " " << der;
    }
    std::istringstream refused(
        "ip:1.2.3 ip:1.2.3.04 ip:1.2.3.256 ip:1::2::3 ip:1:2:3:4:5:6:7:8:9 ip:1:2:3:4:5:6:7 "
        "ip::1:2:3:4:5:6:7:8 ip:12345:: ip:fe80::1%1 ip:::1.2.3 ip:1:2:3:4:5:6:7::8 "
        "email:a email:a@ email:.a@b email:a..b@c email:a.@b email:a\xC2\x85z@b "
        "email:a\xFFz@b rid:3.1 rid:1.40 rid:1.02 dirName:x=y dirName:; other:1.2:31 "
        "other:1.2:3000ff uri:/a uri:http: http:// http://a/%zz http://a:b/ http://u@/ "
        "upn:\xFF");
    for (std::string text; refused >> text;)
        EXPECT_EQ(general_name(text, general_name_read), "") << text;
    for (const char* text : {"email:a b@c", "http://a b"})
        EXPECT_EQ(general_name(text, general_name_read), "") << text;
    const auto permit = [](AsnList& base, std::string_view text) {
        return name_constraint_make(base, text, false);
    };
    const auto exclude = [](AsnList& base, std::string_view text) {
        return name_constraint_make(base, text, true);
    };
    EXPECT_EQ(general_name("ip:10.128.0.0/9", permit), "87080a800000ff800000");
    EXPECT_EQ(general_name("ip:10.0.0.0/255.254.0.0", permit), "87080a000000fffe0000");
    EXPECT_EQ(general_name("ip:::/0", permit), "8720" + std::string(64, '0'));
    EXPECT_EQ(general_name("email:.Example", permit), "81082e6578616d706c65");
    EXPECT_EQ(general_name("dns:", exclude), "8200");
    for (const char* text :
         {"dns:", "dns:.a", "dns:*.a", "ip:10.0.0.1", "ip:10.0.0.1/8", "ip:10.0.0.0/33", "ip:10.0.0.0/",
          "ip:10.0.0.0/255.0.255.0", "ip:192.0.0.0/1", "ip:0.0.0.0/1.0.0.0", "ip:10.0.0.0/::", "a.b",
          "uri:http://a", "email:\u00FC@a", "upn:a"})
        EXPECT_EQ(general_name(text, permit), "") << text;
}

namespace {

struct Taken {
    std::string all;
};

int take(Taken& taken, const DescriptionItem& item) {
    taken.all += std::string(item.keyword) + "[" + std::string(item.value) + (item.isSet ? "]" : "!]");
    return item.value == "bad" ? err_fail(BAD_PARAM_ERROR, "Bad") : 0;
}

} // namespace

TEST(CertNames, Descriptions) {
    static constexpr DescriptionRow<Taken> kRows[] = {{{"one", DescriptionForm::text, false}, take},
                                                      {{"list", DescriptionForm::list, true}, take},
                                                      {{"flag", DescriptionForm::flag, false}, take}};
    const struct {
        const char *text, *taken, *error;
    } rows[] = {
        {"", "", ""},
        {" ;\n one = a, b ;", "one[a, b]", ""},
        {"LIST=a, b,'c;\\'d','e';list=f=g", "LIST[a]LIST[b]LIST[c;'d]LIST[e]list[f=g]", ""},
        {"one=O'Neill;flag", "one[O'Neill]flag[]", ""},
        {"flag = FALSE", "flag[!]", ""},
        {"one=a;one=b", "one[a]", "Given twice; in 'one'"},
        {"list=a,;flag", "list[a]", "An empty value; in 'list'"},
        {"one=''", "", "An empty value; in 'one'"},
        {"one='a", "", "A closing quote is missing; in 'one=a'"},
        {"one='a'b", "", "Something stands behind the closing quote; in 'one=a'"},
        {"one='a','b'", "", "Something stands behind the closing quote; in 'one=a'"},
        {"one", "", "The value is missing; in 'one'"},
        {"flag=1", "", "A flag stands alone, or is true or false; in 'flag=1'"},
        {"=a", "", "A keyword is missing; in ''"},
        {"two=a", "", "Unknown keyword; in 'two=a'"},
        {"two", "", "Unknown keyword, or one that needs a value; in 'two'"},
        {"list=a,bad,b", "list[a]list[bad]", "Bad; in 'list=bad'"},
    };
    for (const auto& row : rows) {
        err_clear();
        Taken taken;
        EXPECT_EQ(description_read(row.text, kRows, taken), *row.error == '\0' ? 0 : BAD_PARAM_ERROR)
            << row.text;
        EXPECT_EQ(taken.all, row.taken);
        EXPECT_STREQ(err_text(), row.error);
    }
}

TEST(CertNames, SpansOfTime) {
    const struct {
        const char *from, *span, *to;
    } rows[] = {{"2023-12-31T23:00:01", "2h", "2024-01-01T01:00:01Z"},
                {"2024-01-31", "1m", "2024-02-29T00:00:00Z"},
                {"2024-02-29", "1y", "2025-02-28T00:00:00Z"},
                {"2024-02-29", "366D", "2025-03-01T00:00:00Z"},
                {"1999-12-31", "1w", "2000-01-07T00:00:00Z"},
                {"9999-12-01", "30d", "9999-12-31T00:00:00Z"},
                {"9999-12-01", "31d", ""},
                {"2024-01-01", "99999999y", ""},
                {"2024-01-01", "99999999w", ""}};
    for (const auto& row : rows) {
        tm time;
        TimeSpan span;
        ASSERT_EQ(time_value_read(time, row.from, "00:00:00") + time_span_read(span, row.span), 0);
        char text[kAsnTimeText] = "";
        if (time_add(time, span) == 0)
            asn_format_time(time, text);
        EXPECT_STREQ(text, row.to) << row.from << row.span;
    }
    TimeSpan span;
    for (const char* text : {"", "0d", "d", "1", "1dd", "-1d", "100000000d", "1s"})
        EXPECT_NE(time_span_read(span, text), 0) << text;
}

TEST(CertNames, DottedIdentifiers) {
    const struct {
        const char *text, *octets;
    } rows[] = {{"0.0", "00"},
                {"1.39", "4f"},
                {"2.999.3", "883703"}, // X.690, 8.19.5
                {"1.2.840.113549.1.1.11", "2a864886f70d01010b"},
                {"2.25.329800735698586629295641978511506172918", "6983f09da7ebcfdee0c7a1a7b2c0948cc8f9d776"}};
    for (const auto& row : rows) {
        const AsnList identifier = oid_from_dotted(row.text);
        ASSERT_TRUE(identifier) << row.text;
        EXPECT_EQ(test::to_hex(identifier.head()->data, identifier.head()->length), row.octets);
    }
    for (const char* text : {"", "1", "1.", "3.1", "1.40", "0.39.", "1..2", "1.2.03", "1.2.a", "1.2 "})
        EXPECT_FALSE(oid_from_dotted(text)) << text;
    EXPECT_FALSE(oid_from_dotted("1.2." + std::string(150, '9')));
}

TEST(CertNames, EncodedNamesAreChecked) {
    const struct {
        const char *rdn, *what; // what: a part of the text, null if the RDN is good
    } rows[] = {{"300806035504031301613008060355040a130161", nullptr},
                {"3008060355040a13016130080603550403130161", "order of DER"},
                {"3008060355040313016130080603550403130162", "twice"},
                {"300b06035504031e04d83dde00", nullptr}, // two surrogates
                {"300906035504031e02d800", "not encoded"},
                {"300b06035504031c0400110000", "not encoded"},
                {"30080603550403130140", "lacks"}, // @ is no character of a PrintableString
                {"3007060355040a1300", "is empty"},
                {"300a06035504061303414243", "longer"}, // a country of three letters
                {"3009060355040303020100", "no string"},
                {"3008060355040a0c0107", "control"},
                {"3000", "no type and value"},
                {"0500", "SET of attributes"}};
    for (const auto& row : rows) {
        const Bytes rdn = test::from_hex(row.rdn);
        Bytes name = {0x30, static_cast<uint8_t>(rdn.size() + 2), 0x31, static_cast<uint8_t>(rdn.size())};
        name.insert(name.end(), rdn.begin(), rdn.end());
        err_clear();
        EXPECT_EQ(name_check({name.data(), name.size()}), row.what == nullptr ? 0 : BAD_FORMAT_ERROR)
            << row.rdn;
        EXPECT_NE(std::string(err_text()).find(row.what == nullptr ? "" : row.what), std::string::npos);
    }
    for (const char* name : {"", "0500", "30020500", "3100"}) {
        const Bytes bytes = test::from_hex(name);
        EXPECT_EQ(name_check({bytes.data(), bytes.size()}), BAD_FORMAT_ERROR) << name;
    }
}
