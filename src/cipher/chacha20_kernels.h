#pragma once
#include "cipher/chacha20.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

// A kernel does whole groups of blocks and gives how many bytes it did; state[12] is the counter of the
// first.
using ChaChaKernel = size_t(uint8_t* out, const uint8_t* in, size_t size, const uint32_t state[16]);

constexpr size_t kChaChaAvx2Blocks = 8, kChaChaAvx512Blocks = 16; // in a group; with SSSE3 it is one

#if ZUL_X86_64
ChaChaKernel chacha20_ssse3, chacha20_avx2, chacha20_avx512;
#endif

// One double round over words or vectors of words.
template<class Word, class Rotate>
ZUL_ALWAYS_INLINE void chacha_double_round(Word (&x)[16], Rotate rotate) {
    const auto quarter = [&](int a, int b, int c, int d) __attribute__((always_inline)) {
        x[a] += x[b];
        x[d] = rotate(x[d] ^ x[a], 16);
        x[c] += x[d];
        x[b] = rotate(x[b] ^ x[c], 12);
        x[a] += x[b];
        x[d] = rotate(x[d] ^ x[a], 8);
        x[c] += x[d];
        x[b] = rotate(x[b] ^ x[c], 7);
    };
    quarter(0, 4, 8, 12);
    quarter(1, 5, 9, 13);
    quarter(2, 6, 10, 14);
    quarter(3, 7, 11, 15);
    quarter(0, 5, 10, 15);
    quarter(1, 6, 11, 12);
    quarter(2, 7, 8, 13);
    quarter(3, 4, 9, 14);
}

} // namespace zul
