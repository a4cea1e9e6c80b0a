#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/target.h"

// Truth values as masks (all ones or zero), for decisions on secrets without secret branches or addresses.
namespace zul {

// opaque hides a value from the optimiser, which could otherwise turn a mask into a branch.
inline uint32_t opaque(uint32_t value) {
    __asm__("" : "+r"(value));
    return value;
}

// ct_declassify passes on a result of secrets that is told to all, so that branches on it are right. A test
// that follows secrets takes note of it.
#ifdef ZUL_CONSTANT_TIME_TEST
void ct_mark_public(const void* value, size_t size);
#endif
template<class T>
ZUL_ALWAYS_INLINE T ct_declassify(T value) {
#ifdef ZUL_CONSTANT_TIME_TEST
    ct_mark_public(&value, sizeof value);
#endif
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

// bytes_equal compares in a time that depends on the size alone. Its result is told to all.
ZUL_ALWAYS_INLINE bool bytes_equal(const uint8_t* a, const uint8_t* b, size_t size) {
    uint32_t difference = 0;
    for (size_t i = 0; i < size; i++)
        difference |= static_cast<uint32_t>(a[i] ^ b[i]);
    return ct_declassify(mask_zero(difference)) != 0;
}

} // namespace zul
