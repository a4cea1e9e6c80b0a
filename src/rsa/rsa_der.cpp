#include "rsa/rsa_der.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "frame/err.h"
#include "frame/memory.h"

namespace zul {
namespace {

constexpr char kRsaEncryption[] = "rsaEncryption";
constexpr size_t kMaxValueBytes = kMaxRsaBits / 8;
constexpr size_t kMaxShortExponent = 64, kMaxBitsWithLongExponent = 4096;

AsnList integer(const BigInt& value) {
    SecretBuffer bytes(mtConvToOctets(value, nullptr, 0));
    mtConvToOctets(value, bytes.data(), bytes.size());
    return asn_NewIntegerBytes(bytes.data(), bytes.size());
}

AsnList rsa_algorithm() {
    return asn_NewSequence(asn_LinkList(asn_NewOid(kRsaEncryption), asn_NewNull()));
}

// read_integer reads an INTEGER as an unsigned number, since old encoders left out the 00 byte before a first
// byte of 80 or more. It refuses one too long to compute with.
bool read_integer(DerView bytes, BigInt& value) {
    if (bytes.empty())
        return false;
    while (bytes.size > 1 && bytes[0] == 0)
        bytes = {bytes.data + 1, bytes.size - 1};
    if (bytes.size > kMaxValueBytes)
        return false;
    mtConvFromOctets(value, bytes.data, bytes.size);
    return true;
}

bool read_integer(const asn_Node* node, BigInt& value) {
    return node->data != nullptr && read_integer(DerView(node->data, node->length), value);
}

// read_integers reads a SEQUENCE of as many INTEGERs as wanted, in DER and with nothing else.
template<size_t N>
bool read_integers(DerView der, BigInt* const (&values)[N]) {
    DerReader outer(der);
    DerView sequence, integer;
    if (!outer.take(kDerSequence, sequence) || !outer.at_end())
        return false;
    DerReader inner(sequence);
    for (BigInt* value : values)
        if (!inner.take(kDerInteger, integer) || !read_integer(integer, *value))
            return false;
    return inner.at_end();
}

// read_integers reads the INTEGERs directly under a SEQUENCE, which has to have as many as wanted and no
// more. Elements of other types are passed over.
template<size_t N>
bool read_integers(const asn_Node* list, BigInt* const (&values)[N]) {
    AsnChildren children = AsnChildren::of_sequence(list);
    size_t count = 0;
    for (; !children.at_end(); children.take()) {
        if (!children.is(kAsnUniversal, kAsnInteger))
            continue;
        if (count == N || !read_integer(children.peek(), *values[count]))
            return false;
        count++;
    }
    return count == N;
}

// is_minimal tells whether an INTEGER has the form of DER.
bool is_minimal(const asn_Node* node) {
    const uint8_t first = node->data[0];
    return node->length == 1 || (first != 0 && first != 0xFF) || (first ^ node->data[1]) >= 0x80;
}

// read_integers_only reads a SEQUENCE of as many INTEGERs as wanted and nothing else.
template<size_t N>
RsaStructure read_integers_only(const asn_Node* list, BigInt* const (&values)[N], bool isDer) {
    AsnChildren children = AsnChildren::of_sequence(list);
    const asn_Node* nodes[N];
    for (const asn_Node*& node : nodes) {
        node = children.take_integer();
        if (node == nullptr || node->data == nullptr || (isDer && !is_minimal(node)))
            return RsaStructure::malformed;
    }
    if (!children.at_end())
        return RsaStructure::malformed;
    for (size_t i = 0; i < N; i++)
        if ((isDer && nodes[i]->data[0] >= 0x80) || !read_integer(nodes[i], *values[i]))
            return RsaStructure::unusable;
    return RsaStructure::good;
}

bool is_rsa_algorithm(const asn_Node* algorithm) {
    OidInfo info;
    if (asn_GetOid(AsnChildren(algorithm).take_oid(), &info) == 0 && strcmp(info.name, kRsaEncryption) == 0)
        return true;
    err_add_text("Algorithm must be %s", kRsaEncryption);
    return false;
}

// is_in_range tells whether a is from 1 to below the limit.
bool is_in_range(const BigInt& a, const BigInt& limit) {
    return mtBitLength(a) > 0 && mtCompare(a, limit) < 0;
}

// With the ranges of dP and dQ, p and q are above 1.
bool has_usable_primes(const RsaKey& key) {
    if (!mtIsOdd(key.p) || !mtIsOdd(key.q))
        return false;
    BigInt product;
    mtMultiply(product, key.p, key.q);
    if (mtIsEqual(product, key.n) == 0 || !is_in_range(key.dP, key.p) || !is_in_range(key.dQ, key.q) ||
        !is_in_range(key.qInv, key.p))
        return false;
    mtMultiply(product, key.qInv, key.q);
    BigInt rest;
    mtModulo(rest, product, key.p);
    return mtShortCmp(rest, 1) == 0;
}

bool take_public(RsaKey& key) {
    key.flags = 0;
    key.bits = mtBitLength(key.n);
    if (!rsa_values_usable(key))
        return false;
    key.flags = kRsaPublic;
    return true;
}

bool take_private(RsaKey& key) {
    key.flags = kRsaPublic | kRsaPrivate | kRsaCrt;
    key.bits = mtBitLength(key.n);
    if (rsa_values_usable(key))
        return true;
    key.flags = 0;
    return false;
}

} // namespace

bool rsa_values_usable(const RsaKey& key) {
    if (!mtIsOdd(key.n) || key.bits != mtBitLength(key.n) || key.bits > kMaxRsaBits ||
        !is_in_range(key.e, key.n))
        return false;
    const bool isLongExponent = mtBitLength(key.e) > kMaxShortExponent;
    if ((key.flags & kRsaPrivate) == 0) {
        if (isLongExponent && key.bits > kMaxBitsWithLongExponent)
            return false;
    } else if (!is_in_range(key.d, key.n)) {
        return false;
    }
    return (key.flags & kRsaCrt) == 0 || has_usable_primes(key);
}

bool rsa_exponent_is_safe(const RsaKey& key) {
    return mtIsOdd(key.e) && mtShortCmp(key.e, 3) >= 0;
}

AsnList rsa_public_key_list(const RsaKey& key) {
    return asn_NewSequence(asn_LinkList(integer(key.n), integer(key.e)));
}

AsnList rsa_subject_public_key_info(const RsaKey& key) {
    return asn_NewSequence(asn_LinkList(rsa_algorithm(), asn_NewBitStringOf(0, rsa_public_key_list(key))));
}

AsnList rsa_private_key_list(const RsaKey& key) {
    return asn_NewSequence(asn_LinkList(asn_NewInteger(0), integer(key.n), integer(key.e), integer(key.d),
                                        integer(key.p), integer(key.q), integer(key.dP), integer(key.dQ),
                                        integer(key.qInv)));
}

AsnList rsa_private_key_info(const RsaKey& key) {
    return asn_NewSequence(
        asn_LinkList(asn_NewInteger(0), rsa_algorithm(), asn_NewOctetStringOf(rsa_private_key_list(key))));
}

bool rsa_read_public_key(DerView der, RsaKey& key) {
    BigInt* const values[] = {&key.n, &key.e};
    key.flags = 0;
    return read_integers(der, values) && take_public(key);
}

bool rsa_read_public_key(const asn_Node* list, RsaKey& key) {
    BigInt* const values[] = {&key.n, &key.e};
    key.flags = 0;
    return read_integers(list, values) && take_public(key);
}

RsaStructure rsa_read_public_exactly(const asn_Node* list, RsaKey& key) {
    BigInt* const values[] = {&key.n, &key.e};
    key.flags = 0;
    if (!asn_IsDer(list, asn_ElementEnd(list)))
        return RsaStructure::malformed;
    const RsaStructure structure = read_integers_only(list, values, true);
    return structure != RsaStructure::good || take_public(key) ? structure : RsaStructure::unusable;
}

bool rsa_read_subject_public_key_info(const asn_Node* list, RsaKey& key) {
    AsnChildren children = AsnChildren::of_sequence(list);
    const asn_Node* algorithm = children.take_sequence();
    const asn_Node* bits = children.take_if(kAsnUniversal, kAsnBitString);
    if (algorithm == nullptr || bits == nullptr || !is_rsa_algorithm(algorithm))
        return false;
    SecretBuffer content;
    if (bits->data == nullptr || bits->data[0] != 0 || !asn_GetBitString(bits, content))
        return false;
    const AsnList inner = asn_ParseBytes(content.data(), content.size());
    return inner && rsa_read_public_key(inner.head(), key);
}

bool rsa_read_private_key(DerView der, RsaKey& key) {
    BigInt version;
    BigInt* const values[] = {&version, &key.n, &key.e, &key.d, &key.p, &key.q, &key.dP, &key.dQ, &key.qInv};
    key.flags = 0;
    return read_integers(der, values) && mtBitLength(version) == 0 && take_private(key);
}

bool rsa_read_private_key(const asn_Node* list, RsaKey& key) {
    BigInt version;
    BigInt* const values[] = {&version, &key.n, &key.e, &key.d, &key.p, &key.q, &key.dP, &key.dQ, &key.qInv};
    key.flags = 0;
    return read_integers(list, values) && mtBitLength(version) == 0 && take_private(key);
}

RsaStructure rsa_read_private_exactly(const asn_Node* list, RsaKey& key) {
    BigInt version;
    BigInt* const values[] = {&version, &key.n, &key.e, &key.d, &key.p, &key.q, &key.dP, &key.dQ, &key.qInv};
    key.flags = 0;
    const asn_Node* const first = AsnChildren::of_sequence(list).peek();
    if (asn_is(first, kAsnUniversal, kAsnInteger) && first->length == 1 && first->data[0] == 1)
        return RsaStructure::otherPrimes;
    const RsaStructure structure = read_integers_only(list, values, false);
    if (structure == RsaStructure::good && mtBitLength(version) != 0)
        return RsaStructure::malformed;
    return structure != RsaStructure::good || take_private(key) ? structure : RsaStructure::unusable;
}

bool rsa_read_private_key_info(const asn_Node* list, RsaKey& key) {
    AsnChildren children = AsnChildren::of_sequence(list);
    const asn_Node* version = children.take_integer();
    const asn_Node* algorithm = children.take_sequence();
    const asn_Node* octets = children.take_octets();
    SecretBuffer content;
    if (version == nullptr || algorithm == nullptr || !asn_GetOctets(octets, content))
        return false;
    if (asn_GetInt(version) != 0) {
        err_add_text("Wrong PrivateKeyInfo version");
        return false;
    }
    if (!is_rsa_algorithm(algorithm))
        return false;
    const AsnList inner = asn_ParseBytes(content.data(), content.size());
    if (inner && rsa_read_private_key(inner.head(), key))
        return true;
    err_add_text("Not an RSA private key");
    return false;
}

} // namespace zul
