// RSAES-OAEP: RFC 8017, 7.1.
#include "rsa/oaep.h"

#include <cstring>

#include "frame/constant_time.h"
#include "hash/digest.h"
#include "rng/rng.h"
#include "rsa/mgf1.h"

namespace zul {

namespace {

// oaep_digest_length gives the length of a digest, 0 for an algorithm that OAEP does not take. The second
// number of SHA-1 is internal.
size_t oaep_digest_length(int algorithm) {
    return algorithm == kDigestSha1Rng ? 0 : digest_length(algorithm);
}

void empty_label_digest(uint8_t* out, int algorithm) {
    Wiped<DigestContext> context;
    digest_init(*context, algorithm);
    digest_final(*context, out);
}

} // namespace

int oaep_encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, int algorithm) {
    const size_t hLen = oaep_digest_length(algorithm);
    if (hLen == 0)
        return BAD_FLAG_ERROR;
    const size_t overhead = 2 * hLen + 2;
    if (outLen < overhead || length > outLen - overhead)
        return SHORT_BUF_ERROR;
    uint8_t* const seed = out + 1;
    uint8_t* const db = seed + hLen;
    const size_t dbLen = outLen - hLen - 1;
    const size_t start = dbLen - length;
    if (length > 0)
        memmove(db + start, message, length);
    out[0] = 0;
    rng_draw(seed, hLen);
    empty_label_digest(db, algorithm);
    memset(db + hLen, 0, start - 1 - hLen);
    db[start - 1] = 1;
    mgf1_xor(db, dbLen, seed, hLen, algorithm);
    mgf1_xor(seed, hLen, db, dbLen, algorithm);
    return 0;
}

int oaep_decode(SecretBuffer& content, size_t* start, const uint8_t* block, size_t length, int algorithm) {
    const size_t hLen = oaep_digest_length(algorithm);
    if (hLen == 0)
        return BAD_FLAG_ERROR;
    if (length <= 2 * hLen + 1 || length > kMaxAllocation)
        return BAD_LENGTH_ERROR;
    const size_t dbLen = length - hLen - 1;
    Secret<kMaxDigestSize> seed, label;
    memcpy(seed.data(), block + 1, hLen);
    mgf1_xor(seed.data(), hLen, block + 1 + hLen, dbLen, algorithm);
    SecretBuffer db(dbLen);
    memcpy(db.data(), block + 1 + hLen, dbLen);
    mgf1_xor(db.data(), dbLen, seed.data(), hLen, algorithm);

    uint32_t fault = block[0];
    empty_label_digest(label.data(), algorithm);
    for (size_t i = 0; i < hLen; i++)
        fault |= static_cast<uint32_t>(db[i] ^ label[i]);
    uint32_t found = 0, end = 0;
    for (size_t i = hLen; i < dbLen; i++) {
        const uint32_t first = mask_equal(db[i], 1) & ~found;
        end |= first & static_cast<uint32_t>(i);
        found |= first;
        fault |= db[i] & ~found;
    }
    if (ct_declassify(mask_zero(fault) & found) == 0)
        return DECRYPT_ERROR;
    *start = size_t{ct_declassify(end)} + 1;
    content = std::move(db);
    return 0;
}

} // namespace zul
