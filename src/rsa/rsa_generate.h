#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// One key generation (RFC 8017, 3; the prime search is incremental, from random starts).
struct RsaGeneration {
    size_t bits;         // of the modulus, at least 4
    unsigned expIndex;   // 0 to 4: e is 3, 5, 17, 257 or 65537; more counts as 4
    size_t tests;        // Miller-Rabin rounds for each candidate
    const uint8_t* seed; // mixed into every random request; may be null
    size_t seedLen;
    MtFill fill;
    int options; // ZUL_KEY_SHOW_PROGRESS
};

// rsaGenerateKeys fills a key and tests it: 0, NULL_ERROR, OUT_OF_RANGE_ERROR, KEYGEN_FAILED_ERROR with a
// text, or the code of rsaPairwiseTest. After KEYGEN_FAILED_ERROR the flags of the key are 0.
[[nodiscard]] int rsaGenerateKeys(RsaKey* key, const RsaGeneration& generation);

} // namespace zul
