#include "cipher/poly1305.h"

#include <cstring>

#include "cipher/poly1305_kernels.h"

namespace zul {
namespace {

uint64_t load(const uint8_t* bytes) {
    uint64_t value;
    memcpy(&value, bytes, sizeof value);
    return value;
}

constexpr uint64_t kWholeBlock = uint64_t{1} << 40; // 2^128, in limb 2

} // namespace

Poly1305::Poly1305(const uint8_t* key) {
    State& s = *state_;
    const uint64_t low = load(key) & 0x0FFFFFFC0FFFFFFF, high = load(key + 8) & 0x0FFFFFFC0FFFFFFC;
    s.r[0] = low & kPoly1305Mask44;
    s.r[1] = (low >> 44 | high << 20) & kPoly1305Mask44;
    s.r[2] = high >> 24;
    s.pad[0] = load(key + 16);
    s.pad[1] = load(key + 24);
}

void Poly1305::absorb(const uint8_t* data, size_t blocks, uint64_t highBit) {
    State& s = *state_;
#if ZUL_X86_64
    if (blocks >= 32 && cpu_has(kCpuAvx512 | kCpuAvx512Ifma)) {
        const size_t together = blocks & ~size_t{7};
        poly1305_ifma(s.h, s.r, data, together);
        data += together * kPoly1305Block;
        blocks -= together;
    }
#endif
    for (; blocks > 0; blocks--, data += kPoly1305Block) {
        const uint64_t low = load(data), high = load(data + 8);
        s.h[0] += low & kPoly1305Mask44;
        s.h[1] += (low >> 44 | high << 20) & kPoly1305Mask44;
        s.h[2] += (high >> 24) | highBit;
        poly1305_multiply(s.h, s.h, s.r);
    }
}

void Poly1305::absorb_padded(const uint8_t* data, size_t size) {
    absorb(data, size / kPoly1305Block, kWholeBlock);
    if (const size_t rest = size % kPoly1305Block) {
        Secret<kPoly1305Block> block;
        memcpy(block.data(), data + (size - rest), rest);
        absorb(block.data(), 1, kWholeBlock);
    }
}

void Poly1305::absorb_last(const uint8_t* data, size_t size) {
    absorb(data, size / kPoly1305Block, kWholeBlock);
    if (const size_t rest = size % kPoly1305Block) {
        Secret<kPoly1305Block> block;
        memcpy(block.data(), data + (size - rest), rest);
        block[rest] = 1;
        absorb(block.data(), 1, 0);
    }
}

void Poly1305::finish(uint8_t* tag) {
    State& s = *state_;
    // Twice round, so that all limbs are below their bounds.
    for (int i = 0; i < 2; i++) {
        s.h[1] += s.h[0] >> 44;
        s.h[0] &= kPoly1305Mask44;
        s.h[2] += s.h[1] >> 44;
        s.h[1] &= kPoly1305Mask44;
        s.h[0] += (s.h[2] >> 42) * 5;
        s.h[2] &= kPoly1305Mask42;
    }
    s.h[1] += s.h[0] >> 44;
    s.h[0] &= kPoly1305Mask44;
    // h - p, if h is not below p
    uint64_t g[3];
    uint64_t carry = s.h[0] + 5;
    g[0] = carry & kPoly1305Mask44;
    carry = s.h[1] + (carry >> 44);
    g[1] = carry & kPoly1305Mask44;
    g[2] = s.h[2] + (carry >> 44);
    const uint64_t isNotBelow = 0 - (g[2] >> 42);
    for (int i = 0; i < 3; i++)
        s.h[i] = (s.h[i] & ~isNotBelow) | (g[i] & isNotBelow);
    s.h[2] &= kPoly1305Mask42;

    const uint64_t low = s.h[0] | s.h[1] << 44, high = s.h[1] >> 20 | s.h[2] << 24;
    const Poly1305Product sum = static_cast<Poly1305Product>(low) + s.pad[0];
    const uint64_t words[2] = {static_cast<uint64_t>(sum),
                               high + s.pad[1] + static_cast<uint64_t>(sum >> 64)};
    memcpy(tag, words, kPoly1305Tag);
    wipe_bytes(g, sizeof g);
}

} // namespace zul
