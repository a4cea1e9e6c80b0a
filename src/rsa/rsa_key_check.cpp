#include "rsa/rsa_key_check.h"

#include <cstring>

#include "asn1/asn_encode.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_pairwise.h"
#include "zulcore.h"

namespace zul {

namespace {

SecretBuffer public_part(const RsaKey& key) {
    return asn_Encode(rsa_public_key_list(key));
}

// inverts_exponent tells whether e * d = 1 mod prime - 1. This holds for d modulo (p - 1)(q - 1) and for the
// smaller d modulo their least common multiple (RFC 8017, 3.2).
bool inverts_exponent(const RsaKey& key, MT prime) {
    BigInt less1, product, rest;
    mtShortSub(less1, prime, 1);
    mtMultiply(product, key.e, key.d);
    mtModulo(rest, product, less1);
    return mtShortCmp(rest, 1) == 0;
}

} // namespace

int rsa_match_keys(const char* privateString, const char* publicString) {
    RsaKey privateKey, publicKey;
    if (const int code = rsa_open_private(privateString, privateKey))
        return err_fail(code, "Could not extract private key from string");
    if (const int code = rsa_open_public(publicString, publicKey))
        return err_fail(code, "Could not extract public key from string");
    if (privateKey.bits != publicKey.bits)
        return err_fail(NO_MATCH_ERROR, "Key lengths are different");
    if (rsaPairwiseTest(&privateKey) != 0)
        return err_fail(INVALID_DATA_ERROR, "Not a valid private key");
    const SecretBuffer own = public_part(privateKey), other = public_part(publicKey);
    if (own.empty() || other.empty())
        return err_fail(INVALID_DATA_ERROR, "Invalid key data");
    if (own.size() != other.size() || memcmp(own.data(), other.data(), own.size()) != 0)
        return err_fail(NO_MATCH_ERROR, "Keys do not match");
    return 0;
}

int rsa_check_private_key(const RsaKey& key) {
    if (const int code = rsaPairwiseTest(&key))
        return code;
    return inverts_exponent(key, key.p) && inverts_exponent(key, key.q) ? 0 : TEST_FAILED_ERROR;
}

uint32_t rsa_key_hash_code(const RsaKey& key) {
    const SecretBuffer der = public_part(key);
    uint8_t digest[kMd5Size];
    static_cast<void>(
        hash_bytes(digest, int{kMd5Size}, der.data(), static_cast<int64_t>(der.size()), kDigestMd5));
    return uint32_t{digest[0]} << 24 | uint32_t{digest[1]} << 16 | uint32_t{digest[2]} << 8 | digest[3];
}

} // namespace zul
