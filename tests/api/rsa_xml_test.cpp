#include "support/module_calls.h"

using test::last_error;

namespace {

std::string from_xml(const std::string& xml) {
    return test::text_of([&](char* out, int room) { return RSA_FromXMLString(out, room, xml.c_str(), 0); });
}
std::string to_xml(const std::string& key, int options) {
    return test::text_of(
        [&](char* out, int room) { return RSA_ToXMLString(out, room, key.c_str(), options); });
}
// replaced changes every place of something.
std::string replaced(std::string text, const std::string& what, const std::string& by) {
    size_t place = text.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    for (; place != std::string::npos; place = text.find(what, place + by.size()))
        text.replace(place, what.size(), by);
    return text;
}

// The element of this name as it stands in the document.
std::string element(const std::string& xml, const std::string& name) {
    const size_t start = xml.find('<' + name), end = xml.find("</" + name + '>');
    return xml.substr(start, end + name.size() + 3 - start);
}
std::string without(const std::string& xml, const std::string& name) {
    return replaced(xml, element(xml, name), "");
}

class RsaXml : public testing::Test {
  protected:
    void SetUp() override {
        const auto vectors = test::read_vectors("rsa/xml.txt");
        ASSERT_EQ(vectors.size(), 1u);
        const test::Vector& v = *vectors.begin();
        publicXml = v.text("Public");
        publicHex = v.text("PublicHex");
        privateXml = v.text("Private");
        privateHex = v.text("PrivateHex");
    }
    std::string publicXml, publicHex, privateXml, privateHex;
};

} // namespace

TEST_F(RsaXml, WritesWhatItReads) {
    const std::string keyValue = replaced(privateXml, "RSAKeyPair", "RSAKeyValue");
    const std::string publicKey = from_xml(publicXml);
    EXPECT_EQ(publicKey.substr(0, 4), "PUBR");
    EXPECT_EQ(from_xml(publicHex).substr(0, 4), "PUBR");
    for (const int options : {0, ZUL_XML_RSAKEYVALUE, ZUL_XML_PUBLIC_ONLY}) {
        EXPECT_EQ(to_xml(publicKey, options), publicXml);
        EXPECT_EQ(to_xml(publicKey, options | ZUL_XML_HEXBINARY), publicHex);
    }
    for (const std::string& xml : {privateXml, privateHex, keyValue}) {
        const std::string key = from_xml(xml);
        EXPECT_EQ(key.substr(0, 4), "PVTR");
        EXPECT_EQ(to_xml(key, 0), privateXml);
        EXPECT_EQ(to_xml(key, ZUL_XML_RSAKEYVALUE), keyValue);
        EXPECT_EQ(to_xml(key, ZUL_XML_HEXBINARY), privateHex);
        EXPECT_EQ(to_xml(key, ZUL_XML_PUBLIC_ONLY), publicXml);
        EXPECT_EQ(to_xml(key, ZUL_XML_PUBLIC_ONLY | ZUL_XML_HEXBINARY | ZUL_XML_RSAKEYVALUE), publicHex);
    }
}

TEST_F(RsaXml, ReadsOtherSpellings) {
    std::string lower = privateHex;
    for (size_t place = 0; (place = lower.find("\">", place)) != std::string::npos;)
        for (place += 2; lower[place] != '<'; place++)
            lower[place] = static_cast<char>(lower[place] | 0x20); // digits have the bit already
    const std::string modulus = element(privateXml, "Modulus"), digits = modulus.substr(9, 88);

    const std::string same[] = {
        without(without(without(privateXml, "DP"), "DQ"), "InverseQ"),
        without(privateHex, "InverseQ"),
        replaced(privateXml, "<DP>", "<DP/><DP>"),
        replaced(privateXml, "InverseQ>", "QINV>"),
        replaced(replaced(privateXml, "Exponent>", "PublicExponent>"), "D>", "PrivateExponent>"),
        replaced(without(privateXml, "D"), "<Modulus>", element(privateXml, "D") + "<Modulus>"),
        replaced(privateXml, "><", ">\r\n\t<"),
        replaced(privateXml, "=", "=\n "),
        "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <RSAKeyPair> -->" + privateXml + "\n",
        replaced(replaced(privateXml, "<", "<ds:"), "<ds:/", "</ds:"),
        replaced(privateXml, digits, "<![CDATA[" + digits + "]]>"),
        replaced(privateXml, "==", "&#61;<!-- = -->&#x3D;"),
        replaced(privateXml, "</RSAKeyPair>", "<Other at='&'><P>AQAB</P><b/>text</Other></RSAKeyPair>"),
        replaced(privateHex, "EncodingType=\"hexBinary\"", "a='' EncodingType = 'hexBinary' "),
        lower,
        replaced(privateHex, ">010001<", ">10001<"),
        replaced(privateHex, ">010001<", ">\n00 01 00 01<"),
        replaced(privateXml, ">AQAB<", ">AAEAAQ==<"),
        replaced(privateXml, ">AQAB<", ">AAEAAQ<"),
        replaced(privateXml, "<Exponent>AQAB<", "<Exponent EncodingType=\"hexBinary\">010001<"),
    };
    for (const std::string& xml : same)
        EXPECT_EQ(to_xml(from_xml(xml), 0), privateXml) << xml;
}

TEST_F(RsaXml, TellsWhatIsWrong) {
    const std::string q = element(privateXml, "Q"), p = element(privateXml, "P");
    const std::string huge(30000, 'A');
    const struct {
        int code;
        const char* text;
        std::vector<std::string> documents;
    } cases[] = {
        {BAD_XML_ERROR,
         "Invalid XML data",
         {"", "RSAKeyValue", privateXml + "x", "<!DOCTYPE RSAKeyPair>" + privateXml,
          replaced(publicXml, ">AQAB<", ">A<"), replaced(publicXml, ">AQAB<", ">AQAB=<"),
          replaced(publicXml, ">AQAB<", ">AQ<b/>AB<"), replaced(publicHex, ">010001<", ">0100G1<"),
          replaced(publicXml, "<Exponent>", "<PublicExponent>AQAB</PublicExponent><Exponent>"),
          replaced(publicXml, ">AQAB<", ">" + huge + "<")}},
        {BAD_XML_ERROR,
         "Cannot find valid RSAKeyValue or RSAKeyPair element",
         {replaced(publicXml, "RSAKeyValue", "KeyValue"), "<KeyValue>" + publicXml + "</KeyValue>"}},
        {BAD_XML_ERROR,
         "Missing <Modulus> element",
         {"<RSAKeyValue/>", without(privateXml, "Modulus"), replaced(publicXml, "Modulus>", "modulus>"),
          "<RSAKeyValue><k>" + element(publicXml, "Modulus") + "</k></RSAKeyValue>"}},
        {BAD_XML_ERROR,
         "Missing <Exponent> element",
         {without(publicXml, "Exponent"), replaced(publicXml, ">AQAB<", "> <")}},
        {BAD_XML_ERROR,
         "Not all private key elements are present",
         {without(privateXml, "D"), without(privateXml, "Q"),
          replaced(publicXml, "<Modulus>", "<DP>AQAB</DP><Modulus>")}},
        {BAD_XML_ERROR,
         "Failed to compute missing CRT values",
         {replaced(without(privateXml, "DP"), p, "<P>AQ==</P>"),
          replaced(without(privateXml, "DQ"), q, "<Q>AA==</Q>"),
          replaced(without(privateXml, "InverseQ"), q, "<Q>" + p.substr(3, 44) + "</Q>"),
          replaced(without(privateXml, "DP"), ">AQAB<", ">AQAA<")}},
        {INVALID_DATA_ERROR,
         "Not an RSA public key",
         {replaced(publicXml, "Q==</M", "A==</M") /* an even modulus */,
          replaced(publicXml, ">AQAB<", ">AA==<")}},
        {INVALID_DATA_ERROR, "Not an RSA private key", {replaced(privateXml, p, "<P>AQAB</P>")}},
    };
    for (const auto& c : cases) {
        for (const std::string& xml : c.documents) {
            EXPECT_FAILURE(RSA_FromXMLString(nullptr, 0, xml.c_str(), 0), -c.code, c.text) << xml;
        }
    }
    EXPECT_EQ(RSA_FromXMLString(nullptr, 0, nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(RSA_ToXMLString(nullptr, 0, nullptr, 0), -BAD_PARAM_ERROR);
    for (const char* key : {"", "PUBR", "no key"}) {
        EXPECT_FAILURE(RSA_ToXMLString(nullptr, 0, key, 0), -INVALID_DATA_ERROR,
                       "Could not extract key from string");
    }
}

TEST_F(RsaXml, WritesNothingIntoTooLittleRoom) {
    const std::string key = from_xml(publicXml);
    const auto keyLength = static_cast<int>(key.size()), xmlLength = static_cast<int>(publicXml.size());
    std::vector<char> room(1000, '#');
    for (const int chars : {1, xmlLength - 1}) {
        EXPECT_EQ(RSA_ToXMLString(room.data(), chars, key.c_str(), 0), xmlLength);
        EXPECT_EQ(RSA_FromXMLString(room.data(), keyLength - 1, publicXml.c_str(), 0), -SHORT_BUF_ERROR);
        EXPECT_EQ(std::string(room.data(), room.size()), std::string(room.size(), '#'));
    }
    EXPECT_EQ(RSA_ToXMLString(room.data(), -1, key.c_str(), 0), xmlLength);
    EXPECT_EQ(RSA_ToXMLString(room.data(), xmlLength, key.c_str(), 0), xmlLength);
    EXPECT_EQ(room.data(), publicXml);
    EXPECT_EQ(room[publicXml.size() + 1], '#');
}
