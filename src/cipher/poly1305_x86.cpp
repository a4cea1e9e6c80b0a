// Poly1305 with AVX512-IFMA: eight blocks side by side, in limbs of 44, 44 and 42 bits.
#include "cipher/poly1305_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {
namespace {

struct Eight {
    __m512i limb[3];
};

ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void load(Eight& x, const uint8_t* data) {
    const __m512i a = _mm512_loadu_si512(data), b = _mm512_loadu_si512(data + 64);
    // The low and the high words of blocks 0 to 7, in the order 0, 4, 1, 5 ...: the order of the powers is
    // the same.
    const __m512i low = _mm512_unpacklo_epi64(a, b), high = _mm512_unpackhi_epi64(a, b);
    const __m512i mask = _mm512_set1_epi64(static_cast<long long>(kPoly1305Mask44));
    x.limb[0] = _mm512_and_si512(low, mask);
    x.limb[1] = _mm512_and_si512(
        _mm512_or_si512(_mm512_maskz_srli_epi64(0xFF, low, 44), _mm512_maskz_slli_epi64(0xFF, high, 20)),
        mask);
    x.limb[2] = _mm512_or_si512(_mm512_maskz_srli_epi64(0xFF, high, 24), _mm512_set1_epi64(1LL << 40));
}

// Powers of r by lane, and 20 times their limbs 1 and 2.
struct Powers {
    __m512i r[3], s[3];
};

ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void set_multiples(Powers& p) {
#pragma GCC unroll 3
    for (size_t j = 0; j < 3; j++)
        p.s[j] = _mm512_add_epi64(_mm512_maskz_slli_epi64(0xFF, p.r[j], 4),
                                  _mm512_maskz_slli_epi64(0xFF, p.r[j], 2));
}

// set_power puts one power into all lanes.
ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void set_power(Powers& p, const uint64_t power[3]) {
#pragma GCC unroll 3
    for (size_t j = 0; j < 3; j++)
        p.r[j] = _mm512_set1_epi64(static_cast<long long>(power[j]));
    set_multiples(p);
}

// multiply: limbs of h below 2^46. Products of limbs i and j weigh 2^(44 (i + j)); their high halves, from
// bit 52, weigh 2^8 more than the next limb, so they are shifted by 8. 20 times a limb of r has at most 49
// bits.
ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void multiply(Eight& h, const Powers& p) {
    const __m512i zero = _mm512_setzero_si512();
    __m512i low[3] = {zero, zero, zero}, high[3] = {zero, zero, zero};
#pragma GCC unroll 3
    for (size_t i = 0; i < 3; i++) {
#pragma GCC unroll 3
        for (size_t k = 0; k < 3; k++) {
            const __m512i factor = i <= k ? p.r[k - i] : p.s[k + 3 - i];
            low[k] = _mm512_madd52lo_epu64(low[k], h.limb[i], factor);
            high[k] = _mm512_madd52hi_epu64(high[k], h.limb[i], factor);
        }
    }
    const __m512i mask44 = _mm512_set1_epi64(static_cast<long long>(kPoly1305Mask44));
    const __m512i mask42 = _mm512_set1_epi64(static_cast<long long>(kPoly1305Mask42));
    __m512i carry = _mm512_maskz_srli_epi64(0xFF, low[0], 44);
    h.limb[0] = _mm512_and_si512(low[0], mask44);
    low[1] = _mm512_add_epi64(low[1], _mm512_add_epi64(_mm512_maskz_slli_epi64(0xFF, high[0], 8), carry));
    carry = _mm512_maskz_srli_epi64(0xFF, low[1], 44);
    h.limb[1] = _mm512_and_si512(low[1], mask44);
    low[2] = _mm512_add_epi64(low[2], _mm512_add_epi64(_mm512_maskz_slli_epi64(0xFF, high[1], 8), carry));
    carry = _mm512_maskz_srli_epi64(0xFF, low[2], 42);
    h.limb[2] = _mm512_and_si512(low[2], mask42);
    // Above limb 2: 2^130 is 5. high[2] weighs 2^140 = 2^130 2^10.
    carry = _mm512_add_epi64(carry, _mm512_maskz_slli_epi64(0xFF, high[2], 10));
    h.limb[0] = _mm512_add_epi64(h.limb[0], _mm512_add_epi64(_mm512_maskz_slli_epi64(0xFF, carry, 2), carry));
    h.limb[1] = _mm512_add_epi64(h.limb[1], _mm512_maskz_srli_epi64(0xFF, h.limb[0], 44));
    h.limb[0] = _mm512_and_si512(h.limb[0], mask44);
}

ZUL_TARGET_IFMA ZUL_ALWAYS_INLINE void add(Eight& sum, const Eight& other) {
#pragma GCC unroll 3
    for (size_t j = 0; j < 3; j++)
        sum.limb[j] = _mm512_add_epi64(sum.limb[j], other.limb[j]);
}

} // namespace

ZUL_TARGET_IFMA void poly1305_ifma(uint64_t h[3], const uint64_t r[3], const uint8_t* data, size_t blocks) {
    struct State {
        uint64_t power[16][3]; // of r, one more than the index
        alignas(64) uint64_t lanes[3][8];
    };
    Wiped<State> owner;
    State& s = *owner;
    for (size_t j = 0; j < 3; j++)
        s.power[0][j] = r[j];
    // Powers 2 to 8 one after the other, and 16.
    for (size_t i = 1; i < 8; i++)
        poly1305_multiply(s.power[i], s.power[i / 2], s.power[(i - 1) / 2]);
    poly1305_multiply(s.power[15], s.power[7], s.power[7]);
    Powers sixteenth, eighth, last;
    set_power(sixteenth, s.power[15]);
    set_power(eighth, s.power[7]);
    // Lanes hold blocks 0, 4, 1, 5, 2, 6, 3, 7, and block b of the last eight is multiplied by r^(8 - b).
    constexpr size_t kOrder[8] = {7, 3, 6, 2, 5, 1, 4, 0};
    for (size_t j = 0; j < 3; j++) {
        for (size_t i = 0; i < 8; i++)
            s.lanes[j][i] = s.power[kOrder[i]][j];
    }

    // Two sums that do not wait for each other take eight blocks each in turn.
    Eight first, second, block;
    load(first, data);
    load(second, data + 128);
    for (size_t j = 0; j < 3; j++)
        first.limb[j] =
            _mm512_add_epi64(first.limb[j], _mm512_maskz_set1_epi64(1, static_cast<long long>(h[j])));
    data += 256;
    blocks -= 16;
    for (; blocks >= 16; data += 256, blocks -= 16) {
        multiply(first, sixteenth);
        multiply(second, sixteenth);
        load(block, data);
        add(first, block);
        load(block, data + 128);
        add(second, block);
    }
    multiply(first, eighth);
    add(first, second);
    if (blocks > 0) {
        multiply(first, eighth);
        load(block, data);
        add(first, block);
    }
    for (size_t j = 0; j < 3; j++)
        last.r[j] = _mm512_load_si512(s.lanes[j]);
    set_multiples(last);
    multiply(first, last);
    for (size_t j = 0; j < 3; j++) {
        _mm512_store_si512(s.lanes[j], first.limb[j]);
        h[j] = 0;
        for (size_t i = 0; i < 8; i++)
            h[j] += s.lanes[j][i];
    }
    // Sums of eight: once round.
    h[1] += h[0] >> 44;
    h[0] &= kPoly1305Mask44;
    h[2] += h[1] >> 44;
    h[1] &= kPoly1305Mask44;
    h[0] += (h[2] >> 42) * 5;
    h[2] &= kPoly1305Mask42;
    _mm256_zeroall();
}

} // namespace zul
#endif
