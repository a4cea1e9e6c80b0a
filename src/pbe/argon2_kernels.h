#pragma once
#include "pbe/argon2_segment.h"
#include "platform/cpu.h"

namespace zul {

struct Argon2Scratch {
    Argon2Block sum, mixed;
};

// One application of the compression function G: next = G(previous, reference), added to what next holds by
// exclusive or if keeps. next may be previous. Where segment is not null, the first word of next chooses the
// reference of the block at index of it, which may be fetched while the rest of next is computed.
struct Argon2Step {
    Argon2Block* next;
    const Argon2Block *previous, *reference;
    bool keeps;
    const Argon2Segment* segment;
    uint32_t index;
};

// The kernels for x86-64 may be called only where the predicate beside them holds.
using Argon2Compress = void(const Argon2Step& step, Argon2Scratch& scratch);

Argon2Compress argon2_compress_portable;

#if ZUL_X86_64
inline bool argon2_has_avx2() {
    return cpu_has(kCpuAvx2);
}
Argon2Compress argon2_compress_avx2;

inline bool argon2_has_avx512() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
Argon2Compress argon2_compress_avx512;
#endif

} // namespace zul
