#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/target.h"

// Integers of a fixed number of 64-bit limbs, the lowest first. Nothing here branches on a value or uses one
// as an index, so all of it may work on secrets; all of it can be computed at compile time.
namespace zul {

__extension__ typedef unsigned __int128 DoubleLimb;
__extension__ typedef __int128 SignedDoubleLimb;

template<size_t N>
using Limbs = std::array<uint64_t, N>;

constexpr size_t kLimbBytes = 8;

constexpr ZUL_ALWAYS_INLINE uint64_t add_carry(uint64_t a, uint64_t b, uint64_t& carry) {
    const DoubleLimb sum = static_cast<DoubleLimb>(a) + b + carry;
    carry = static_cast<uint64_t>(sum >> 64);
    return static_cast<uint64_t>(sum);
}

constexpr ZUL_ALWAYS_INLINE uint64_t subtract_borrow(uint64_t a, uint64_t b, uint64_t& borrow) {
    const DoubleLimb difference = static_cast<DoubleLimb>(a) - b - borrow;
    borrow = static_cast<uint64_t>(difference >> 64) & 1;
    return static_cast<uint64_t>(difference);
}

// multiply_add gives the low limb of a + b * c + high, which cannot overflow, and leaves the high limb in
// high.
constexpr ZUL_ALWAYS_INLINE uint64_t multiply_add(uint64_t a, uint64_t b, uint64_t c, uint64_t& high) {
    const DoubleLimb sum = static_cast<DoubleLimb>(b) * c + a + high;
    high = static_cast<uint64_t>(sum >> 64);
    return static_cast<uint64_t>(sum);
}

// value_barrier gives its argument. At run time the optimiser does not see through it, lest it makes a branch
// of a mask.
template<class Integer>
constexpr ZUL_ALWAYS_INLINE Integer value_barrier(Integer value) {
    if (!__builtin_is_constant_evaluated())
        __asm__("" : "+r"(value));
    return value;
}

// limb_mask is all ones if value is not 0, else 0.
constexpr ZUL_ALWAYS_INLINE uint64_t limb_mask(uint64_t value) {
    return value_barrier(0 - ((value | (0 - value)) >> 63));
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE uint64_t limbs_add(Limbs<N>& sum, const Limbs<N>& a, const Limbs<N>& b) {
    uint64_t carry = 0;
#pragma GCC unroll 16
    for (size_t i = 0; i < N; i++)
        sum[i] = add_carry(a[i], b[i], carry);
    return carry;
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE uint64_t limbs_subtract(Limbs<N>& difference, const Limbs<N>& a,
                                                    const Limbs<N>& b) {
    uint64_t borrow = 0;
#pragma GCC unroll 16
    for (size_t i = 0; i < N; i++)
        difference[i] = subtract_borrow(a[i], b[i], borrow);
    return borrow;
}

// limbs_select gives a where mask is all ones, b where it is 0.
template<size_t N>
constexpr ZUL_ALWAYS_INLINE void limbs_select(Limbs<N>& result, uint64_t mask, const Limbs<N>& a,
                                              const Limbs<N>& b) {
#pragma GCC unroll 16
    for (size_t i = 0; i < N; i++)
        result[i] = (a[i] & mask) | (b[i] & ~mask);
}

// limbs_nonzero_mask is all ones if any limb is not 0.
template<size_t N>
constexpr ZUL_ALWAYS_INLINE uint64_t limbs_nonzero_mask(const Limbs<N>& a) {
    uint64_t all = 0;
    for (const uint64_t limb : a)
        all |= limb;
    return limb_mask(all);
}

// limbs_below tells whether a < b.
template<size_t N>
constexpr bool limbs_below(const Limbs<N>& a, const Limbs<N>& b) {
    Limbs<N> difference{};
    return limbs_subtract(difference, a, b) != 0;
}

// limbs_read and limbs_write convert big-endian bytes; size is at most N limbs.
template<size_t N>
constexpr void limbs_read(Limbs<N>& a, const uint8_t* bytes, size_t size) {
    a = {};
    for (size_t i = 0; i < size; i++)
        a[i / kLimbBytes] |= static_cast<uint64_t>(bytes[size - 1 - i]) << 8 * (i % kLimbBytes);
}

template<size_t N>
constexpr void limbs_write(uint8_t* bytes, size_t size, const Limbs<N>& a) {
    for (size_t i = 0; i < size; i++)
        bytes[size - 1 - i] = static_cast<uint8_t>(a[i / kLimbBytes] >> 8 * (i % kLimbBytes));
}

// limbs_bits gives count (at most 32) bits from position; bits above the number are 0.
template<size_t N>
constexpr uint32_t limbs_bits(const Limbs<N>& a, size_t position, size_t count) {
    const size_t limb = position / 64, shift = position % 64;
    uint64_t bits = limb < N ? a[limb] >> shift : 0;
    if (shift + count > 64 && limb + 1 < N)
        bits |= a[limb + 1] << (64 - shift);
    return static_cast<uint32_t>(bits & ((uint64_t{1} << count) - 1));
}

} // namespace zul
