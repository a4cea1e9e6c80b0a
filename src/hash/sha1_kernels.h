#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/cpu.h"
#include "platform/target.h"

// The kernels of SHA-1 absorb whole blocks of 64 bytes into a state. Those for x86-64 may be called only
// where the predicate beside them holds.
namespace zul {

void sha1_compress_portable(uint32_t state[5], const uint8_t* data, size_t blocks);

#if ZUL_X86_64
inline bool sha1_has_shani() {
    return cpu_has(kCpuShani | kCpuSsse3);
}
void sha1_compress_shani(uint32_t state[5], const uint8_t* data, size_t blocks);
// Two messages side by side: the rounds of one leave the processor's units free for those of the other.
void sha1_compress_two_shani(uint32_t first[5], const uint8_t* firstData, uint32_t second[5],
                             const uint8_t* secondData, size_t blocks);

inline bool sha1_has_avx2() {
    return cpu_has(kCpuAvx2);
}
void sha1_compress_avx2(uint32_t state[5], const uint8_t* data, size_t blocks);
#endif

} // namespace zul
