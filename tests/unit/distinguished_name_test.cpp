#include <chrono>

#include "asn1/byte_stream.h"
#include "frame/debug_output.h"
#include "frame/memory_hooks.h"
#include "support/asn_lists.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

using namespace zul;

static AsnList encode(const char* text, int options = 0) {
    AsnList name;
    name_encode(text, options, name);
    return name;
}

static std::string printed(const asn_Node* name, int options = 0, const char* delimiter = nullptr) {
    SecretBuffer text;
    const int error = name_text(name, delimiter, options, text);
    if (error != 0)
        return std::to_string(error) + " " + err_text();
    EXPECT_EQ(text.text()[text.size()], '\0');
    return std::string(text.text(), text.size());
}

// A Name whose only value is an element given in hex.
static AsnList name_of(const std::string& value, const char* type = "0603550403") {
    return asn_NewSequence(asn_NewSet(asn_NewSequence(test::parse_hex(type + value, true))));
}

TEST(DistinguishedName, ReadsPairs) {
    const struct {
        const char *text, *pairs; // as they are printed
    } cases[] = {
        {nullptr, ""},
        {"no pair;at all", ""},
        {"commonName=Bob", ""},
        {"CN =Bob;C=AU", "C=AU"},
        {";;\t cn= \tA, B ;S=x;sT=y;X=z;e=", "CN=A, B |ST=x|ST=y|E="},
        {"CN=a=b;L;G=c;T=d", "CN=a=b|L=c|T=d"},
        {"CN='Smith\\; Jones'", "CN=Smith; Jones"},
        {"CN='a;b=\\'\\\\' dropped ;DC=c", "CN=a;b='\\|DC=c"},
        {"SN='never; closed\\", "SN=never; closed\\"},
        {"CN=';C='';O='", "CN=;C=|O='"},
        {"CN='';O=", "CN=|O="},
        {"CN=#x4142;O=##x41;OU='#x41';L=#41;T=##41;G=###x41", "CN=AB|O=#x41|OU=#x41|L=#41|T=##41|G=###x41"},
        {"CN=#x;C=#xzz;O=#x7 4142", "O=\aAB"},
    };
    for (const auto& c : cases) {
        AsnList name;
        const int count = name_encode(c.text, 0, name);
        const std::string pairs = c.pairs;
        EXPECT_EQ(printed(name.head(), 0, "|"), pairs) << c.text;
        EXPECT_EQ(count, pairs.empty() ? 0 : 1 + std::count(pairs.begin(), pairs.end(), '|')) << c.text;
    }
}

TEST(DistinguishedName, TracesPairs) {
    testing::internal::CaptureStdout();
    debugOutput.structures = 1;
    encode("x=1; c='A U'");
    debugOutput.structures = 0;
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "attribute=[x]\tvalue=[1]\tidn=-1\nattribute=[c]\tvalue=['A U']\tidn=1\n");
}

TEST(DistinguishedName, ChoosesStringTypes) {
    const struct {
        const char* text;
        int options;
        const char* value;
    } cases[] = {{"CN=Az09 '()+,-./:=?", 0, "13 10 417A303920 2728292B2C2D2E2F3A3D3F"},
                 {"CN=a@b", 0, "16 03 614062"},
                 {"CN=#x417F", 0, "14 02 417F"},
                 {"CN=#x410041", 0, "14 03 410041"},
                 {"CN=A", ZUL_X509_UTF8, "0C 01 41"},
                 {"CN=\xC3\xA9", ZUL_X509_UTF8, "0C 02 C3A9"},
                 {"CN=\xE9t\xE9", ZUL_X509_UTF8, "0C 05 C3A974C3A9"},
                 {"CN=", ZUL_X509_UTF8, "0C 00"},
                 {"CN=#x414", 0, "14 02 0414"}};
    for (const auto& c : cases)
        EXPECT_TRUE(asn_Compare(encode(c.text, c.options).head(), name_of(c.value).head()) == 0) << c.text;
    EXPECT_EQ(test::hex_of(encode("CN=Bob;c=AU")),
              "301b310c300a06035504031303426f62310b3009060355040613024155");
}

TEST(DistinguishedName, ShowsValues) {
    const struct {
        const char* value;
        const char* plain;
        const char* latin1;
    } cases[] = {{"0C03416E6E", "41 6E 6E", "Ann"},
                 {"0C02C3A9", "C3 A9", "\xE9"},
                 {"0C02C480", "C4 80", "C4 80"},
                 {"1E0400410042", "00 41 00 42", "AB"},
                 {"1E020141", "01 41", "01 41"},
                 {"1C0400000041", "00 00 00 41", "A"},
                 {"1303426F62", "Bob", "Bob"},
                 {"0C03410042", "41 00 42", "41 00 42"},
                 {"1E020000", "00 00", "00 00"},
                 {"1E0420AC0061", "20 AC 00 61", "20 AC 00 61"},
                 {"1E03006100", "00 61 00", "00 61 00"},
                 {"140242E9", "B\xE9", "B\xE9"},
                 {"1300", "", ""},
                 {"0203010203", "01 02 03", "01 02 03"},
                 {"2C060C01410C0142", "0C 01 41 0C 01 42", "0C 01 41 0C 01 42"},
                 {"338013014113 01420000", "13 01 41 13 01 42", "13 01 41 13 01 42"}};
    for (const auto& c : cases) {
        const AsnList name = name_of(c.value);
        EXPECT_EQ(printed(name.head()), std::string("CN=") + c.plain) << c.value;
        EXPECT_EQ(printed(name.head(), ZUL_X509_LATIN1), std::string("CN=") + c.latin1) << c.value;
    }
    EXPECT_EQ(printed(name_of("130141", "06032A0304").head()), "1.2.3.4=A");
    EXPECT_EQ(printed(name_of("130141", "06092A864886F70D010101").head()), "rsaEncryption=A");
}

TEST(DistinguishedName, StaysInsideItsElement) {
    const AsnList list =
        asn_NewSequence(asn_LinkList(encode("CN=A"), encode(nullptr), encode("C=B;O=C"), encode("L=D")));
    const asn_Node* second = list.head()->next->next;
    EXPECT_EQ(printed(second), "");
    EXPECT_EQ(printed(second->next), "C=B;O=C");
    EXPECT_EQ(printed(second->next, 0, ", "), "C=B,O=C");
    EXPECT_EQ(printed(second->next, 0, ""), "C=B;O=C");
    char out[9] = "????????";
    int length = 0;
    for (char* room : {static_cast<char*>(nullptr), out}) {
        EXPECT_EQ(name_print(second->next, room, room == nullptr ? 5 : 0, nullptr, 0, &length), 0);
        EXPECT_EQ(length, 7);
    }
    EXPECT_EQ(name_print(second->next, out, 5, nullptr, 0, &length), 0);
    EXPECT_EQ(length, 5);
    EXPECT_STREQ(out, "C=B;O");
    EXPECT_STREQ(out + 6, "??");
    EXPECT_EQ(name_print(list.head(), out, 5, nullptr, 0, &length), BAD_FORMAT_ERROR);
}

TEST(DistinguishedName, RefusesDamage) {
    const char* const whole[] = {"310A 3008 0603550404 130141",
                                 "3114 3008 0603550404 130141 3008 0603550406 130142"};
    const char* const damaged[] = {"310F 3008 0603550404 130141 3003 130141",
                                   "3111 3008 0603550404 130141 3005 0603550403",
                                   "3117 3008 0603550404 130141 300B 0603550403 130141 130142",
                                   "3114 3008 0603550404 130141 3108 0603550403 130141",
                                   "3111 3008 0603550404 130141 3005 0600 130141",
                                   "3114 3008 0603550404 130141 3008 0603550483 130141",
                                   "3114 3008 0603550404 130141 3008 0603558003 130141",
                                   "310A 3008 0603550404 130141 3008 0603550403 130141",
                                   "310A 3008 0603550404 130141 3100",
                                   "310A 3008 0603550404 130141 0500"};
    const auto show = [](const char* relativeNames) {
        const AsnList name = asn_NewSequence(
            test::parse_hex(std::string("310A 3008 0603550403 130141") + relativeNames, true));
        EXPECT_TRUE(name) << relativeNames;
        err_set_text("%s", "");
        return printed(name.head());
    };
    EXPECT_EQ(show(whole[0]), "CN=A;SN=A");
    EXPECT_EQ(show(whole[1]), "CN=A;SN=A;C=B");
    for (const char* relativeNames : damaged)
        EXPECT_EQ(show(relativeNames), "7 Invalid AVA in Distinguished Name 3") << relativeNames;
    EXPECT_EQ(printed(nullptr).substr(0, 2), "7 ");
}
