#include "x509/fields/subject_public_key.h"

#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "asn1/oid.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"

namespace zul {
namespace {

// Certificates come from outside, so keys that are too large to compute with are refused.
constexpr size_t kMaxDsaBits = 16384;

// with_joined_bits gives a SubjectPublicKeyInfo whose BIT STRING is not in segments: info itself, or a copy
// that joined holds.
const asn_Node* with_joined_bits(const asn_Node* info, AsnList& joined) {
    AsnChildren fields(info);
    fields.take_sequence();
    if (!fields.is(kAsnConstructed, kAsnBitString))
        return info;
    joined = asn_ToDer(asn_CopyElement(info));
    return joined.head();
}

const asn_Node* algorithm_of(const asn_Node* info) {
    return AsnChildren(info).take_sequence();
}

// read_number reads an INTEGER of 2 or more that has at most kMaxDsaBits.
bool read_number(const asn_Node* node, BigInt& value) {
    if (!asn_is(node, kAsnUniversal, kAsnInteger) || node->data == nullptr || (node->data[0] & 0x80) != 0)
        return false;
    const uint8_t* bytes = node->data;
    size_t size = node->length;
    for (; size > 1 && *bytes == 0; bytes++)
        size--;
    if (size > kMaxDsaBits / 8)
        return false;
    mtConvFromOctets(value, bytes, size);
    return mtBitLength(value) > 1;
}

// read_public_value reads the y of a DSA key, an INTEGER in the BIT STRING.
bool read_public_value(const asn_Node* bits, BigInt& y) {
    SecretBuffer content;
    if (!asn_GetBitString(bits, content) || bits->data[0] != 0)
        return false;
    ByteStream stream(content.data(), content.size());
    const AsnList inner = asn_Parse(stream, false, true);
    return read_number(inner.head(), y);
}

} // namespace

const char* algorithm_name(const asn_Node* algorithmIdentifier, char out[kAlgorithmName]) {
    const asn_Node* oid = AsnChildren(algorithmIdentifier).take_oid();
    OidInfo info;
    out[0] = '\0';
    if (asn_GetOid(oid, &info) == 0)
        str_copy(out, info.name, kAlgorithmName);
    else
        oid_ToDotted(oid, out, kAlgorithmName - 1);
    return out;
}

PublicKeyType public_key_type(const asn_Node* info) {
    char name[kAlgorithmName];
    public_key_algorithm(info, name);
    if (strcmp(name, "rsaEncryption") == 0)
        return PublicKeyType::rsa;
    return strcmp(name, "dsa") == 0 ? PublicKeyType::dsa : PublicKeyType::other;
}

const char* public_key_algorithm(const asn_Node* info, char out[kAlgorithmName]) {
    return algorithm_name(algorithm_of(info), out);
}

bool rsa_public_key_of(const asn_Node* info, RsaKey& key) {
    AsnList joined;
    info = with_joined_bits(info, joined);
    return public_key_type(info) == PublicKeyType::rsa && rsa_read_subject_public_key_info(info, key);
}

DsaKeyState dsa_public_key_of(const asn_Node* info, DsaPublicKey& key) {
    AsnList joined;
    info = with_joined_bits(info, joined);
    if (public_key_type(info) != PublicKeyType::dsa)
        return DsaKeyState::unusable;
    AsnChildren fields(info);
    AsnChildren algorithm(fields.take_sequence());
    algorithm.take_oid();
    AsnChildren parameters(algorithm.take_sequence());
    const asn_Node* p = parameters.take_integer();
    const asn_Node* q = parameters.take_integer();
    const asn_Node* g = parameters.take_integer();
    if (g == nullptr)
        return DsaKeyState::noParameters;
    const asn_Node* bits = fields.take_if(kAsnUniversal, kAsnBitString);
    if (!read_number(p, key.p) || !read_number(q, key.q) || !read_number(g, key.g) ||
        !read_public_value(bits, key.y))
        return DsaKeyState::unusable;
    key.bits = mtBitLength(key.p);
    const bool usable = mtIsOdd(key.p) && mtIsOdd(key.q) && mtCompare(key.q, key.p) < 0 &&
                        mtCompare(key.g, key.p) < 0 && mtCompare(key.y, key.p) < 0;
    return usable ? DsaKeyState::good : DsaKeyState::unusable;
}

} // namespace zul
