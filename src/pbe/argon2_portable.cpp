#include <bit>

#include "pbe/argon2_kernels.h"

namespace zul {

namespace {

ZUL_ALWAYS_INLINE void add_product(uint64_t& a, uint64_t b) {
    a += b + 2 * uint64_t{static_cast<uint32_t>(a)} * static_cast<uint32_t>(b);
}

ZUL_ALWAYS_INLINE void mix(uint64_t& a, uint64_t& b, uint64_t& c, uint64_t& d) {
    add_product(a, b);
    d = std::rotr(d ^ a, 32);
    add_product(c, d);
    b = std::rotr(b ^ c, 24);
    add_product(a, b);
    d = std::rotr(d ^ a, 16);
    add_product(c, d);
    b = std::rotr(b ^ c, 63);
}

// permute is P over eight pairs of words, the second and every later one step words behind the one before.
void permute(uint64_t* words, size_t step) {
    const auto at = [&](size_t i) -> uint64_t& { return words[i / 2 * step + i % 2]; };
    for (size_t i = 0; i < 4; i++)
        mix(at(i), at(4 + i), at(8 + i), at(12 + i));
    for (size_t i = 0; i < 4; i++)
        mix(at(i), at(4 + (i + 1) % 4), at(8 + (i + 2) % 4), at(12 + (i + 3) % 4));
}

} // namespace

void argon2_compress_portable(const Argon2Step& step, Argon2Scratch& scratch) {
    uint64_t *const sum = scratch.sum.words, *const mixed = scratch.mixed.words,
                    *const next = step.next->words;
    for (size_t i = 0; i < 128; i++) {
        mixed[i] = step.previous->words[i] ^ step.reference->words[i];
        sum[i] = step.keeps ? mixed[i] ^ next[i] : mixed[i];
    }
    for (size_t row = 0; row < 8; row++)
        permute(mixed + 16 * row, 2);
    for (size_t column = 0; column < 8; column++)
        permute(mixed + 2 * column, 16);
    for (size_t i = 0; i < 128; i++)
        next[i] = sum[i] ^ mixed[i];
}

} // namespace zul
