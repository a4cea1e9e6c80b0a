#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <immintrin.h>

#include "platform/target.h"

// SHA-1 by the SHA extensions on vectors in registers. A vector holds four words, the first one in the
// highest place. The result of a block can so be the first words of the next message without a trip through
// memory.
namespace zul {

// A state or a digest: abcd, and e in the highest place with zeros below it.
struct Sha1Vectors {
    __m128i abcd, e;
};

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE __m128i sha1_reverse_bytes(__m128i x) {
    return _mm_shuffle_epi8(x, _mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
}

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE __m128i sha1_first_word(uint32_t word) {
    return _mm_set_epi32(static_cast<int>(word), 0, 0, 0);
}

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors sha1_load_state(const uint32_t state[5]) {
    const __m128i dcba = _mm_loadu_si128(reinterpret_cast<const __m128i*>(state));
    return {_mm_shuffle_epi32(dcba, 0x1B), sha1_first_word(state[4])};
}

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE void sha1_store_state(uint32_t state[5], const Sha1Vectors& vectors) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), _mm_shuffle_epi32(vectors.abcd, 0x1B));
    state[4] = static_cast<uint32_t>(_mm_extract_epi32(vectors.e, 3));
}

// The digest as the 20 bytes that it is outside.
ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors sha1_load_digest(const uint8_t digest[20]) {
    uint32_t e;
    memcpy(&e, digest + 16, sizeof e);
    return {sha1_reverse_bytes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(digest))),
            sha1_first_word(__builtin_bswap32(e))};
}

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE void sha1_store_digest(uint8_t digest[20], const Sha1Vectors& vectors) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(digest), sha1_reverse_bytes(vectors.abcd));
    const uint32_t e = __builtin_bswap32(static_cast<uint32_t>(_mm_extract_epi32(vectors.e, 3)));
    memcpy(digest + 16, &e, sizeof e);
}

// sha1_block absorbs the 16 words of one block.
ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors sha1_block(const Sha1Vectors& before, __m128i w0, __m128i w1,
                                                          __m128i w2, __m128i w3) {
    __m128i w[4] = {w0, w1, w2, w3}; // the last 16 words of the schedule
    __m128i abcd = before.abcd;
    __m128i previous = {}; // abcd four rounds ago, whose a becomes the next e
#pragma GCC unroll 20
    for (size_t i = 0; i < 20; i++) {
        __m128i& next = w[i % 4];
        if (i >= 4) {
            next = _mm_sha1msg1_epu32(next, w[(i + 1) % 4]);
            next = _mm_xor_si128(next, w[(i + 2) % 4]);
            next = _mm_sha1msg2_epu32(next, w[(i + 3) % 4]);
        }
        const __m128i inputs = i == 0 ? _mm_add_epi32(before.e, next) : _mm_sha1nexte_epu32(previous, next);
        previous = abcd;
        // The quarter must be a constant.
        switch (i / 5) {
        case 0:
            abcd = _mm_sha1rnds4_epu32(abcd, inputs, 0);
            break;
        case 1:
            abcd = _mm_sha1rnds4_epu32(abcd, inputs, 1);
            break;
        case 2:
            abcd = _mm_sha1rnds4_epu32(abcd, inputs, 2);
            break;
        default:
            abcd = _mm_sha1rnds4_epu32(abcd, inputs, 3);
        }
    }
    return {_mm_add_epi32(abcd, before.abcd), _mm_sha1nexte_epu32(previous, before.e)};
}

} // namespace zul
