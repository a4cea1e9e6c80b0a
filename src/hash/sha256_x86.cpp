#include "hash/sha256_kernels.h"

#if ZUL_X86_64
#include "hash/sha2_lanes_x86.h"

namespace zul {

// Fewer blocks than this are not worth the vectors.
static constexpr size_t kLeastBlocks = 6;

ZUL_TARGET_AVX2 void sha256_compress_avx2(uint32_t state[8], const uint8_t* data, size_t blocks) {
    using Schedule = Sha2Schedule<Sha256Family, Sha256Vectors>;
    if (blocks < kLeastBlocks)
        return sha2_compress_scalar<Sha256Family>(state, data, blocks);
    compress_lanes<Schedule, Sha2Rounds<Sha256Family, Schedule>>(state, data, blocks);
}

// The SHA extensions keep the state as the words a, b, e, f and c, d, g, h.
ZUL_TARGET_SHANI void sha256_compress_shani(uint32_t state[8], const uint8_t* data, size_t blocks) {
    const __m128i swap = _mm_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    auto* vectors = reinterpret_cast<__m128i*>(state);
    auto* constants = reinterpret_cast<const __m128i*>(kSha256Constants);
    const __m128i dcba = _mm_loadu_si128(vectors);
    const __m128i hgfe = _mm_loadu_si128(vectors + 1);
    const __m128i cdab = _mm_shuffle_epi32(dcba, 0xB1);
    const __m128i efgh = _mm_shuffle_epi32(hgfe, 0x1B);
    __m128i abef = _mm_alignr_epi8(cdab, efgh, 8);
    __m128i cdgh = _mm_blend_epi16(efgh, cdab, 0xF0);

    for (; blocks > 0; blocks--, data += 64) {
        const __m128i abefBefore = abef, cdghBefore = cdgh;
        __m128i w[4]; // the last 16 words of the schedule
#pragma GCC unroll 16
        for (size_t i = 0; i < 16; i++) {
            __m128i& next = w[i % 4];
            if (i < 4) {
                next = _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data) + i), swap);
            } else {
                const __m128i last = w[(i + 3) % 4];
                next = _mm_sha256msg1_epu32(next, w[(i + 1) % 4]);
                next = _mm_add_epi32(next, _mm_alignr_epi8(last, w[(i + 2) % 4], 4));
                next = _mm_sha256msg2_epu32(next, last);
            }
            const __m128i inputs = _mm_add_epi32(next, constants[i]);
            cdgh = _mm_sha256rnds2_epu32(cdgh, abef, inputs);
            abef = _mm_sha256rnds2_epu32(abef, cdgh, _mm_shuffle_epi32(inputs, 0x0E));
        }
        abef = _mm_add_epi32(abef, abefBefore);
        cdgh = _mm_add_epi32(cdgh, cdghBefore);
    }

    const __m128i feba = _mm_shuffle_epi32(abef, 0x1B);
    const __m128i dchg = _mm_shuffle_epi32(cdgh, 0xB1);
    _mm_storeu_si128(vectors, _mm_blend_epi16(feba, dchg, 0xF0));
    _mm_storeu_si128(vectors + 1, _mm_alignr_epi8(dchg, feba, 8));
}

} // namespace zul
#endif
