#pragma once
#include <cstddef>
#include <cstdint>

// Truth values as masks (all ones or zero), for decisions on secrets without secret branches or addresses.
namespace zul {

// opaque hides a value from the optimiser, which could otherwise turn a mask into a branch.
inline uint32_t opaque(uint32_t value) {
    __asm__("" : "+r"(value));
    return value;
}

inline uint32_t mask_zero(uint32_t value) {
    return opaque(0u - ((~value & (value - 1)) >> 31));
}
inline uint32_t mask_equal(uint32_t a, uint32_t b) {
    return mask_zero(a ^ b);
}
// Both below 2^31.
inline uint32_t mask_less(size_t a, size_t b) {
    return opaque(0u - ((static_cast<uint32_t>(a) - static_cast<uint32_t>(b)) >> 31));
}

// bytes_equal compares in a time that depends on the size alone.
inline bool bytes_equal(const uint8_t* a, const uint8_t* b, size_t size) {
    uint32_t difference = 0;
    for (size_t i = 0; i < size; i++)
        difference |= static_cast<uint32_t>(a[i] ^ b[i]);
    return mask_zero(difference) != 0;
}

} // namespace zul
