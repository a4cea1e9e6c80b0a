#include "rsa/short_inverse.h"

#include "ec/modular_inverse.h"
#include "frame/memory.h"

// 1/r modulo n is (1 + n t) / r for the t below r that makes the division exact, so everything but two
// products with n happens modulo r. All divisions are by powers of 2^64 modulo r (P. L. Montgomery, "Modular
// Multiplication Without Trial Division", 1985): they need no quotient digit to be estimated.
namespace zul {
namespace {

class Divisor {
  public:
    explicit Divisor(const ShortFactor& r) : r_(r) {
        uint64_t inverse = 1; // Newton's iteration doubles the bits that are right
        for (int i = 0; i < 6; i++)
            inverse *= 2 - r[0] * inverse;
        negatedInverse_ = 0 - inverse;
    }

    // divide takes count + 4 limbs a. It adds the multiple q r that makes the low count limbs zero, and
    // replaces them by q. The others become a / 2^(64 count) modulo r, at most r, if they were 0.
    void divide(uint64_t* a, size_t count) const {
        uint64_t carry = 0;
        for (size_t i = 0; i < count; i++) {
            const uint64_t digit = a[i] * negatedInverse_;
            uint64_t high = 0;
#pragma GCC unroll 4
            for (size_t j = 0; j < kShortFactorLimbs; j++)
                a[i + j] = multiply_add(a[i + j], digit, r_[j], high);
            a[i + kShortFactorLimbs] = add_carry(a[i + kShortFactorLimbs], high, carry);
            a[i] = digit;
        }
    }

  private:
    const ShortFactor& r_;
    uint64_t negatedInverse_;
};

} // namespace

void short_inverse(MT inverse, const ShortFactor& r, const MtNumber* n) {
    constexpr size_t kMore = kShortFactorLimbs;
    const size_t count = (n->ndigits + 1) / 2;
    SecretBuffer memory((2 * count + kMore) * kLimbBytes);
    auto* const modulus = reinterpret_cast<uint64_t*>(memory.data());
    uint64_t *const a = modulus + count, *const upper = a + count;
    for (size_t i = 0; i < n->ndigits; i++)
        modulus[i / 2] |= static_cast<uint64_t>(n->digits[i]) << kDigitBits * (i % 2);

    struct Numbers {
        ShortFactor rest, t;
    };
    Wiped<Numbers> numbers;
    auto& [rest, t] = *numbers;
    const Divisor divisor(r);
    // t = -1/n modulo r
    for (size_t i = 0; i < count; i++)
        a[i] = modulus[i];
    divisor.divide(a, count);
    for (size_t i = 0; i < kMore; i++)
        rest[i] = upper[i];
    modular_inverse(t, rest, r, 64 * kMore);
    for (size_t i = 0; i < count + kMore; i++)
        a[i] = i < kMore ? t[i] : 0;
    divisor.divide(a, count);
    for (size_t i = 0; i < kMore; i++)
        rest[i] = upper[i];
    limbs_subtract(t, r, rest);

    // (1 + n t) / r is -q modulo 2^(64 count).
    for (size_t i = 0; i < count + kMore; i++)
        a[i] = i == 0 ? 1 : 0;
    for (size_t j = 0; j < kMore; j++) {
        uint64_t high = 0;
        for (size_t i = 0; i < count; i++)
            a[i + j] = multiply_add(a[i + j], modulus[i], t[j], high);
        a[count + j] = high;
    }
    divisor.divide(a, count);
    mt_resize(inverse, 2 * count);
    uint64_t borrow = 0;
    for (size_t i = 0; i < count; i++) {
        const uint64_t limb = subtract_borrow(0, a[i], borrow);
        inverse->digits[2 * i] = static_cast<DIGIT_T>(limb);
        inverse->digits[2 * i + 1] = static_cast<DIGIT_T>(limb >> kDigitBits);
    }
    inverse->ndigits = mpSizeof(inverse->digits, 2 * count);
}

} // namespace zul
