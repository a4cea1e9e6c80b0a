#pragma once
#include "cipher/tdes.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

// Each bit of the key bundle as a mask, twice so that a 128-bit register can be loaded as it stands. Bit b of
// byte i of a key has number 8*i + b.
struct TdesBitKey {
    union {
        alignas(16) uint64_t masks[3][64][2];
        uint32_t groups[8][64]; // the form of tdes_vbmi_x86.cpp
    };
};

constexpr size_t kTdesMaxLanes = 512;

// One width of Triple DES on many blocks. crypt works in place on a batch of exactly `lanes` blocks, aligned
// to their size or to 64 bytes. From `least` blocks on a batch is cheaper than one block after the other.
struct TdesKernel {
    const char* name;
    size_t lanes;
    size_t least;
    void (*set_key)(TdesBitKey& prepared, const TdesKey& key);
    void (*crypt)(const TdesBitKey& key, bool decrypt, uint64_t* batch);
};

void tdes_bit_key(TdesBitKey& bits, const TdesKey& key);

extern const TdesKernel kTdesPortable;

#if ZUL_X86_64
extern const TdesKernel kTdesSse2; // part of every x86-64 processor
extern const TdesKernel kTdesAvx2;
extern const TdesKernel kTdesAvx512;
extern const TdesKernel kTdesVbmi;    // S-boxes as byte permutations
constexpr size_t kTdesVbmiMost = 320; // blocks, from which bit slices take less time

inline bool tdes_avx2_usable() {
    return cpu_has(kCpuAvx2);
}
inline bool tdes_avx512_usable() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
inline bool tdes_vbmi_usable() {
    return cpu_has(kCpuAvx2 | kCpuAvx512 | kCpuAvx512Vbmi);
}
#endif

} // namespace zul
