#pragma once
// DES (FIPS 46-3) on one block, for tdes.cpp. A half block is kept expanded: its eight overlapping groups of
// six bits, as the E table gives them, are the low bits of the eight bytes of a word, group 1 the highest.
// The S-box tables hold their output permuted and expanded already, so that a round is eight look-ups and the
// XOR of them. Time depends on the cache; the bit-sliced kernels look up nothing.
#include <cstddef>
#include <cstdint>

namespace zul {

constexpr size_t kDesBlock = 8;
constexpr size_t kDesScheduleWords = 18;

struct DesHalves {
    uint64_t left, right;
};

struct DesRoundTable {
    alignas(64) uint64_t entry[8][64]; // by byte of the word, then by group
};
extern const DesRoundTable kDesRoundTable;

// des_schedule makes the words that des_pass adds to the halves: K1, K2, then K1^K3, K2^K4 ... K14^K16, then
// K15, K16, each round key in the expanded layout. Read from the end they are the words of decryption.
void des_schedule(uint64_t words[kDesScheduleWords], const uint8_t key[8]);

// des_round returns half changed by the S-boxes of in. The empty statements keep the compiler from undoing
// what shortens the way from one round to the next: few shifts, two look-ups to each, and a sum that is a
// tree.
inline uint64_t des_round(uint64_t half, uint64_t in) {
    const auto& table = kDesRoundTable.entry;
    uint64_t in2 = in >> 16, in4 = in >> 32, in6 = in >> 48;
    __asm__("" : "+r"(in2), "+r"(in4), "+r"(in6));
    uint64_t a = half ^ table[0][in & 0xFF] ^ table[1][in >> 8 & 0xFF];
    uint64_t b = table[2][in2 & 0xFF] ^ table[3][in2 >> 8 & 0xFF];
    uint64_t c = table[4][in4 & 0xFF] ^ table[5][in4 >> 8 & 0xFF];
    uint64_t d = table[6][in6 & 0xFF] ^ table[7][in6 >> 8];
    __asm__("" : "+r"(a), "+r"(b), "+r"(c), "+r"(d));
    a ^= b;
    c ^= d;
    __asm__("" : "+r"(a), "+r"(c));
    return a ^ c;
}

// des_pass runs the 16 rounds between the initial and the final permutation, and the last exchange of the
// halves. Each half carries the key of the round that reads it next, so the key is never waited for. step is
// 1, or -1 with words at the last word to decrypt.
template<int step>
inline DesHalves des_pass(DesHalves block, const uint64_t* words) {
    uint64_t x = block.right ^ words[0];
    uint64_t y = block.left ^ words[step];
    for (int round = 0; round < 8; round++) {
        words += 2 * step;
        const uint64_t nextX = words[0], nextY = words[step];
        y = des_round(y, x);
        x = des_round(x ^ nextX, y);
        y ^= nextY;
    }
    return {x, y};
}

inline uint32_t des_load_word(const uint8_t* in) {
    return static_cast<uint32_t>(in[0]) << 24 | static_cast<uint32_t>(in[1]) << 16 |
           static_cast<uint32_t>(in[2]) << 8 | in[3];
}

inline void des_store_word(uint8_t* out, uint32_t word) {
    out[0] = static_cast<uint8_t>(word >> 24);
    out[1] = static_cast<uint8_t>(word >> 16);
    out[2] = static_cast<uint8_t>(word >> 8);
    out[3] = static_cast<uint8_t>(word);
}

constexpr uint64_t des_expand(uint32_t half) {
    constexpr uint64_t kLowBits = 0x0101010101010101;
    uint64_t n = half; // one nibble to each byte
    n = (n | n << 16) & 0x0000FFFF0000FFFF;
    n = (n | n << 8) & 0x00FF00FF00FF00FF;
    n = (n | n << 4) & 0x0F0F0F0F0F0F0F0F;
    return n << 1 | ((n >> 8 | n << 56) & kLowBits) << 5 | ((n << 8 | n >> 56) >> 3 & kLowBits);
}

constexpr uint32_t des_compress(uint64_t expanded) {
    uint64_t n = expanded >> 1 & 0x0F0F0F0F0F0F0F0F;
    n = (n | n >> 4) & 0x00FF00FF00FF00FF;
    n = (n | n >> 8) & 0x0000FFFF0000FFFF;
    return static_cast<uint32_t>(n | n >> 16);
}

// des_swap_bits exchanges the bits of a that mask selects, after a shift to the right, with those of b.
constexpr void des_swap_bits(uint32_t& a, uint32_t& b, int shift, uint32_t mask) {
    const uint32_t t = (a >> shift ^ b) & mask;
    b ^= t;
    a ^= t << shift;
}

// des_load reads a block through the initial permutation, des_store writes one through the final one.
inline DesHalves des_load(const uint8_t* in) {
    uint32_t l = des_load_word(in), r = des_load_word(in + 4);
    des_swap_bits(l, r, 4, 0x0F0F0F0F);
    des_swap_bits(l, r, 16, 0x0000FFFF);
    des_swap_bits(r, l, 2, 0x33333333);
    des_swap_bits(r, l, 8, 0x00FF00FF);
    des_swap_bits(l, r, 1, 0x55555555);
    return {des_expand(l), des_expand(r)};
}

inline void des_store(uint8_t* out, DesHalves block) {
    uint32_t l = des_compress(block.left), r = des_compress(block.right);
    des_swap_bits(l, r, 1, 0x55555555);
    des_swap_bits(r, l, 8, 0x00FF00FF);
    des_swap_bits(r, l, 2, 0x33333333);
    des_swap_bits(l, r, 16, 0x0000FFFF);
    des_swap_bits(l, r, 4, 0x0F0F0F0F);
    des_store_word(out, l);
    des_store_word(out + 4, r);
}

// Both permutations and the expansion are linear: chaining modes may add blocks in this form.
inline DesHalves operator^(DesHalves a, DesHalves b) {
    return {a.left ^ b.left, a.right ^ b.right};
}

} // namespace zul
