#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/wipe.h"
#include "platform/cpu.h"
#include "platform/target.h"

// Keccak-f[1600] (FIPS 202, 3). One text, compiled for two sets of instructions, and one with vectors.
namespace zul {

constexpr uint64_t kKeccakRounds[24] = {
    0x0000000000000001, 0x0000000000008082, 0x800000000000808A, 0x8000000080008000, 0x000000000000808B,
    0x0000000080000001, 0x8000000080008081, 0x8000000000008009, 0x000000000000008A, 0x0000000000000088,
    0x0000000080008009, 0x000000008000000A, 0x000000008000808B, 0x800000000000008B, 0x8000000000008089,
    0x8000000000008003, 0x8000000000008002, 0x8000000000000080, 0x000000000000800A, 0x800000008000000A,
    0x8000000080008081, 0x8000000000008080, 0x0000000080000001, 0x8000000080008008};

template<int bits>
ZUL_ALWAYS_INLINE uint64_t keccak_rotate(uint64_t a) {
    return a << bits | a >> ((64 - bits) % 64);
}

// keccak_row gives a row of the next state from the five lanes that pi puts there, each with its rotation.
template<int s0, int r0, int s1, int r1, int s2, int r2, int s3, int r3, int s4, int r4>
ZUL_ALWAYS_INLINE void keccak_row(uint64_t* row, const uint64_t (&a)[25], const uint64_t (&d)[5]) {
    const uint64_t b0 = keccak_rotate<r0>(a[s0] ^ d[s0 % 5]);
    const uint64_t b1 = keccak_rotate<r1>(a[s1] ^ d[s1 % 5]);
    const uint64_t b2 = keccak_rotate<r2>(a[s2] ^ d[s2 % 5]);
    const uint64_t b3 = keccak_rotate<r3>(a[s3] ^ d[s3 % 5]);
    const uint64_t b4 = keccak_rotate<r4>(a[s4] ^ d[s4 % 5]);
    row[0] = b0 ^ (~b1 & b2);
    row[1] = b1 ^ (~b2 & b3);
    row[2] = b2 ^ (~b3 & b4);
    row[3] = b3 ^ (~b4 & b0);
    row[4] = b4 ^ (~b0 & b1);
}

ZUL_ALWAYS_INLINE void keccak_round(uint64_t (&e)[25], const uint64_t (&a)[25], uint64_t constant) {
    uint64_t c[5], d[5];
#pragma GCC unroll 5
    for (int x = 0; x < 5; x++)
        c[x] = a[x] ^ a[x + 5] ^ a[x + 10] ^ a[x + 15] ^ a[x + 20];
#pragma GCC unroll 5
    for (int x = 0; x < 5; x++)
        d[x] = c[(x + 4) % 5] ^ keccak_rotate<1>(c[(x + 1) % 5]);
    keccak_row<0, 0, 6, 44, 12, 43, 18, 21, 24, 14>(e, a, d);
    keccak_row<3, 28, 9, 20, 10, 3, 16, 45, 22, 61>(e + 5, a, d);
    keccak_row<1, 1, 7, 6, 13, 25, 19, 8, 20, 18>(e + 10, a, d);
    keccak_row<4, 27, 5, 36, 11, 10, 17, 15, 23, 56>(e + 15, a, d);
    keccak_row<2, 62, 8, 55, 14, 39, 15, 41, 21, 2>(e + 20, a, d);
    e[0] ^= constant;
}

ZUL_ALWAYS_INLINE void keccak_add_block(uint64_t (&lanes)[25], const uint8_t* data, size_t rate) {
    for (size_t i = 0; i < rate / 8; i++) {
        uint64_t lane; // the processors here are little-endian, as the state is
        memcpy(&lane, data + 8 * i, sizeof lane);
        lanes[i] ^= lane;
    }
}

// keccak_absorb adds blocks of rate bytes to the state and permutes it after each; with a rate of 0 it
// permutes only. It wipes what it leaves. The second state is its own variable, which the compiler knows to
// be apart.
ZUL_ALWAYS_INLINE void keccak_absorb_here(uint64_t (&lanes)[25], const uint8_t* data, size_t rate,
                                          size_t blocks) {
    uint64_t other[25];
    for (; blocks > 0; blocks--, data += rate) {
        keccak_add_block(lanes, data, rate);
        for (int round = 0; round < 24; round += 2) {
            keccak_round(other, lanes, kKeccakRounds[round]);
            keccak_round(lanes, other, kKeccakRounds[round + 1]);
        }
    }
    wipe_object(other);
}

using KeccakAbsorb = void(uint64_t (&lanes)[25], const uint8_t* data, size_t rate, size_t blocks);

#if ZUL_X86_64
KeccakAbsorb keccak_absorb_bmi; // with ANDN and RORX
KeccakAbsorb keccak_absorb_avx512;
#endif

} // namespace zul
