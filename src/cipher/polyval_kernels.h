#pragma once
#include "cipher/polyval.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

struct PolyvalKernel {
    // multiply gives a b x^-128.
    void (*multiply)(uint64_t product[2], const uint64_t a[2], const uint64_t b[2]);
    void (*update)(uint64_t state[2], const PolyvalKey& key, const uint8_t* blocks, size_t count);
};

extern const PolyvalKernel kPolyvalPortable; // constant time
#if ZUL_X86_64
extern const PolyvalKernel kPolyvalClmul, kPolyvalVclmul512;
#endif

} // namespace zul
