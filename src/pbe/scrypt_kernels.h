#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

// scryptBlockMix of RFC 7914 over 2 r blocks of 16 words, each in the order of kScryptOrder. The input is in,
// added to other by exclusive or unless that is null; out may be neither. The kernels for x86-64 may be
// called only where the predicate beside them holds.
using ScryptBlockMix = void(uint32_t* out, const uint32_t* in, const uint32_t* other, size_t r);

ScryptBlockMix scrypt_block_mix_portable;

#if ZUL_X86_64
inline bool scrypt_has_avx2() {
    return cpu_has(kCpuAvx2);
}
ScryptBlockMix scrypt_block_mix_avx2;

inline bool scrypt_has_avx512() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
ScryptBlockMix scrypt_block_mix_avx512;
#endif

// The diagonals of Salsa20's matrix, so that a round works on four vectors of four words.
constexpr uint8_t kScryptOrder[16] = {0, 5, 10, 15, 4, 9, 14, 3, 8, 13, 2, 7, 12, 1, 6, 11};

} // namespace zul
