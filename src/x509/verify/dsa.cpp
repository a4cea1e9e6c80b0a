// DSA signature verification: FIPS 186-4, 4.7.
#include "x509/verify/dsa.h"

#include <algorithm>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

// Keys come from outside, and the cost of an exponentiation grows with both sizes. FIPS 186-4 ends at 3072
// and 256.
constexpr size_t kMaxPBits = 16384, kMaxQBits = 512;

// is_between tells whether 0 < a < limit.
bool is_between(const MtNumber* a, const MtNumber* limit) {
    return mtBitLength(a) > 0 && mtCompare(a, limit) < 0;
}

bool is_usable(const DsaPublicKey& key) {
    const size_t pBits = mtBitLength(key.p), qBits = mtBitLength(key.q);
    return pBits <= kMaxPBits && qBits > 1 && qBits <= kMaxQBits && qBits < pBits && mtIsOdd(key.p) &&
           mtIsOdd(key.q) && is_between(key.g, key.p) && is_between(key.y, key.p) &&
           mtShortCmp(key.g, 1) > 0 && mtShortCmp(key.y, 1) > 0;
}

// read_below reads a number if it is above 0 and below q.
bool read_below(MT number, const uint8_t* bytes, size_t length, const BigInt& q) {
    for (; length > 0 && *bytes == 0; bytes++)
        length--;
    if (length > kMaxQBits / 8)
        return false;
    mtConvFromOctets(number, bytes, length);
    return is_between(number, q);
}

// read_digest takes the leftmost bits of a digest, as many as q has.
void read_digest(MT z, const uint8_t* digest, size_t length, const BigInt& q) {
    const size_t bits = mtBitLength(q);
    length = std::min(length, (bits + 7) / 8);
    mtConvFromOctets(z, digest, length);
    if (length * 8 > bits)
        mtShiftRight(z, z, length * 8 - bits);
    mtModulo(z, z, q);
}

// is_positive tells whether a node is an INTEGER above 0 in the fewest octets.
bool is_positive(const asn_Node* node) {
    if (!asn_is(node, kAsnUniversal, kAsnInteger) || node->data == nullptr || (node->data[0] & 0x80) != 0)
        return false;
    return node->data[0] != 0 || (node->length > 1 && (node->data[1] & 0x80) != 0);
}

} // namespace

int dsa_verify(const DsaPublicKey& key, const uint8_t* digest, size_t digestLen, const uint8_t* r,
               size_t rLen, const uint8_t* s, size_t sLen) {
    BigInt rNumber, sNumber, w, z, u1, u2, gPower, yPower, v;
    if (!is_usable(key) || !read_below(rNumber, r, rLen, key.q) || !read_below(sNumber, s, sLen, key.q) ||
        mtModInv(w, sNumber, key.q) != 0)
        return -1;
    read_digest(z, digest, digestLen, key.q);
    mtModMult(u1, z, w, key.q);
    mtModMult(u2, rNumber, w, key.q);
    mtModExp(gPower, key.g, u1, key.p);
    mtModExp(yPower, key.y, u2, key.p);
    mtModMult(v, gPower, yPower, key.p);
    mtModulo(v, v, key.q);
    return mtIsEqual(v, rNumber) != 0 ? 0 : -1;
}

int DsaCheck::open_key(const asn_Node* subjectPublicKeyInfo) {
    if (public_key_type(subjectPublicKeyInfo) != PublicKeyType::dsa) {
        char name[kAlgorithmName];
        return err_fail(NOT_SUPPORTED_ERROR, "Unexpected key algorithm %s: require `dsa'",
                        public_key_algorithm(subjectPublicKeyInfo, name));
    }
    switch (dsa_public_key_of(subjectPublicKeyInfo, key_)) {
    case DsaKeyState::noParameters:
        return err_fail(NOT_SUPPORTED_ERROR, "No public key parameters: inherited DSS-Params not supported");
    case DsaKeyState::unusable:
        return err_fail(INVALID_DATA_ERROR, "Unable to convert public key");
    case DsaKeyState::good:
        break;
    }
    return 0;
}

bool DsaCheck::open_signature(const uint8_t* bytes, size_t size) {
    ByteStream stream(bytes, size);
    value_ = asn_Parse(stream, false, true);
    const asn_Node* value = value_.head();
    AsnChildren children = AsnChildren::of_sequence(value);
    const asn_Node *r = children.take(), *s = children.take();
    if (!is_positive(r) || !is_positive(s) || !children.at_end() || !stream.at_end() || !asn_IsDer(value))
        return false;
    r_ = r;
    s_ = s;
    return true;
}

bool DsaCheck::matches(const uint8_t* digest, size_t size) const {
    return dsa_verify(key_, digest, size, r_->data, r_->length, s_->data, s_->length) == 0;
}

} // namespace zul
