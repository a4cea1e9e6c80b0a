#pragma once
#include "ec/modular_inverse.h"

// The field of Curve25519 and Ed25519 (RFC 7748, 4.1): p = 2^255 - 19, in five digits of 51 bits. What lies
// above 2^255 comes back at the low end, 19 times.
namespace zul {

struct Field25519 {
    static constexpr size_t kLimbs = 5;
    using Element = Limbs<kLimbs>; // digits of at most 2^51 + 2^15, unless a function says otherwise

    static constexpr size_t kDigitBits = 51, kBytes = 32;
    static constexpr uint64_t kDigitMask = (uint64_t{1} << kDigitBits) - 1;
    static constexpr Limbs<4> kPrime = {0xFFFFFFFFFFFFFFED, ~uint64_t{0}, ~uint64_t{0}, 0x7FFFFFFFFFFFFFFF};
    static constexpr Element kOne = {1};

    // carry brings digits below 2^61 down, each by what its lower neighbour has too much.
    static constexpr ZUL_ALWAYS_INLINE void carry(Element& a) {
        uint64_t below = 19 * (a[kLimbs - 1] >> kDigitBits);
#pragma GCC unroll 8
        for (size_t i = 0; i < kLimbs; i++) {
            const uint64_t high = a[i] >> kDigitBits;
            a[i] = (a[i] & kDigitMask) + below;
            below = high;
        }
    }

    // add does not carry: its digits may have 53 bits, and a product takes that.
    static constexpr ZUL_ALWAYS_INLINE void add(Element& sum, const Element& a, const Element& b) {
#pragma GCC unroll 8
        for (size_t i = 0; i < kLimbs; i++)
            sum[i] = a[i] + b[i];
    }
    // subtract takes digits of up to 53 bits.
    static constexpr ZUL_ALWAYS_INLINE void subtract(Element& difference, const Element& a,
                                                     const Element& b) {
        // 8p, digit by digit.
#pragma GCC unroll 8
        for (size_t i = 0; i < kLimbs; i++)
            difference[i] = a[i] + ((kDigitMask - (i == 0 ? 18 : 0)) << 3) - b[i];
        carry(difference);
    }

    static constexpr ZUL_ALWAYS_INLINE void fold(Element& result, DoubleLimb (&columns)[kLimbs]) {
        DoubleLimb carried = 0;
#pragma GCC unroll 8
        for (size_t i = 0; i < kLimbs; i++) {
            carried += columns[i];
            result[i] = static_cast<uint64_t>(carried) & kDigitMask;
            carried >>= kDigitBits;
        }
        carried = carried * 19 + result[0];
        result[0] = static_cast<uint64_t>(carried) & kDigitMask;
        result[1] += static_cast<uint64_t>(carried >> kDigitBits);
    }

    // multiply takes digits of up to 54 bits: columns of five products below 2^(54 + 54 + 4.3).
    static constexpr ZUL_ALWAYS_INLINE void multiply(Element& product, const Element& a, const Element& b) {
        Element b19{};
#pragma GCC unroll 8
        for (size_t i = 1; i < kLimbs; i++)
            b19[i] = 19 * b[i];
        DoubleLimb columns[kLimbs]{};
#pragma GCC unroll 8
        for (size_t k = 0; k < kLimbs; k++) {
            DoubleLimb sum = 0;
#pragma GCC unroll 8
            for (size_t i = 0; i < kLimbs; i++)
                sum += static_cast<DoubleLimb>(a[i]) * (i <= k ? b[k - i] : b19[k + kLimbs - i]);
            columns[k] = sum;
        }
        fold(product, columns);
    }

    static constexpr ZUL_ALWAYS_INLINE void square(Element& product, const Element& a) {
        const uint64_t a0x2 = a[0] * 2, a1x2 = a[1] * 2, a2x2 = a[2] * 2;
        const uint64_t a3x19 = a[3] * 19, a4x19 = a[4] * 19, a4x38 = a[4] * 38;
        DoubleLimb columns[kLimbs] = {
            static_cast<DoubleLimb>(a[0]) * a[0] + static_cast<DoubleLimb>(a1x2) * a4x19 +
                static_cast<DoubleLimb>(a2x2) * a3x19,
            static_cast<DoubleLimb>(a0x2) * a[1] + static_cast<DoubleLimb>(a[2]) * a4x38 +
                static_cast<DoubleLimb>(a[3]) * a3x19,
            static_cast<DoubleLimb>(a0x2) * a[2] + static_cast<DoubleLimb>(a[1]) * a[1] +
                static_cast<DoubleLimb>(a[3]) * a4x38,
            static_cast<DoubleLimb>(a0x2) * a[3] + static_cast<DoubleLimb>(a1x2) * a[2] +
                static_cast<DoubleLimb>(a[4]) * a4x19,
            static_cast<DoubleLimb>(a0x2) * a[4] + static_cast<DoubleLimb>(a1x2) * a[3] +
                static_cast<DoubleLimb>(a[2]) * a[2]};
        fold(product, columns);
    }

    static constexpr ZUL_ALWAYS_INLINE void multiply_small(Element& product, const Element& a, uint32_t b) {
        DoubleLimb columns[kLimbs]{};
#pragma GCC unroll 8
        for (size_t i = 0; i < kLimbs; i++)
            columns[i] = static_cast<DoubleLimb>(a[i]) * b;
        fold(product, columns);
    }

    // from_integer takes a number below 2^255, which need not be below p.
    static constexpr Element from_integer(const Limbs<4>& a) {
        return {a[0] & kDigitMask, (a[0] >> 51 | a[1] << 13) & kDigitMask,
                (a[1] >> 38 | a[2] << 26) & kDigitMask, (a[2] >> 25 | a[3] << 39) & kDigitMask,
                (a[3] >> 12) & kDigitMask};
    }

    // to_integer gives the one number below p.
    static constexpr Limbs<4> to_integer(const Element& a) {
        Element t = a;
        for (int pass = 0; pass < 3; pass++) {
            uint64_t carried = 0;
            for (size_t i = 0; i < kLimbs; i++) {
                t[i] += carried;
                carried = t[i] >> kDigitBits;
                t[i] &= kDigitMask;
            }
            t[0] += 19 * carried;
        }
        Limbs<4> value = {t[0] | t[1] << 51, t[1] >> 13 | t[2] << 38, t[2] >> 26 | t[3] << 25,
                          t[3] >> 39 | t[4] << 12};
        Limbs<4> reduced{};
        const uint64_t borrow = limbs_subtract(reduced, value, kPrime);
        limbs_select(value, limb_mask(borrow), value, reduced);
        return value;
    }

    static constexpr void invert(Element& inverse, const Element& a) {
        Limbs<4> integer{};
        modular_inverse(integer, to_integer(a), kPrime, 255);
        inverse = from_integer(integer);
        if (!__builtin_is_constant_evaluated())
            wipe_bytes(&integer, sizeof integer);
    }
    static constexpr bool is_zero(const Element& a) {
        return limbs_nonzero_mask(to_integer(a)) == 0;
    }
};

// Little-endian bytes, as RFC 7748 and RFC 8032 have them.
constexpr Limbs<4> read_little_endian(const uint8_t* bytes) {
    Limbs<4> value{};
    for (size_t i = 0; i < 32; i++)
        value[i / kLimbBytes] |= static_cast<uint64_t>(bytes[i]) << 8 * (i % kLimbBytes);
    return value;
}
constexpr void write_little_endian(uint8_t* bytes, const Limbs<4>& value) {
    for (size_t i = 0; i < 32; i++)
        bytes[i] = static_cast<uint8_t>(value[i / kLimbBytes] >> 8 * (i % kLimbBytes));
}

} // namespace zul
