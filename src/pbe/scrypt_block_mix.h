#pragma once
#include <cstring>

#include "pbe/scrypt_kernels.h"

// scryptBlockMix for any processor that the compiler knows vectors of four words for; the kernel files
// compile it for their instruction sets.
namespace zul {

using ScryptWords = uint32_t __attribute__((vector_size(16)));

struct ScryptRotate {
    template<int n>
    static ZUL_ALWAYS_INLINE ScryptWords left(ScryptWords x) {
        return (x << n) | (x >> (32 - n));
    }
};

ZUL_ALWAYS_INLINE ScryptWords scrypt_load(const uint32_t* words) {
    ScryptWords x;
    memcpy(&x, words, sizeof x);
    return x;
}

// turn moves lane i + n to lane i.
template<int n>
ZUL_ALWAYS_INLINE ScryptWords scrypt_turn(ScryptWords x) {
#ifdef __clang__
    return __builtin_shufflevector(x, x, n, (n + 1) % 4, (n + 2) % 4, (n + 3) % 4);
#else
    return __builtin_shuffle(x, ScryptWords{n, (n + 1) % 4, (n + 2) % 4, (n + 3) % 4});
#endif
}

template<class Rotate>
ZUL_ALWAYS_INLINE void scrypt_mix_blocks(uint32_t* out, const uint32_t* in, const uint32_t* other, size_t r) {
    constexpr size_t kBlock = 16;
    ScryptWords x[4] = {};
    const auto add = [&](size_t block) __attribute__((always_inline)) {
        for (size_t i = 0; i < 4; i++)
            x[i] ^= scrypt_load(in + kBlock * block + 4 * i);
        if (other != nullptr) {
            for (size_t i = 0; i < 4; i++)
                x[i] ^= scrypt_load(other + kBlock * block + 4 * i);
        }
    };
    add(2 * r - 1);
    for (size_t block = 0; block < 2 * r; block++) {
        add(block);
        ScryptWords a = x[0], b = x[1], c = x[2], d = x[3];
#pragma GCC unroll 4
        for (int i = 0; i < 4; i++) { // Salsa20/8: columns, then rows
            b ^= Rotate::template left<7>(a + d);
            c ^= Rotate::template left<9>(b + a);
            d ^= Rotate::template left<13>(c + b);
            a ^= Rotate::template left<18>(d + c);
            b = scrypt_turn<3>(b);
            c = scrypt_turn<2>(c);
            d = scrypt_turn<1>(d);
            d ^= Rotate::template left<7>(a + b);
            c ^= Rotate::template left<9>(d + a);
            b ^= Rotate::template left<13>(c + d);
            a ^= Rotate::template left<18>(b + c);
            b = scrypt_turn<1>(b);
            c = scrypt_turn<2>(c);
            d = scrypt_turn<3>(d);
        }
        x[0] += a;
        x[1] += b;
        x[2] += c;
        x[3] += d;
        memcpy(out + kBlock * (block / 2 + block % 2 * r), x, sizeof x);
    }
}

} // namespace zul
