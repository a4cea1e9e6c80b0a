#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/cpu.h"
#include "platform/target.h"

// The kernels of SHA-512 absorb whole blocks of 128 bytes into a state. Those for x86-64 may be called only
// where the predicate beside them holds.
namespace zul {

void sha512_compress_portable(uint64_t state[8], const uint8_t* data, size_t blocks);

#if ZUL_X86_64
inline bool sha512_has_avx2() {
    return cpu_has(kCpuAvx2);
}
void sha512_compress_avx2(uint64_t state[8], const uint8_t* data, size_t blocks);

inline bool sha512_has_avx512() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
void sha512_compress_avx512(uint64_t state[8], const uint8_t* data, size_t blocks);
#endif

} // namespace zul
