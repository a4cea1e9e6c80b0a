// Reads keys: RFC 5958, 5280, 5480, 5915, 8410, 4055.
#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "key/key_check.h"
#include "key/key_der.h"
#include "key/key_oids.h"
#include "key/pss_rules.h"
#include "rsa/rsa_der.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int bad_format(const char* what) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid %s", what);
}

bool is_version(const asn_Node* node, uint8_t version) {
    return asn_is(node, kAsnUniversal, kAsnInteger) && node->length == 1 && node->data[0] == version;
}

// read_curve takes the OBJECT IDENTIFIER of a curve: nothing else names one (RFC 5480, 2.1.1).
[[nodiscard]] int read_curve(Key& key, const asn_Node* node) {
    for (const KeyKind kind : {KeyKind::p256, KeyKind::p384, KeyKind::p521}) {
        if (oid_is(node, key_kind_info(kind).oid)) {
            key.kind = kind;
            return 0;
        }
    }
    return err_fail(NOT_SUPPORTED_ERROR,
                    "Elliptic curve not supported (known: p-256, p-384, p-521, by name)");
}

// read_algorithm sets the kind, and the rules of an RSA-PSS key.
[[nodiscard]] int read_algorithm(Key& key, const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    const asn_Node* parameters = children.take();
    if (oid == nullptr || !children.at_end())
        return bad_format("algorithm identifier of a key");
    if (oid_is(oid, kOidEcPublicKey))
        return read_curve(key, parameters);
    for (const KeyKind kind : {KeyKind::rsa, KeyKind::rsaPss, KeyKind::ed25519, KeyKind::x25519}) {
        if (!oid_is(oid, key_kind_info(kind).oid))
            continue;
        key.kind = kind;
        if (kind == KeyKind::rsaPss)
            return pss_rules_read(key.pss, parameters);
        const bool mayBeNull = kind == KeyKind::rsa && asn_is(parameters, kAsnUniversal, kAsnNull);
        return parameters == nullptr || mayBeNull ? 0 : bad_format("parameters of a key's algorithm");
    }
    return err_fail(NOT_SUPPORTED_ERROR,
                    "Key algorithm not supported (known: RSA, RSASSA-PSS, EC, Ed25519, X25519)");
}

// read_point takes the bytes of a public key that is not RSA's.
[[nodiscard]] int read_point(Key& key, const uint8_t* bytes, size_t size) {
    const size_t publicBytes = key_kind_info(key.kind).publicBytes;
    bool isGood = size == publicBytes;
    if (key.is_ec()) {
        const EcOperations& curve = ec_operations(key.curve());
        const uint8_t form = size > 0 ? bytes[0] : 0;
        if (form == 4 && size == 1 + publicBytes) {
            memcpy(key.point, bytes + 1, publicBytes);
            isGood = key_public_is_valid(key);
        } else {
            isGood = (form == 2 || form == 3) && size == 1 + curve.bytes &&
                     curve.decompress(key.point, bytes + 1, form == 3);
        }
    } else if (isGood) {
        memcpy(key.point, bytes, size);
        isGood = key_public_is_valid(key);
    }
    return isGood ? 0 : err_fail(BAD_KEY_ERROR, "Not a valid public key of %s", key_kind_info(key.kind).name);
}

[[nodiscard]] int finish_rsa(const Key& key, RsaStructure structure) {
    switch (structure) {
    case RsaStructure::good:
        break;
    case RsaStructure::malformed:
        return bad_format(key.isPrivate ? "RSAPrivateKey" : "RSAPublicKey");
    case RsaStructure::otherPrimes:
        return err_fail(NOT_SUPPORTED_ERROR, "RSA keys of more than two primes are not supported");
    case RsaStructure::unusable:
        return err_fail(BAD_KEY_ERROR, "The values are no RSA key's, or too large");
    }
    return key_check_exponent(key);
}

[[nodiscard]] int read_rsa_public(Key& key, const asn_Node* list) {
    key.isPrivate = false;
    return finish_rsa(key, rsa_read_public_exactly(list, key.rsa.emplace()));
}

// read_public_bits takes the content of the BIT STRING, of whole bytes.
[[nodiscard]] int read_public_bits(Key& key, const uint8_t* content, size_t size) {
    if (size < 2 || content[0] != 0)
        return bad_format("bit string of a public key");
    if (!key.is_rsa())
        return read_point(key, content + 1, size - 1);
    AsnList list;
    return key_parse(content + 1, size - 1, list) ? read_rsa_public(key, list.head())
                                                  : bad_format("RSAPublicKey");
}

[[nodiscard]] int read_bit_string(Key& key, const asn_Node* bits) {
    return bits->data == nullptr ? bad_format("bit string of a public key")
                                 : read_public_bits(key, bits->data, bits->length);
}

[[nodiscard]] int read_public_info(Key& key, const asn_Node* info) {
    // What is signed has one encoding.
    if (!asn_IsDer(info, asn_ElementEnd(info)))
        return bad_format("SubjectPublicKeyInfo: not DER");
    AsnChildren children = AsnChildren::of_sequence(info);
    const asn_Node* algorithm = children.take_sequence();
    const asn_Node* bits = children.take_if(kAsnUniversal, kAsnBitString);
    if (algorithm == nullptr || bits == nullptr || !children.at_end())
        return bad_format("SubjectPublicKeyInfo");
    key.isPrivate = false;
    const int error = read_algorithm(key, algorithm);
    return error != 0 ? error : read_bit_string(key, bits);
}

// finish_private computes the public key, and compares it with the one that the structure has, of whose bit
// string content is what is given.
[[nodiscard]] int finish_private(Key& key, const uint8_t* bits, size_t bitsLen) {
    key.isPrivate = true;
    if (key.is_ec() && !ec_operations(key.curve()).scalar_is_valid(key.secret.data()))
        return err_fail(BAD_KEY_ERROR, "Not a valid private key of %s", key_kind_info(key.kind).name);
    Key given;
    given.kind = key.kind;
    if (bits != nullptr)
        if (const int error = read_public_bits(given, bits, bitsLen))
            return error;
    if (!key.is_rsa())
        key_make_public(key);
    if (bits != nullptr && !key_same_public(key, given))
        return err_fail(BAD_KEY_ERROR, "The private key does not belong to the public key beside it");
    return 0;
}

// read_ec_private reads ECPrivateKey. Its kind is known if the structure around it names the curve.
[[nodiscard]] int read_ec_private(Key& key, const asn_Node* list, bool knowsCurve) {
    AsnChildren children = AsnChildren::of_sequence(list);
    const bool isVersion1 = is_version(children.take_integer(), 1);
    const asn_Node* octets = children.take_if(kAsnUniversal, kAsnOctetString);
    AsnChildren curve(children.take_if(kAsnExplicit, 0));
    AsnChildren publicKey(children.take_if(kAsnExplicit, 1));
    if (!isVersion1 || octets == nullptr || octets->length == 0 || !children.at_end())
        return bad_format("ECPrivateKey");
    if (!curve.at_end()) {
        const KeyKind outer = key.kind;
        if (const int error = read_curve(key, curve.take()))
            return error;
        if (!curve.at_end() || (knowsCurve && key.kind != outer))
            return bad_format("curve of an ECPrivateKey");
    } else if (!knowsCurve) {
        return bad_format("ECPrivateKey: it names no curve");
    }
    // Writers that drop leading zeros, or add one as for an INTEGER, are common.
    const size_t size = key_kind_info(key.kind).secretBytes;
    size_t given = octets->length;
    while (given > size && octets->data[octets->length - given] == 0)
        given--;
    if (given > size)
        return bad_format("private value of an ECPrivateKey");
    memcpy(key.secret.data() + size - given, octets->data + octets->length - given, given);
    const asn_Node* bits = publicKey.take_if(kAsnUniversal, kAsnBitString);
    if (!publicKey.at_end() || (bits != nullptr && bits->data == nullptr))
        return bad_format("public key of an ECPrivateKey");
    return finish_private(key, bits == nullptr ? nullptr : bits->data, bits == nullptr ? 0 : bits->length);
}

[[nodiscard]] int read_rsa_private(Key& key, const asn_Node* list) {
    key.isPrivate = true;
    return finish_rsa(key, rsa_read_private_exactly(list, key.rsa.emplace()));
}

// The content of the OCTET STRING; *bits those of the public key beside it, or null.
[[nodiscard]] int read_private_value(Key& key, const SecretBuffer& content, const asn_Node* bits) {
    const uint8_t* const bitBytes = bits == nullptr ? nullptr : bits->data;
    const size_t bitCount = bits == nullptr ? 0 : bits->length;
    if (!key.is_rsa() && !key.is_ec()) {
        const size_t size = key_kind_info(key.kind).secretBytes;
        if (content.size() != 2 + size || content[0] != kAsnOctetString || content[1] != size)
            return bad_format("CurvePrivateKey");
        memcpy(key.secret.data(), content.data() + 2, size);
        return finish_private(key, bitBytes, bitCount);
    }
    AsnList list;
    if (!key_parse(content.data(), content.size(), list))
        return bad_format("private key in a PrivateKeyInfo");
    if (const int error =
            key.is_rsa() ? read_rsa_private(key, list.head()) : read_ec_private(key, list.head(), true))
        return error;
    return bits == nullptr ? 0 : finish_private(key, bitBytes, bitCount);
}

// read_private_info reads PrivateKeyInfo and OneAsymmetricKey: a public key makes version 1 (called v2).
[[nodiscard]] int read_private_info(Key& key, const asn_Node* info) {
    AsnChildren children(info);
    const asn_Node* version = children.take_integer();
    const asn_Node* algorithm = children.take_sequence();
    SecretBuffer content;
    if (algorithm == nullptr || !asn_GetOctets(children.take_octets(), content))
        return bad_format("PrivateKeyInfo");
    children.take_if(kAsnExplicit, 0); // attributes
    const asn_Node* publicKey = children.take_if(kAsnContext, 1);
    if (publicKey == nullptr && children.is(kAsnExplicit, 1)) { // some writers tag it so
        AsnChildren inside(children.take());
        publicKey = inside.take_if(kAsnUniversal, kAsnBitString);
        if (publicKey == nullptr || !inside.at_end())
            return bad_format("public key of a PrivateKeyInfo");
    }
    const bool hasVersion = is_version(version, 0) || is_version(version, 1);
    if (!hasVersion || !children.at_end() ||
        (publicKey != nullptr && (publicKey->data == nullptr || is_version(version, 0))))
        return bad_format("PrivateKeyInfo");
    const int error = read_algorithm(key, algorithm);
    return error != 0 ? error : read_private_value(key, content, publicKey);
}

// The public key of a certificate or a request.
[[nodiscard]] int read_signed_object(Key& key, const asn_Node* list) {
    AsnChildren fields(AsnChildren(list).take_sequence());
    const bool isTagged = fields.take_if(kAsnExplicit, 0) != nullptr;
    fields.take_integer();
    const asn_Node* at = fields.take_sequence(); // a request's subject, a certificate's signature algorithm
    const bool isCertificate = isTagged || (AsnChildren(at).take_oid() != nullptr);
    for (int i = 0; isCertificate && i < 3; i++) // issuer, validity, subject
        at = fields.take_sequence();
    const asn_Node* info = at == nullptr ? nullptr : fields.take_sequence();
    return info == nullptr ? bad_format("key: neither a key nor a certificate or a request")
                           : read_public_info(key, info);
}

} // namespace

bool key_parse(const uint8_t* bytes, size_t size, AsnList& list) {
    if (size == 0)
        return false;
    ByteStream stream(bytes, size);
    list = asn_Parse(stream, false);
    return asn_is(list.head(), kAsnConstructed, kAsnSequence) && stream.at_end();
}

KeyShape key_shape(const asn_Node* list) {
    AsnChildren children = AsnChildren::of_sequence(list);
    if (children.take_integer() != nullptr) {
        if (children.take_sequence() != nullptr)
            return KeyShape::privateInfo;
        if (children.take_octets() != nullptr)
            return KeyShape::ecPrivate;
        if (children.take_integer() == nullptr)
            return KeyShape::none;
        return children.at_end() ? KeyShape::rsaPublic : KeyShape::rsaPrivate;
    }
    if (children.take_sequence() == nullptr)
        return KeyShape::none;
    if (children.take_octets() != nullptr)
        return KeyShape::encrypted;
    if (children.is(kAsnUniversal, kAsnBitString))
        return KeyShape::publicInfo;
    return children.take_sequence() != nullptr ? KeyShape::signedObject : KeyShape::none;
}

int key_read_structure(const asn_Node* list, Key& key) {
    switch (key_shape(list)) {
    case KeyShape::publicInfo:
        return read_public_info(key, list);
    case KeyShape::privateInfo:
        return read_private_info(key, list);
    case KeyShape::rsaPrivate:
        key.kind = KeyKind::rsa;
        return read_rsa_private(key, list);
    case KeyShape::rsaPublic:
        key.kind = KeyKind::rsa;
        return read_rsa_public(key, list);
    case KeyShape::ecPrivate:
        return read_ec_private(key, list, false);
    case KeyShape::signedObject:
        return read_signed_object(key, list);
    case KeyShape::encrypted:
    case KeyShape::none:
        break;
    }
    return err_fail(BAD_FORMAT_ERROR, "Not a key, a certificate or a request");
}

} // namespace zul
