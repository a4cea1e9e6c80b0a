// The Montgomery ladder with AVX512-IFMA: four field elements side by side, five vectors of 51-bit digits.
#include "ec/x25519_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

#include "frame/wipe.h"

namespace zul {
namespace {

constexpr size_t kDigits = Field25519::kLimbs;

// Digits are at most 2^51 + 2^15, which a multiplication of 52 bits takes.
struct Four {
    __m256i digit[kDigits];
};

ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE __m256i times19(__m256i a) {
    return _mm256_add_epi64(_mm256_add_epi64(_mm256_slli_epi64(a, 4), _mm256_slli_epi64(a, 1)), a);
}

// carry brings digits below 2^61 down.
ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void carry(Four& a) {
    const __m256i mask = _mm256_set1_epi64x(static_cast<long long>(Field25519::kDigitMask));
    __m256i high[kDigits];
#pragma GCC unroll 8
    for (size_t i = 0; i < kDigits; i++) {
        high[i] = _mm256_srli_epi64(a.digit[i], 51);
        a.digit[i] = _mm256_and_si256(a.digit[i], mask);
    }
    a.digit[0] = _mm256_add_epi64(a.digit[0], times19(high[kDigits - 1]));
#pragma GCC unroll 8
    for (size_t i = 1; i < kDigits; i++)
        a.digit[i] = _mm256_add_epi64(a.digit[i], high[i - 1]);
}

ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void multiply(Four& product, const Four& a, const Four& b) {
    // Column k has the low halves of i + j = k; the high halves, of weight 2^52, count twice in column k + 1.
    __m256i low[2 * kDigits], high[2 * kDigits];
#pragma GCC unroll 16
    for (size_t k = 0; k < 2 * kDigits; k++)
        low[k] = high[k] = _mm256_setzero_si256();
#pragma GCC unroll 8
    for (size_t i = 0; i < kDigits; i++) {
#pragma GCC unroll 8
        for (size_t j = 0; j < kDigits; j++) {
            low[i + j] = _mm256_madd52lo_epu64(low[i + j], a.digit[i], b.digit[j]);
            high[i + j + 1] = _mm256_madd52hi_epu64(high[i + j + 1], a.digit[i], b.digit[j]);
        }
    }
#pragma GCC unroll 16
    for (size_t k = 0; k < 2 * kDigits; k++)
        low[k] = _mm256_add_epi64(low[k], _mm256_add_epi64(high[k], high[k]));
        // Columns are below 2^56, and 20 times that below 2^61.
#pragma GCC unroll 8
    for (size_t k = 0; k < kDigits; k++)
        product.digit[k] = _mm256_add_epi64(low[k], times19(low[k + kDigits]));
    carry(product);
}

// Digit i of 4p in the odd lanes: it keeps differences positive.
ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE __m256i four_p(size_t i) {
    const uint64_t digit = (Field25519::kDigitMask - (i == 0 ? 18 : 0)) << 2;
    return _mm256_setr_epi64x(0, static_cast<long long>(digit), 0, static_cast<long long>(digit));
}

// sum_and_difference gives (a + b, a - b) of lanes 0 and 1, and of lanes 2 and 3.
ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void sum_and_difference(Four& result, const Four& a) {
#pragma GCC unroll 8
    for (size_t i = 0; i < kDigits; i++) {
        const __m256i first = _mm256_permute4x64_epi64(a.digit[i], 0xA0);  // 0, 0, 2, 2
        const __m256i second = _mm256_permute4x64_epi64(a.digit[i], 0xF5); // 1, 1, 3, 3
        const __m256i raised = _mm256_add_epi64(first, four_p(i));
        const __m256i sum = _mm256_add_epi64(raised, second), difference = _mm256_sub_epi64(raised, second);
        result.digit[i] = _mm256_blend_epi32(sum, difference, 0xCC);
    }
    carry(result);
}

} // namespace

ZUL_TARGET_IFMA void x25519_ladder_ifma(Field25519::Element& x2, Field25519::Element& z2,
                                        const Limbs<4>& scalar, const Field25519::Element& u) {
    Wiped<std::array<uint64_t, 4>> lanes;
    Four v, s, t, w, factor; // v = (x2, z2, x3, z3)
    for (size_t i = 0; i < kDigits; i++) {
        const auto digit = static_cast<long long>(u[i]);
        v.digit[i] = _mm256_setr_epi64x(i == 0, 0, digit, i == 0);
    }
    __m256i swapped = _mm256_setzero_si256();
    for (size_t bit = 255; bit-- > 0;) {
        const __m256i isSet =
            _mm256_set1_epi64x(static_cast<long long>(limb_mask(limbs_bits(scalar, bit, 1))));
        const __m256i swap = _mm256_xor_si256(isSet, swapped);
        swapped = isSet;
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++)
            v.digit[i] = _mm256_blendv_epi8(v.digit[i], _mm256_permute4x64_epi64(v.digit[i], 0x4E), swap);

        sum_and_difference(s, v); // A, B, C, D
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++)
            t.digit[i] = _mm256_permute4x64_epi64(s.digit[i], 0x14); // A, B, B, A
        multiply(s, s, t);                                           // AA, BB, CB, DA

        // AA, E, DA + CB, CB - DA times BB, a24 and the last two again.
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++) {
            const __m256i first = _mm256_permute4x64_epi64(s.digit[i], 0xA0);  // AA, AA, CB, CB
            const __m256i second = _mm256_permute4x64_epi64(s.digit[i], 0xF5); // BB, BB, DA, DA
            const __m256i raised = _mm256_add_epi64(first, four_p(i));
            const __m256i sum = _mm256_add_epi64(raised, second);
            const __m256i difference = _mm256_sub_epi64(raised, second);
            t.digit[i] = _mm256_blend_epi32(sum, difference, 0xCC);
            t.digit[i] = _mm256_blend_epi32(t.digit[i], first, 0x03);
        }
        carry(t);
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++) {
            factor.digit[i] = _mm256_blend_epi32(t.digit[i], _mm256_permute4x64_epi64(s.digit[i], 0x01),
                                                 0x03); // BB in lane 0
            factor.digit[i] =
                _mm256_blend_epi32(factor.digit[i], _mm256_set1_epi64x(i == 0 ? kX25519A24 : 0), 0x0C);
        }
        multiply(w, t, factor); // x2, a24 E, x3, (CB - DA)^2

        // z2 = E (AA + a24 E) in lane 1, z3 = u (CB - DA)^2 in lane 3.
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++) {
            const __m256i aa = _mm256_permute4x64_epi64(s.digit[i], 0x00);
            const __m256i sum = _mm256_add_epi64(w.digit[i], aa);
            s.digit[i] = _mm256_blend_epi32(sum, w.digit[i], 0xF0);
            factor.digit[i] =
                _mm256_blend_epi32(t.digit[i], _mm256_set1_epi64x(static_cast<long long>(u[i])), 0xF0);
        }
        carry(s);
        multiply(t, s, factor);
#pragma GCC unroll 8
        for (size_t i = 0; i < kDigits; i++)
            v.digit[i] = _mm256_blend_epi32(w.digit[i], t.digit[i], 0xCC);
    }
#pragma GCC unroll 8
    for (size_t i = 0; i < kDigits; i++) {
        v.digit[i] = _mm256_blendv_epi8(v.digit[i], _mm256_permute4x64_epi64(v.digit[i], 0x4E), swapped);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(lanes->data()), v.digit[i]);
        x2[i] = lanes->data()[0];
        z2[i] = lanes->data()[1];
    }
    _mm256_zeroall();
}

} // namespace zul
#endif
