// ChaCha20 over blocks side by side: a vector holds one word of 16 (AVX-512) or 8 (AVX2) blocks, or a row of
// one block (SSSE3).
#include "cipher/chacha20_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {
namespace {

// Four words of four blocks in each 128-bit lane change places: afterwards lane l of vector j holds four
// words of block 4 l + j. A macro, as a function has one target.
#define ZUL_TRANSPOSE4(TARGET, Vector, prefix)                                                               \
    TARGET ZUL_ALWAYS_INLINE void transpose4(Vector& a, Vector& b, Vector& c, Vector& d) {                   \
        const Vector ab0 = prefix##_unpacklo_epi32(a, b), ab1 = prefix##_unpackhi_epi32(a, b);               \
        const Vector cd0 = prefix##_unpacklo_epi32(c, d), cd1 = prefix##_unpackhi_epi32(c, d);               \
        a = prefix##_unpacklo_epi64(ab0, cd0);                                                               \
        b = prefix##_unpackhi_epi64(ab0, cd0);                                                               \
        c = prefix##_unpacklo_epi64(ab1, cd1);                                                               \
        d = prefix##_unpackhi_epi64(ab1, cd1);                                                               \
    }
ZUL_TRANSPOSE4(ZUL_TARGET_AVX512, __m512i, _mm512)
ZUL_TRANSPOSE4(ZUL_TARGET_AVX2, __m256i, _mm256)

ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE void add_stream(uint8_t* out, const uint8_t* in, __m512i stream) {
    _mm512_storeu_si512(out, _mm512_xor_si512(_mm512_loadu_si512(in), stream));
}

ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void add_stream(uint8_t* out, const uint8_t* in, __m256i stream) {
    const __m256i plain = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_xor_si256(plain, stream));
}

template<int bits>
ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE __m512i rotate(__m512i x) {
    return _mm512_maskz_rol_epi32(0xFFFF, x, bits);
}

template<int bits>
ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE __m256i rotate(__m256i x) {
    if constexpr (bits == 16)
        return _mm256_shuffle_epi8(x, _mm256_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13,
                                                       2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13));
    else if constexpr (bits == 8)
        return _mm256_shuffle_epi8(x, _mm256_setr_epi8(3, 0, 1, 2, 7, 4, 5, 6, 11, 8, 9, 10, 15, 12, 13, 14,
                                                       3, 0, 1, 2, 7, 4, 5, 6, 11, 8, 9, 10, 15, 12, 13, 14));
    else
        return _mm256_or_si256(_mm256_slli_epi32(x, bits), _mm256_srli_epi32(x, 32 - bits));
}

template<int bits>
ZUL_TARGET_SSSE3 ZUL_ALWAYS_INLINE __m128i rotate(__m128i x) {
    if constexpr (bits == 16)
        return _mm_shuffle_epi8(x, _mm_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13));
    else if constexpr (bits == 8)
        return _mm_shuffle_epi8(x, _mm_setr_epi8(3, 0, 1, 2, 7, 4, 5, 6, 11, 8, 9, 10, 15, 12, 13, 14));
    else
        return _mm_or_si128(_mm_slli_epi32(x, bits), _mm_srli_epi32(x, 32 - bits));
}

// Quarter rounds side by side, one in each lane.
#define ZUL_QUARTER(TARGET, Vector, add, exclusive_or)                                                       \
    TARGET ZUL_ALWAYS_INLINE void quarter(Vector& a, Vector& b, Vector& c, Vector& d) {                      \
        a = add(a, b);                                                                                       \
        d = rotate<16>(exclusive_or(d, a));                                                                  \
        c = add(c, d);                                                                                       \
        b = rotate<12>(exclusive_or(b, c));                                                                  \
        a = add(a, b);                                                                                       \
        d = rotate<8>(exclusive_or(d, a));                                                                   \
        c = add(c, d);                                                                                       \
        b = rotate<7>(exclusive_or(b, c));                                                                   \
    }
ZUL_QUARTER(ZUL_TARGET_AVX512, __m512i, _mm512_add_epi32, _mm512_xor_si512)
ZUL_QUARTER(ZUL_TARGET_AVX2, __m256i, _mm256_add_epi32, _mm256_xor_si256)
ZUL_QUARTER(ZUL_TARGET_SSSE3, __m128i, _mm_add_epi32, _mm_xor_si128)

#define ZUL_DOUBLE_ROUND(x)                                                                                  \
    quarter(x[0], x[4], x[8], x[12]);                                                                        \
    quarter(x[1], x[5], x[9], x[13]);                                                                        \
    quarter(x[2], x[6], x[10], x[14]);                                                                       \
    quarter(x[3], x[7], x[11], x[15]);                                                                       \
    quarter(x[0], x[5], x[10], x[15]);                                                                       \
    quarter(x[1], x[6], x[11], x[12]);                                                                       \
    quarter(x[2], x[7], x[8], x[13]);                                                                        \
    quarter(x[3], x[4], x[9], x[14])

} // namespace

ZUL_TARGET_SSSE3 size_t chacha20_ssse3(uint8_t* out, const uint8_t* in, size_t size,
                                       const uint32_t state[16]) {
    const auto* const rows = reinterpret_cast<const __m128i*>(state);
    __m128i row[4];
    for (size_t i = 0; i < 4; i++)
        row[i] = _mm_loadu_si128(rows + i);
    size_t done = 0;
    for (; size - done >= kChaChaBlock; done += kChaChaBlock) {
        __m128i a = row[0], b = row[1], c = row[2], d = row[3];
        for (int i = 0; i < 10; i++) {
            quarter(a, b, c, d);
            b = _mm_shuffle_epi32(b, 0x39);
            c = _mm_shuffle_epi32(c, 0x4E);
            d = _mm_shuffle_epi32(d, 0x93);
            quarter(a, b, c, d);
            b = _mm_shuffle_epi32(b, 0x93);
            c = _mm_shuffle_epi32(c, 0x4E);
            d = _mm_shuffle_epi32(d, 0x39);
        }
        const __m128i stream[4] = {_mm_add_epi32(a, row[0]), _mm_add_epi32(b, row[1]),
                                   _mm_add_epi32(c, row[2]), _mm_add_epi32(d, row[3])};
        const auto* const from = reinterpret_cast<const __m128i*>(in + done);
        auto* const to = reinterpret_cast<__m128i*>(out + done);
        for (size_t i = 0; i < 4; i++)
            _mm_storeu_si128(to + i, _mm_xor_si128(_mm_loadu_si128(from + i), stream[i]));
        row[3] = _mm_add_epi32(row[3], _mm_setr_epi32(1, 0, 0, 0));
    }
    return done;
}

ZUL_TARGET_AVX512 size_t chacha20_avx512(uint8_t* out, const uint8_t* in, size_t size,
                                         const uint32_t state[16]) {
    constexpr size_t kGroup = kChaChaAvx512Blocks * kChaChaBlock;
    size_t done = 0;
    uint32_t counter = state[12];
    for (; size - done >= kGroup; done += kGroup, counter += kChaChaAvx512Blocks) {
        __m512i x[16];
#pragma GCC unroll 16
        for (size_t i = 0; i < 16; i++)
            x[i] = _mm512_set1_epi32(static_cast<int>(state[i]));
        const __m512i counters =
            _mm512_add_epi32(_mm512_set1_epi32(static_cast<int>(counter)),
                             _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
        x[12] = counters;
        for (int i = 0; i < 10; i++) {
            ZUL_DOUBLE_ROUND(x);
        }
#pragma GCC unroll 16
        for (size_t i = 0; i < 16; i++)
            x[i] = _mm512_add_epi32(x[i], i == 12 ? counters : _mm512_set1_epi32(static_cast<int>(state[i])));
#pragma GCC unroll 4
        for (size_t i = 0; i < 16; i += 4)
            transpose4(x[i], x[i + 1], x[i + 2], x[i + 3]);
            // Lane l of x[j], x[4 + j], x[8 + j], x[12 + j] is block 4 l + j.
#pragma GCC unroll 4
        for (size_t j = 0; j < 4; j++) {
            const __m512i a0 = _mm512_shuffle_i32x4(x[j], x[4 + j], 0x44),
                          a1 = _mm512_shuffle_i32x4(x[j], x[4 + j], 0xEE);
            const __m512i b0 = _mm512_shuffle_i32x4(x[8 + j], x[12 + j], 0x44),
                          b1 = _mm512_shuffle_i32x4(x[8 + j], x[12 + j], 0xEE);
            uint8_t* const to = out + done + j * kChaChaBlock;
            const uint8_t* const from = in + done + j * kChaChaBlock;
            add_stream(to, from, _mm512_shuffle_i32x4(a0, b0, 0x88));
            add_stream(to + 4 * kChaChaBlock, from + 4 * kChaChaBlock, _mm512_shuffle_i32x4(a0, b0, 0xDD));
            add_stream(to + 8 * kChaChaBlock, from + 8 * kChaChaBlock, _mm512_shuffle_i32x4(a1, b1, 0x88));
            add_stream(to + 12 * kChaChaBlock, from + 12 * kChaChaBlock, _mm512_shuffle_i32x4(a1, b1, 0xDD));
        }
    }
    _mm256_zeroall();
    return done;
}

ZUL_TARGET_AVX2 size_t chacha20_avx2(uint8_t* out, const uint8_t* in, size_t size, const uint32_t state[16]) {
    constexpr size_t kGroup = kChaChaAvx2Blocks * kChaChaBlock;
    size_t done = 0;
    uint32_t counter = state[12];
    for (; size - done >= kGroup; done += kGroup, counter += kChaChaAvx2Blocks) {
        __m256i x[16];
#pragma GCC unroll 16
        for (size_t i = 0; i < 16; i++)
            x[i] = _mm256_set1_epi32(static_cast<int>(state[i]));
        const __m256i counters = _mm256_add_epi32(_mm256_set1_epi32(static_cast<int>(counter)),
                                                  _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
        x[12] = counters;
        for (int i = 0; i < 10; i++) {
            ZUL_DOUBLE_ROUND(x);
        }
#pragma GCC unroll 16
        for (size_t i = 0; i < 16; i++)
            x[i] = _mm256_add_epi32(x[i], i == 12 ? counters : _mm256_set1_epi32(static_cast<int>(state[i])));
#pragma GCC unroll 4
        for (size_t i = 0; i < 16; i += 4)
            transpose4(x[i], x[i + 1], x[i + 2], x[i + 3]);
            // Lane l of x[j] to x[12 + j] is block 4 l + j.
#pragma GCC unroll 4
        for (size_t j = 0; j < 4; j++) {
            uint8_t* const to = out + done + j * kChaChaBlock;
            const uint8_t* const from = in + done + j * kChaChaBlock;
            constexpr size_t kFar = 4 * kChaChaBlock;
            add_stream(to, from, _mm256_permute2x128_si256(x[j], x[4 + j], 0x20));
            add_stream(to + 32, from + 32, _mm256_permute2x128_si256(x[8 + j], x[12 + j], 0x20));
            add_stream(to + kFar, from + kFar, _mm256_permute2x128_si256(x[j], x[4 + j], 0x31));
            add_stream(to + kFar + 32, from + kFar + 32,
                       _mm256_permute2x128_si256(x[8 + j], x[12 + j], 0x31));
        }
    }
    _mm256_zeroall();
    return done;
}

} // namespace zul
#endif
