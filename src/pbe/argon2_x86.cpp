#include "pbe/argon2_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

// The compression function of Argon2 in vectors of four words: a row of P's matrix in one vector while rows
// are permuted, half rows of two neighbouring columns while columns are.
namespace zul {

namespace {

#define ARGON2_INLINE ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE

struct Rotate256 {
    template<int n>
    ARGON2_INLINE static __m256i right(__m256i x) {
        if (n == 32)
            return _mm256_shuffle_epi32(x, 0xB1);
        if (n == 24)
            return _mm256_shuffle_epi8(
                x, _mm256_setr_epi8(3, 4, 5, 6, 7, 0, 1, 2, 11, 12, 13, 14, 15, 8, 9, 10, //
                                    3, 4, 5, 6, 7, 0, 1, 2, 11, 12, 13, 14, 15, 8, 9, 10));
        if (n == 16)
            return _mm256_shuffle_epi8(
                x, _mm256_setr_epi8(2, 3, 4, 5, 6, 7, 0, 1, 10, 11, 12, 13, 14, 15, 8, 9, //
                                    2, 3, 4, 5, 6, 7, 0, 1, 10, 11, 12, 13, 14, 15, 8, 9));
        return _mm256_xor_si256(_mm256_srli_epi64(x, n), _mm256_slli_epi64(x, 64 - n));
    }
};

// Inlined where AVX-512 is the target; the intrinsic would make that the target of every function between.
struct Rotate512 {
    template<int n>
    ARGON2_INLINE static __m256i right(__m256i x) {
        __asm__("vprorq %1, %0, %0" : "+v"(x) : "n"(n));
        return x;
    }
};

// Two matrices, or one in two halves: the rows a, b, c, d of P.
struct Rows {
    __m256i a[2], b[2], c[2], d[2];
};

ARGON2_INLINE void add_product(__m256i& a, __m256i b) {
    const __m256i product = _mm256_mul_epu32(a, b);
    a = _mm256_add_epi64(_mm256_add_epi64(a, b), _mm256_add_epi64(product, product));
}

template<class Rotate, int first, int second>
ARGON2_INLINE void mix_half(Rows& v) {
    for (size_t i = 0; i < 2; i++)
        add_product(v.a[i], v.b[i]);
    for (size_t i = 0; i < 2; i++)
        v.d[i] = Rotate::template right<first>(_mm256_xor_si256(v.d[i], v.a[i]));
    for (size_t i = 0; i < 2; i++)
        add_product(v.c[i], v.d[i]);
    for (size_t i = 0; i < 2; i++)
        v.b[i] = Rotate::template right<second>(_mm256_xor_si256(v.b[i], v.c[i]));
}

// Turn moves the words of b, c and d so that diagonals become columns, and back.
template<class Rotate, class Turn>
ARGON2_INLINE void permute(Rows& v) {
    mix_half<Rotate, 32, 24>(v);
    mix_half<Rotate, 16, 63>(v);
    Turn::there(v);
    mix_half<Rotate, 32, 24>(v);
    mix_half<Rotate, 16, 63>(v);
    Turn::back(v);
}

struct TurnWhole {
    ARGON2_INLINE static void there(Rows& v) {
        for (size_t i = 0; i < 2; i++) {
            v.b[i] = _mm256_permute4x64_epi64(v.b[i], 0x39);
            v.c[i] = _mm256_permute4x64_epi64(v.c[i], 0x4E);
            v.d[i] = _mm256_permute4x64_epi64(v.d[i], 0x93);
        }
    }
    ARGON2_INLINE static void back(Rows& v) {
        for (size_t i = 0; i < 2; i++) {
            v.b[i] = _mm256_permute4x64_epi64(v.b[i], 0x93);
            v.c[i] = _mm256_permute4x64_epi64(v.c[i], 0x4E);
            v.d[i] = _mm256_permute4x64_epi64(v.d[i], 0x39);
        }
    }
};

struct TurnHalves {
    ARGON2_INLINE static void turn(__m256i (&low)[2], __m256i (&high)[2]) {
        const __m256i l = low[0], h = high[0];
        low[0] = _mm256_alignr_epi8(low[1], l, 8);
        low[1] = _mm256_alignr_epi8(l, low[1], 8);
        high[0] = _mm256_alignr_epi8(h, high[1], 8);
        high[1] = _mm256_alignr_epi8(high[1], h, 8);
    }
    ARGON2_INLINE static void swap(__m256i (&c)[2]) {
        const __m256i first = c[0];
        c[0] = c[1];
        c[1] = first;
    }
    ARGON2_INLINE static void there(Rows& v) {
        turn(v.b, v.d);
        swap(v.c);
    }
    ARGON2_INLINE static void back(Rows& v) {
        turn(v.d, v.b);
        swap(v.c);
    }
};

template<class Rotate>
ARGON2_INLINE void compress(const Argon2Step& step, Argon2Scratch& scratch) {
    // Blocks as eight rows of four vectors.
    auto* const sum = reinterpret_cast<__m256i*>(scratch.sum.words);
    auto* const mixed = reinterpret_cast<__m256i*>(scratch.mixed.words);
    auto* const next = reinterpret_cast<__m256i*>(step.next->words);
    const auto* const previous = reinterpret_cast<const __m256i*>(step.previous->words);
    const auto* const reference = reinterpret_cast<const __m256i*>(step.reference->words);

    for (size_t row = 0; row < 8; row += 2) {
        Rows v;
        __m256i* const vectors[4] = {v.a, v.b, v.c, v.d};
#pragma GCC unroll 8
        for (size_t i = 0; i < 8; i++) {
            const size_t at = 4 * row + i;
            const __m256i x =
                _mm256_xor_si256(_mm256_load_si256(previous + at), _mm256_load_si256(reference + at));
            vectors[i % 4][i / 4] = x;
            _mm256_store_si256(sum + at, step.keeps ? _mm256_xor_si256(x, _mm256_load_si256(next + at)) : x);
        }
        permute<Rotate, TurnWhole>(v);
#pragma GCC unroll 8
        for (size_t i = 0; i < 8; i++)
            _mm256_store_si256(mixed + 4 * row + i, vectors[i % 4][i / 4]);
    }
    for (size_t column = 0; column < 4; column++) {
        Rows v;
        __m256i* const vectors[4] = {v.a, v.b, v.c, v.d};
#pragma GCC unroll 8
        for (size_t i = 0; i < 8; i++)
            vectors[i / 2][i % 2] = _mm256_load_si256(mixed + 4 * i + column);
        permute<Rotate, TurnHalves>(v);
#pragma GCC unroll 8
        for (size_t i = 0; i < 8; i++) {
            const size_t at = 4 * i + column;
            _mm256_store_si256(next + at,
                               _mm256_xor_si256(vectors[i / 2][i % 2], _mm256_load_si256(sum + at)));
        }
        if (column == 0 && step.segment != nullptr)
            argon2_prefetch(step.segment->reference(step.index, step.next->words[0]));
    }
}

} // namespace

ZUL_TARGET_AVX2 void argon2_compress_avx2(const Argon2Step& step, Argon2Scratch& scratch) {
    compress<Rotate256>(step, scratch);
}

ZUL_TARGET_AVX512 void argon2_compress_avx512(const Argon2Step& step, Argon2Scratch& scratch) {
    compress<Rotate512>(step, scratch);
}

} // namespace zul

#endif
