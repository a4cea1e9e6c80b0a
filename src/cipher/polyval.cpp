#include "cipher/polyval.h"

#include <algorithm>
#include <cstring>

#include "cipher/polyval_kernels.h"
#include "frame/wipe.h"

namespace zul {
namespace {

uint64_t reverse_bits(uint64_t x) {
    constexpr uint64_t kMasks[] = {0x5555555555555555, 0x3333333333333333, 0x0F0F0F0F0F0F0F0F};
    for (int i = 0; i < 3; i++)
        x = (x & kMasks[i]) << (1 << i) | (x >> (1 << i) & kMasks[i]);
    return __builtin_bswap64(x);
}

// multiply_low gives the low 64 bits of a product without carries. Bits that lie four apart add up to at most
// 16, and the only sum of 16 carries out at the top.
uint64_t multiply_low(uint64_t x, uint64_t y) {
    constexpr uint64_t kEveryFourth = 0x1111111111111111;
    uint64_t result = 0;
    for (int k = 0; k < 4; k++) {
        uint64_t sum = 0;
        for (int i = 0; i < 4; i++)
            sum ^= (x & kEveryFourth << i) * (y & kEveryFourth << ((k - i) & 3));
        result |= sum & kEveryFourth << k;
    }
    return result;
}

// multiply_wide gives both halves: the high one is the low one of the reversed factors, reversed.
void multiply_wide(uint64_t& low, uint64_t& high, uint64_t x, uint64_t y) {
    low = multiply_low(x, y);
    high = reverse_bits(multiply_low(reverse_bits(x), reverse_bits(y))) >> 1;
}

void multiply_portable(uint64_t product[2], const uint64_t a[2], const uint64_t b[2]) {
    uint64_t w0, w1, w2, w3, m0, m1;
    multiply_wide(w0, w1, a[0], b[0]);
    multiply_wide(w2, w3, a[1], b[1]);
    multiply_wide(m0, m1, a[0] ^ a[1], b[0] ^ b[1]);
    m0 ^= w0 ^ w2;
    m1 ^= w1 ^ w3;
    w1 ^= m0;
    w2 ^= m1;
    // Divided by x^128: x^128 + x^127 + x^126 + x^121 + 1 clears 64 bits at a time.
    const auto clear = [](uint64_t q, uint64_t& next, uint64_t& last) {
        next ^= q << 63 ^ q << 62 ^ q << 57;
        last ^= q ^ q >> 1 ^ q >> 2 ^ q >> 7;
    };
    clear(w0, w1, w2);
    clear(w1, w2, w3);
    product[0] = w2;
    product[1] = w3;
}

uint64_t load(const uint8_t* bytes, bool isReversed) {
    uint64_t value = 0;
    for (size_t i = 0; i < 8; i++)
        value |= static_cast<uint64_t>(bytes[isReversed ? 7 - i : i]) << 8 * i;
    return value;
}

void store(uint8_t* bytes, uint64_t value, bool isReversed) {
    for (size_t i = 0; i < 8; i++)
        bytes[isReversed ? 7 - i : i] = static_cast<uint8_t>(value >> 8 * i);
}

void update_portable(uint64_t state[2], const PolyvalKey& key, const uint8_t* blocks, size_t count) {
    for (; count > 0; count--, blocks += kPolyvalBlock) {
        state[0] ^= load(blocks + (key.isReversed ? 8 : 0), key.isReversed);
        state[1] ^= load(blocks + (key.isReversed ? 0 : 8), key.isReversed);
        multiply_portable(state, state, key.powers[PolyvalKey::kPowers - 1]);
    }
}

const PolyvalKernel& kernel() {
#if ZUL_X86_64
    if (cpu_has(kCpuClmul | kCpuSsse3 | kCpuVclmul | kCpuAvx512))
        return kPolyvalVclmul512;
    if (cpu_has(kCpuClmul | kCpuSsse3))
        return kPolyvalClmul;
#endif
    return kPolyvalPortable;
}

void make_powers(PolyvalKey& key, size_t blocks) {
    const PolyvalKernel& used = kernel();
    key.count = &used == &kPolyvalPortable ? 1 : std::clamp<size_t>(blocks, 1, PolyvalKey::kPowers);
    uint64_t(*const powers)[2] = key.powers;
    constexpr size_t kFirst = PolyvalKey::kPowers - 1;
    for (size_t i = 1; i < key.count; i++)
        used.multiply(powers[kFirst - i], powers[kFirst - i + 1], powers[kFirst]);
}

} // namespace

const PolyvalKernel kPolyvalPortable = {multiply_portable, update_portable};

void polyval_set_key(PolyvalKey& key, const uint8_t* h, size_t blocks) {
    key.isReversed = false;
    uint64_t* const first = key.powers[PolyvalKey::kPowers - 1];
    first[0] = load(h, false);
    first[1] = load(h + 8, false);
    make_powers(key, blocks);
}

void ghash_set_key(PolyvalKey& key, const uint8_t* h, size_t blocks) {
    key.isReversed = true;
    const uint64_t low = load(h + 8, true), high = load(h, true);
    const uint64_t carry = 0 - (high >> 63);
    uint64_t* const first = key.powers[PolyvalKey::kPowers - 1];
    first[0] = low << 1 ^ (carry & 1);
    first[1] = (high << 1 | low >> 63) ^ (carry & 0xC200000000000000);
    make_powers(key, blocks);
}

void polyval_update(uint64_t state[2], const PolyvalKey& key, const uint8_t* data, size_t size) {
    const PolyvalKernel& used = kernel();
    const size_t whole = size / kPolyvalBlock;
    if (whole > 0)
        used.update(state, key, data, whole);
    if (const size_t rest = size % kPolyvalBlock) {
        Secret<kPolyvalBlock> block;
        memcpy(block.data(), data + whole * kPolyvalBlock, rest);
        used.update(state, key, block.data(), 1);
    }
    constexpr size_t kPortableDepth = 512; // where the portable code leaves parts of the key
    if (&used == &kPolyvalPortable)
        wipe_dead_stack(kPortableDepth);
}

void polyval_write(uint8_t* out, const uint64_t state[2], const PolyvalKey& key) {
    store(out, state[key.isReversed ? 1 : 0], key.isReversed);
    store(out + 8, state[key.isReversed ? 0 : 1], key.isReversed);
}

} // namespace zul
