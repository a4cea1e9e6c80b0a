#pragma once
#include <string_view>

#include "rsa/rsa_key.h"

// The names of an RSA key as XML: RSAKeyValue of XML Signature (RFC 3275, 4.4.2.2), with the elements of a
// private key added.
namespace zul {

constexpr std::string_view kXmlPublicRoot = "RSAKeyValue", kXmlPairRoot = "RSAKeyPair";
constexpr std::string_view kXmlEncodingName = "EncodingType", kXmlHexEncoding = "hexBinary",
                           kXmlBase64Encoding = "base64Binary"; // the default, so never written

// The elements in the order of writing, each with the other name that readers accept.
struct XmlElement {
    std::string_view name, alias;
    BigInt RsaKey::*value;
};
constexpr XmlElement kXmlElements[] = {
    {"Modulus", {}, &RsaKey::n},
    {"Exponent", "PublicExponent", &RsaKey::e},
    {"P", {}, &RsaKey::p},
    {"Q", {}, &RsaKey::q},
    {"DP", {}, &RsaKey::dP},
    {"DQ", {}, &RsaKey::dQ},
    {"InverseQ", "QINV", &RsaKey::qInv},
    {"D", "PrivateExponent", &RsaKey::d},
};
enum XmlElementIndex {
    kXmlModulus,
    kXmlExponent,
    kXmlP,
    kXmlQ,
    kXmlDP,
    kXmlDQ,
    kXmlInverseQ,
    kXmlD,
    kXmlElementCount
};
constexpr size_t kXmlPublicElements = 2;

} // namespace zul
