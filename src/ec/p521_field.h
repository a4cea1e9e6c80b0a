#pragma once
#include "ec/modular_inverse.h"
#include "ec/montgomery.h"

// The field of P-521 (SP 800-186, 3.2.1.5): p = 2^521 - 1. Nine digits of 58 bits leave room for carries, and
// what lies above 2^522 comes back at the low end, doubled.
namespace zul {

struct P521Field {
    static constexpr size_t kBits = 521;
    static constexpr size_t kLimbs = 9;
    using Element = Limbs<kLimbs>; // digits of at most 2^58 + 2^6, the whole below 2^523

    static constexpr size_t kDigitBits = 58;
    static constexpr uint64_t kDigitMask = (uint64_t{1} << kDigitBits) - 1;
    static constexpr Limbs<kLimbs> kPrime = {~uint64_t{0}, ~uint64_t{0}, ~uint64_t{0},
                                             ~uint64_t{0}, ~uint64_t{0}, ~uint64_t{0},
                                             ~uint64_t{0}, ~uint64_t{0}, 0x1FF};
    static constexpr Limbs<kLimbs> kIntegerB = {0xEF451FD46B503F00, 0x3573DF883D2C34F1, 0x1652C0BD3BB1BF07,
                                                0x56193951EC7E937B, 0xB8B489918EF109E1, 0xA2DA725B99B315F3,
                                                0x929A21A0B68540EE, 0x953EB9618E1C9A1F, 0x051};
    static constexpr Limbs<kLimbs> kIntegerX = {0xF97E7E31C2E5BD66, 0x3348B3C1856A429B, 0xFE1DC127A2FFA8DE,
                                                0xA14B5E77EFE75928, 0xF828AF606B4D3DBA, 0x9C648139053FB521,
                                                0x9E3ECB662395B442, 0x858E06B70404E9CD, 0x0C6};
    static constexpr Limbs<kLimbs> kIntegerY = {0x88BE94769FD16650, 0x353C7086A272C240, 0xC550B9013FAD0761,
                                                0x97EE72995EF42640, 0x17AFBD17273E662C, 0x98F54449579B4468,
                                                0x5C8A5FB42C7D1BD9, 0x39296A789A3BC004, 0x118};
    static constexpr MontgomeryModulus<kLimbs> kOrder = montgomery_modulus<kLimbs>(
        {0xBB6FB71E91386409, 0x3BB5C9B8899C47AE, 0x7FCC0148F709A5D0, 0x51868783BF2F966B, 0xFFFFFFFFFFFFFFFA,
         0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0x1FF});

    // carry brings digits below 2^63 down, each by what its lower neighbour has too much.
    static constexpr ZUL_ALWAYS_INLINE void carry(Element& a) {
        uint64_t below = (a[kLimbs - 1] >> kDigitBits) << 1;
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++) {
            const uint64_t high = a[i] >> kDigitBits;
            a[i] = (a[i] & kDigitMask) + below;
            below = high;
        }
    }

    static constexpr ZUL_ALWAYS_INLINE void add(Element& sum, const Element& a, const Element& b) {
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++)
            sum[i] = a[i] + b[i];
        carry(sum);
    }
    static constexpr ZUL_ALWAYS_INLINE void subtract(Element& difference, const Element& a,
                                                     const Element& b) {
        // 8p = 4 (2^522 - 2) is above any element, and so is each of its digits.
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++)
            difference[i] = a[i] + ((kDigitMask - (i == 0 ? 1 : 0)) << 2) - b[i];
        carry(difference);
    }

    // fold brings nine column sums below 2^121 to digits.
    static constexpr ZUL_ALWAYS_INLINE void fold(Element& result, DoubleLimb (&columns)[kLimbs]) {
        DoubleLimb carried = 0;
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++) {
            carried += columns[i];
            result[i] = static_cast<uint64_t>(carried) & kDigitMask;
            carried >>= kDigitBits;
        }
        carried = (carried << 1) + result[0];
        result[0] = static_cast<uint64_t>(carried) & kDigitMask;
        result[1] += static_cast<uint64_t>(carried >> kDigitBits);
        // Digit 1 may be a little above 2^58 now, by the last carry of at most 2^6.
    }

    static constexpr void multiply(Element& product, const Element& a, const Element& b) {
        Element twice{};
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++)
            twice[i] = b[i] << 1;
        DoubleLimb columns[kLimbs]{};
#pragma GCC unroll 16
        for (size_t k = 0; k < kLimbs; k++) {
            DoubleLimb sum = 0;
#pragma GCC unroll 16
            for (size_t i = 0; i < kLimbs; i++)
                sum += static_cast<DoubleLimb>(a[i]) * (i <= k ? b[k - i] : twice[k + kLimbs - i]);
            columns[k] = sum;
        }
        fold(product, columns);
    }

    static constexpr void square(Element& product, const Element& a) {
        Element twice{}, fourfold{};
#pragma GCC unroll 16
        for (size_t i = 0; i < kLimbs; i++) {
            twice[i] = a[i] << 1;
            fourfold[i] = a[i] << 2;
        }
        DoubleLimb columns[kLimbs]{};
#pragma GCC unroll 16
        for (size_t k = 0; k < kLimbs; k++) {
            DoubleLimb sum = 0;
#pragma GCC unroll 16
            for (size_t i = 0; i < kLimbs; i++) {
                // Pairs i < j with i + j = k, and with i + j = k + 9, which count twice.
                const size_t low = k - i, high = k + kLimbs - i;
                if (i <= k && i < low)
                    sum += static_cast<DoubleLimb>(a[i]) * twice[low];
                if (i <= k && i == low)
                    sum += static_cast<DoubleLimb>(a[i]) * a[i];
                if (high < kLimbs && i < high)
                    sum += static_cast<DoubleLimb>(a[i]) * fourfold[high];
                if (high < kLimbs && i == high)
                    sum += static_cast<DoubleLimb>(a[i]) * twice[i];
            }
            columns[k] = sum;
        }
        fold(product, columns);
    }

    static constexpr Element from_integer(const Limbs<kLimbs>& a) {
        Element result{};
        for (size_t i = 0; i < kLimbs; i++)
            result[i] = static_cast<uint64_t>(limbs_bits(a, i * kDigitBits, 29)) |
                        static_cast<uint64_t>(limbs_bits(a, i * kDigitBits + 29, 29)) << 29;
        return result;
    }

    // to_integer gives the one number below p.
    static constexpr Limbs<kLimbs> to_integer(const Element& a) {
        Element t = a;
        // Exact digits below 2^58; the third pass has nothing left to carry round.
        for (int pass = 0; pass < 3; pass++) {
            uint64_t carried = 0;
            for (size_t i = 0; i < kLimbs; i++) {
                t[i] += carried;
                carried = t[i] >> kDigitBits;
                t[i] &= kDigitMask;
            }
            t[0] += carried << 1;
        }
        Limbs<kLimbs> value{};
        for (size_t i = 0; i < kLimbs; i++) {
            const size_t position = i * kDigitBits;
            value[position / 64] |= t[i] << position % 64;
            if (position % 64 > 64 - kDigitBits && position / 64 + 1 < kLimbs)
                value[position / 64 + 1] |= t[i] >> (64 - position % 64);
        }
        // Below 2^522: the top bit counts 1, and then p itself is 0.
        const uint64_t top = value[8] >> 9;
        value[8] &= 0x1FF;
        uint64_t carryIn = top;
        for (size_t i = 0; i < kLimbs; i++)
            value[i] = add_carry(value[i], 0, carryIn);
        Limbs<kLimbs> reduced{};
        const uint64_t borrow = limbs_subtract(reduced, value, kPrime);
        limbs_select(value, limb_mask(borrow), value, reduced);
        return value;
    }

    static constexpr bool is_zero(const Element& a) {
        return limbs_nonzero_mask(to_integer(a)) == 0;
    }
    // halve leaves digits of up to 2^58 + 2^57 + 2^5, which subtract takes.
    static constexpr void halve(Element& half, const Element& a) {
        // a is even after p is added where it is odd; each digit then hands its lowest bit to the one below.
        Element t{};
        const uint64_t isOdd = limb_mask(a[0] & 1);
        for (size_t i = 0; i < kLimbs; i++)
            t[i] = a[i] + ((i == kLimbs - 1 ? kDigitMask >> 1 : kDigitMask) & isOdd);
        for (size_t i = 0; i < kLimbs; i++)
            half[i] = (t[i] >> 1) + (i + 1 < kLimbs ? (t[i + 1] & 1) << (kDigitBits - 1) : 0);
    }

    static constexpr void invert(Element& inverse, const Element& a) {
        modular_inverse(inverse, to_integer(a), kPrime, kBits);
        inverse = from_integer(inverse);
    }

    static constexpr Element kOne = {1};
    static const Element kCurveB, kBaseX, kBaseY;
};

constexpr P521Field::Element P521Field::kCurveB = P521Field::from_integer(kIntegerB);
constexpr P521Field::Element P521Field::kBaseX = P521Field::from_integer(kIntegerX);
constexpr P521Field::Element P521Field::kBaseY = P521Field::from_integer(kIntegerY);

} // namespace zul
