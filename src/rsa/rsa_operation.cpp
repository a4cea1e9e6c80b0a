// RSA: RFC 8017, RSAEP and RSAVP1 (5.1.1, 5.2.2), RSADP and RSASP1 (5.1.2, 5.2.1).
#include "rsa/rsa_operation.h"

#include "zulcore.h"

namespace zul {

namespace {

// The input as a number, if it is below n.
bool read_below(MT number, const uint8_t* input, size_t inlen, const RsaKey& key) {
    // A number longer than the modulus is never made, however long the input is.
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

// private_crt sets m = c^d mod n by the Chinese remainder theorem (CRT). It fails if p or q is no modulus, or
// if m is not below n because the values of the key contradict each other.
bool private_crt(MT m, MT c, const RsaKey& key) {
    if (mtShortCmp(key.p, 1) <= 0 || mtShortCmp(key.q, 1) <= 0)
        return false;
    BigInt c1, c2, m1, m2, h, difference;
    mtModulo(c1, c, key.p); // as in power_residue
    mtModulo(c2, c, key.q);
    mtModExpPair({m1, c1, key.dP, key.p}, {m2, c2, key.dQ, key.q});
    mtModulo(h, m2, key.p); // foreign keys may have p < q
    if (mtCompare(m1, h) < 0)
        mtAdd(m1, m1, key.p);
    mtSubtract(difference, m1, h);
    mtModMult(h, key.qInv, difference, key.p);
    mtMultiply(m, h, key.q);
    mtAdd(m, m, m2);
    return mtCompare(m, key.n) < 0;
}

constexpr size_t kShortExponent = 64; // bits

// is_power_root tells whether m^e = c modulo a number.
bool is_power_root(MT m, MT c, MT e, MT modulus) {
    BigInt power, expected;
    power_residue(power, m, e, modulus);
    mtModulo(expected, c, modulus);
    return mtIsEqual(power, expected) != 0;
}

// crt_holds verifies a CRT result with the public exponent. A result that is wrong modulo only one prime
// reveals the other prime as gcd(m^e - c, n). With a long exponent the check is done modulo p and modulo q,
// which takes half the time and is equivalent, since p and q are coprime and their product is n. With a short
// exponent the two preparations would cost more than that saves.
bool crt_holds(MT m, MT c, const RsaKey& key) {
    if (mtBitLength(key.e) <= kShortExponent)
        return is_power_root(m, c, key.e, key.n);
    return is_power_root(m, c, key.e, key.p) && is_power_root(m, c, key.e, key.q);
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

bool rsa_private_unchecked(MT m, MT c, const RsaKey& key) {
    if ((key.flags & kRsaCrt) != 0)
        return private_crt(m, c, key);
    mtModExp(m, c, key.d, key.n);
    return true;
}

int rsaPrivate(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input, size_t inlen) {
    if (key == nullptr)
        return NULL_ERROR;
    if ((key->flags & kRsaPrivate) == 0)
        return BAD_PARAM_ERROR;
    BigInt c, m;
    if (!read_below(c, input, inlen, *key))
        return OUT_OF_RANGE_ERROR;
    if (!rsa_private_unchecked(m, c, *key))
        return BAD_PARAM_ERROR;
    if ((key->flags & kRsaCrt) != 0 && !crt_holds(m, c, *key))
        return TEST_FAILED_ERROR;
    write_number(m, output, outlen, *key);
    return 0;
}

} // namespace zul
