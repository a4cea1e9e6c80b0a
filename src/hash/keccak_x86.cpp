#include "hash/keccak.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {

ZUL_TARGET_AVX2 void keccak_absorb_bmi(uint64_t (&lanes)[25], const uint8_t* data, size_t rate,
                                       size_t blocks) {
    keccak_absorb_here(lanes, data, rate, blocks);
}

namespace {

// A lane is the low half of a vector register, of which there are more than the state has lanes. Exclusive or
// and chi of three lanes are one instruction each.
using Lane = __m128i;

ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE Lane load_lane(const uint64_t& lane) {
    return _mm_loadl_epi64(reinterpret_cast<const Lane*>(&lane));
}

ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE Lane sum(Lane a, Lane b, Lane c) {
    return _mm_ternarylogic_epi64(a, b, c, 0x96);
}

// Keeps the compiler from mixing the steps, for which the registers would not do.
ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE void finish_step(Lane& a, Lane& b, Lane& c, Lane& d, Lane& e) {
    __asm__("" : "+v"(a), "+v"(b), "+v"(c), "+v"(d), "+v"(e));
}

// A row of the next state, as by keccak_row.
template<int s0, int r0, int s1, int r1, int s2, int r2, int s3, int r3, int s4, int r4>
ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE void make_row(Lane* row, const Lane (&a)[25]) {
    const Lane b0 = _mm_rol_epi64(a[s0], r0);
    const Lane b1 = _mm_rol_epi64(a[s1], r1);
    const Lane b2 = _mm_rol_epi64(a[s2], r2);
    const Lane b3 = _mm_rol_epi64(a[s3], r3);
    const Lane b4 = _mm_rol_epi64(a[s4], r4);
    constexpr int kChi = 0xD2;
    row[0] = _mm_ternarylogic_epi64(b0, b1, b2, kChi);
    row[1] = _mm_ternarylogic_epi64(b1, b2, b3, kChi);
    row[2] = _mm_ternarylogic_epi64(b2, b3, b4, kChi);
    row[3] = _mm_ternarylogic_epi64(b3, b4, b0, kChi);
    row[4] = _mm_ternarylogic_epi64(b4, b0, b1, kChi);
    finish_step(row[0], row[1], row[2], row[3], row[4]);
}

ZUL_TARGET_AVX512 ZUL_ALWAYS_INLINE void make_round(Lane (&a)[25], Lane constant) {
    Lane c[5], e[25];
#pragma GCC unroll 5
    for (int x = 0; x < 5; x++)
        c[x] = sum(sum(a[x], a[x + 5], a[x + 10]), a[x + 15], a[x + 20]);
    finish_step(c[0], c[1], c[2], c[3], c[4]);
#pragma GCC unroll 5
    for (int x = 0; x < 5; x++) {
        const Lane left = c[(x + 4) % 5], right = _mm_rol_epi64(c[(x + 1) % 5], 1);
#pragma GCC unroll 5
        for (int i = x; i < 25; i += 5)
            a[i] = sum(a[i], left, right);
        finish_step(a[x], a[x + 5], a[x + 10], a[x + 15], a[x + 20]);
    }
    make_row<0, 0, 6, 44, 12, 43, 18, 21, 24, 14>(e, a);
    make_row<3, 28, 9, 20, 10, 3, 16, 45, 22, 61>(e + 5, a);
    make_row<1, 1, 7, 6, 13, 25, 19, 8, 20, 18>(e + 10, a);
    make_row<4, 27, 5, 36, 11, 10, 17, 15, 23, 56>(e + 15, a);
    make_row<2, 62, 8, 55, 14, 39, 15, 41, 21, 2>(e + 20, a);
    e[0] = _mm_xor_si128(e[0], constant);
#pragma GCC unroll 25
    for (int i = 0; i < 25; i++)
        a[i] = e[i];
}

} // namespace

ZUL_TARGET_AVX512 void keccak_absorb_avx512(uint64_t (&lanes)[25], const uint8_t* data, size_t rate,
                                            size_t blocks) {
    for (; blocks > 0; blocks--, data += rate) {
        keccak_add_block(lanes, data, rate);
        Lane a[25];
#pragma GCC unroll 25
        for (int i = 0; i < 25; i++)
            a[i] = load_lane(lanes[i]);
#pragma GCC unroll 1
        for (const uint64_t& constant : kKeccakRounds)
            make_round(a, load_lane(constant));
#pragma GCC unroll 25
        for (int i = 0; i < 25; i++)
            _mm_storel_epi64(reinterpret_cast<Lane*>(&lanes[i]), a[i]);
    }
}

} // namespace zul
#endif
