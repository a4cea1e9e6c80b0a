#pragma once
#include "cipher/poly1305.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

__extension__ typedef unsigned __int128 Poly1305Product;

constexpr uint64_t kPoly1305Mask44 = (uint64_t{1} << 44) - 1, kPoly1305Mask42 = (uint64_t{1} << 42) - 1;

// poly1305_multiply gives a b modulo 2^130 - 5, with limbs of at most 44 bits and a little.
inline void poly1305_multiply(uint64_t h[3], const uint64_t a[3], const uint64_t r[3]) {
    using Wide = Poly1305Product;
    const uint64_t s1 = r[1] * 20, s2 = r[2] * 20; // 2^132 is 20
    const Wide d0 =
        static_cast<Wide>(a[0]) * r[0] + static_cast<Wide>(a[1]) * s2 + static_cast<Wide>(a[2]) * s1;
    Wide d1 = static_cast<Wide>(a[0]) * r[1] + static_cast<Wide>(a[1]) * r[0] + static_cast<Wide>(a[2]) * s2;
    Wide d2 =
        static_cast<Wide>(a[0]) * r[2] + static_cast<Wide>(a[1]) * r[1] + static_cast<Wide>(a[2]) * r[0];
    h[0] = static_cast<uint64_t>(d0) & kPoly1305Mask44;
    d1 += static_cast<uint64_t>(d0 >> 44);
    h[1] = static_cast<uint64_t>(d1) & kPoly1305Mask44;
    d2 += static_cast<uint64_t>(d1 >> 44);
    h[2] = static_cast<uint64_t>(d2) & kPoly1305Mask42;
    h[0] += static_cast<uint64_t>(d2 >> 42) * 5;
    h[1] += h[0] >> 44;
    h[0] &= kPoly1305Mask44;
}

#if ZUL_X86_64
// poly1305_ifma absorbs a number of blocks divisible by 8, at least 16.
void poly1305_ifma(uint64_t h[3], const uint64_t r[3], const uint8_t* data, size_t blocks);
#endif

} // namespace zul
