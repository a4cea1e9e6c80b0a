#include "rsa/rsa_pss.h"

#include <cstring>

#include "frame/constant_time.h"
#include "frame/memory.h"
#include "hash/digest.h"
#include "rsa/mgf1.h"

namespace zul {
namespace {

constexpr uint8_t kTrailer = 0xBC;

// H of a digest and a salt.
void hash_salted(uint8_t* out, const PssEncoding& encoding, const uint8_t* digest, const uint8_t* salt) {
    const uint8_t padding[8] = {};
    Wiped<DigestContext> context;
    digest_init(*context, encoding.digest);
    digest_update(*context, padding, sizeof padding);
    digest_update(*context, digest, digest_length(encoding.digest));
    digest_update(*context, salt, encoding.saltSize);
    digest_final(*context, out);
}

// The bits of the first byte that the encoding has.
uint8_t first_byte_mask(const PssEncoding& encoding) {
    return static_cast<uint8_t>(0xFF >> (8 * encoding.bytes() - encoding.bits));
}

} // namespace

bool pss_salt_room(const PssEncoding& encoding, size_t* room) {
    const size_t fixed = digest_length(encoding.digest) + 2;
    if (encoding.bytes() < fixed)
        return false;
    *room = encoding.bytes() - fixed;
    return true;
}

void pss_encode(uint8_t* out, const PssEncoding& encoding, const uint8_t* digest, const uint8_t* salt) {
    const size_t size = encoding.bytes(), hLen = digest_length(encoding.digest), dbLen = size - hLen - 1;
    uint8_t* const hash = out + dbLen;
    hash_salted(hash, encoding, digest, salt);
    memset(out, 0, dbLen);
    out[dbLen - encoding.saltSize - 1] = 1;
    if (encoding.saltSize > 0)
        memcpy(out + dbLen - encoding.saltSize, salt, encoding.saltSize);
    mgf1_xor(out, dbLen, hash, hLen, encoding.mgfDigest);
    out[0] &= first_byte_mask(encoding);
    out[size - 1] = kTrailer;
}

bool pss_verify(const uint8_t* encoded, const PssEncoding& encoding, const uint8_t* digest) {
    size_t room = 0;
    if (!pss_salt_room(encoding, &room) || encoding.saltSize > room)
        return false;
    const size_t size = encoding.bytes(), hLen = digest_length(encoding.digest), dbLen = size - hLen - 1;
    const uint8_t* const hash = encoded + dbLen;
    if (encoded[size - 1] != kTrailer || (encoded[0] & ~first_byte_mask(encoding)) != 0)
        return false;
    SecretBuffer db(dbLen);
    memcpy(db.data(), encoded, dbLen);
    mgf1_xor(db.data(), dbLen, hash, hLen, encoding.mgfDigest);
    db[0] &= first_byte_mask(encoding);
    size_t separator = 0;
    while (separator < dbLen && db[separator] == 0)
        separator++;
    const size_t last = dbLen - encoding.saltSize - 1; // where the least salt has its separator
    if (separator > last || (separator < last && !encoding.mayBeLonger) || db[separator] != 1)
        return false;
    PssEncoding found = encoding;
    found.saltSize = dbLen - separator - 1;
    Secret<kMaxDigestSize> expected;
    hash_salted(expected.data(), found, digest, db.data() + separator + 1);
    return bytes_equal(expected.data(), hash, hLen);
}

} // namespace zul
