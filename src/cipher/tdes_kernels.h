#pragma once
#include "cipher/tdes.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

// Each bit of the key bundle as a mask, twice so that a 128-bit register can be loaded as it stands. Bit b of
// byte i of a key has number 8*i + b.
struct TdesBitKey {
    alignas(16) uint64_t masks[3][64][2];
};

constexpr size_t kTdesMaxLanes = 512;

// One width of bit-sliced Triple DES. crypt works in place on a batch of exactly `lanes` blocks, aligned to
// their size or to 64 bytes. From `least` blocks on a batch is cheaper than one block after the other.
struct TdesKernel {
    const char* name;
    size_t lanes;
    size_t least;
    void (*crypt)(const TdesBitKey& key, bool decrypt, uint64_t* batch);
};

void tdes_bit_key(TdesBitKey& bits, const TdesKey& key);

extern const TdesKernel kTdesPortable;

#if ZUL_X86_64
extern const TdesKernel kTdesSse2; // part of every x86-64 processor
extern const TdesKernel kTdesAvx2;
extern const TdesKernel kTdesAvx512;

inline bool tdes_avx2_usable() {
    return cpu_has(kCpuAvx2);
}
inline bool tdes_avx512_usable() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
#endif

} // namespace zul
