#include "hash/sha512_kernels.h"

#if ZUL_X86_64
#include "hash/sha2_lanes_x86.h"

namespace zul {

// Fewer blocks than this are not worth the vectors.
static constexpr size_t kLeastBlocks = 6;

ZUL_TARGET_AVX2 void sha512_compress_avx2(uint64_t state[8], const uint8_t* data, size_t blocks) {
    using Schedule = Sha2Schedule<Sha512Family, Sha512Vectors>;
    if (blocks < kLeastBlocks)
        return sha2_compress_scalar<Sha512Family>(state, data, blocks);
    compress_lanes<Schedule, Sha2Rounds<Sha512Family, Schedule>>(state, data, blocks);
}

namespace {

// small_sigma1 of the words that mask chooses, 0 in the places of the others.
ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE __m256i small_sigma1(__m256i x, __mmask8 mask) {
    return _mm256_maskz_ternarylogic_epi64(mask, _mm256_ror_epi64(x, 19), _mm256_ror_epi64(x, 61),
                                           _mm256_srli_epi64(x, 6), 0x96);
}

// next_words gives the four words that follow the sixteen in w. The second two depend on the first two.
ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE __m256i next_words(__m256i w0, __m256i w1, __m256i w2, __m256i w3) {
    const __m256i x = _mm256_alignr_epi64(w1, w0, 1);
    const __m256i sigma0 = _mm256_ternarylogic_epi64(_mm256_ror_epi64(x, 1), _mm256_ror_epi64(x, 8),
                                                     _mm256_srli_epi64(x, 7), 0x96);
    const __m256i sum = _mm256_add_epi64(_mm256_add_epi64(w0, _mm256_alignr_epi64(w3, w2, 1)), sigma0);
    const __m256i half = _mm256_add_epi64(sum, small_sigma1(_mm256_permute4x64_epi64(w3, 0x0E), 0x3));
    return _mm256_add_epi64(half, small_sigma1(_mm256_permute4x64_epi64(half, 0x40), 0xC));
}

} // namespace

// One block after the other: the words of the next sixteen rounds are made in vectors while sixteen rounds
// run in general registers.
ZUL_TARGET_AVX512 void sha512_compress_avx512(uint64_t state[8], const uint8_t* data, size_t blocks) {
    const __m256i swap =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8));
    const uint64_t* const k = kSha512Constants;
    alignas(32) uint64_t inputs[16];
    for (; blocks > 0; blocks--, data += 128) {
        __m256i w[4];
#pragma GCC unroll 4
        for (size_t i = 0; i < 4; i++) {
            w[i] = _mm256_shuffle_epi8(load_vector(data + 32 * i), swap);
            store_vector(inputs + 4 * i, _mm256_add_epi64(w[i], load_vector(k + 4 * i)));
        }
        Sha2Variables<Sha512Family> v(state);
#pragma GCC unroll 1
        for (size_t t = 16; t < 80; t += 16) {
#pragma GCC unroll 4
            for (size_t i = 0; i < 4; i++) {
                w[i] = next_words(w[i], w[(i + 1) % 4], w[(i + 2) % 4], w[(i + 3) % 4]);
#pragma GCC unroll 4
                for (size_t j = 4 * i; j < 4 * i + 4; j++)
                    sha2_round_at<Sha2Bmi2Round<Sha512Family>>(j, v, inputs[j]);
                store_vector(inputs + 4 * i, _mm256_add_epi64(w[i], load_vector(k + t + 4 * i)));
            }
        }
#pragma GCC unroll 16
        for (size_t j = 0; j < 16; j++)
            sha2_round_at<Sha2Bmi2Round<Sha512Family>>(j, v, inputs[j]);
        v.add_to(state);
    }
    wipe_object(inputs); // from which a block could be told
}

} // namespace zul
#endif
