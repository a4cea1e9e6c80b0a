// RSA: RFC 8017, RSAEP and RSAVP1 (5.1.1, 5.2.2), RSADP and RSASP1 (5.1.2, 5.2.1).
#include "rsa/rsa_operation.h"

#include "zulcore.h"

namespace zul {

namespace {

// The input as a number, if it is below n.
bool read_below(MT number, const uint8_t* input, size_t inlen, const RsaKey& key) {
    // However long the input, no number longer than the modulus is ever made.
    while (inlen > 0 && *input == 0) {
        input++;
        inlen--;
    }
    if (inlen > key.bytes())
        return false;
    mtConvFromOctets(number, input, inlen);
    return mtCompare(number, key.n) < 0;
}

void write_number(const MtNumber* number, uint8_t* output, size_t* outlen, const RsaKey& key) {
    *outlen = key.bytes();
    mtConvToOctets(number, output, *outlen);
}

// residue = c^exponent mod prime.
void power_residue(MT residue, MT c, MT exponent, MT prime) {
    BigInt base;
    mtModulo(base, c, prime); // exponentiation does not reduce its base
    mtModExp(residue, base, exponent, prime);
}

// m = c^d mod n by the Chinese remainder theorem; false if p or q is no modulus or if m is not below n, as
// can be with values that do not belong together.
bool private_crt(MT m, MT c, const RsaKey& key) {
    if (mtShortCmp(key.p, 1) <= 0 || mtShortCmp(key.q, 1) <= 0)
        return false;
    BigInt m1, m2, h, difference;
    power_residue(m1, c, key.dP, key.p);
    power_residue(m2, c, key.dQ, key.q);
    mtModulo(h, m2, key.p); // foreign keys may have p < q
    if (mtCompare(m1, h) < 0)
        mtAdd(m1, m1, key.p);
    mtSubtract(difference, m1, h);
    mtModMult(h, key.qInv, difference, key.p);
    mtMultiply(m, h, key.q);
    mtAdd(m, m, m2);
    return mtCompare(m, key.n) < 0;
}

} // namespace

int rsaPublic(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input, size_t inlen) {
    if (key == nullptr)
        return NULL_ERROR;
    if ((key->flags & kRsaPublic) == 0)
        return BAD_PARAM_ERROR;
    BigInt m, c;
    if (!read_below(m, input, inlen, *key))
        return OUT_OF_RANGE_ERROR;
    mtModExp(c, m, key->e, key->n);
    write_number(c, output, outlen, *key);
    return 0;
}

int rsaPrivate(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input, size_t inlen) {
    if (key == nullptr)
        return NULL_ERROR;
    if ((key->flags & kRsaPrivate) == 0)
        return BAD_PARAM_ERROR;
    BigInt c, m;
    if (!read_below(c, input, inlen, *key))
        return OUT_OF_RANGE_ERROR;
    if ((key->flags & kRsaCrt) == 0)
        mtModExp(m, c, key->d, key->n);
    else if (!private_crt(m, c, *key))
        return BAD_PARAM_ERROR;
    write_number(m, output, outlen, *key);
    return 0;
}

} // namespace zul
