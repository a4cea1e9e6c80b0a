#include "bignum/mp.h"

namespace zul {

namespace {

DIGIT_T digit_of(const DIGIT_T* a, size_t n, size_t i) {
    return i < n ? a[i] : 0;
}

// Digit i of b shifted to the left; an index below zero wraps to one above n.
DIGIT_T left_shifted(const DIGIT_T* b, size_t n, size_t i, size_t shift) {
    i -= shift / kDigitBits;
    const uint64_t pair = uint64_t{digit_of(b, n, i)} << kDigitBits | digit_of(b, n, i - 1);
    return static_cast<DIGIT_T>(pair << shift % kDigitBits >> kDigitBits);
}

// Digit i of b shifted to the right.
DIGIT_T right_shifted(const DIGIT_T* b, size_t n, size_t i, size_t shift) {
    i += shift / kDigitBits;
    const uint64_t pair = uint64_t{digit_of(b, n, i + 1)} << kDigitBits | digit_of(b, n, i);
    return static_cast<DIGIT_T>(pair >> shift % kDigitBits);
}

} // namespace

// Of more than 32 bits that leave the array, the last 32 are returned.
DIGIT_T mpShiftLeft(DIGIT_T* a, const DIGIT_T* b, size_t shift, size_t n) {
    const DIGIT_T out = left_shifted(b, n, n, shift);
    for (size_t i = n; i-- > 0;)
        a[i] = left_shifted(b, n, i, shift);
    return out;
}

DIGIT_T mpShiftRight(DIGIT_T* a, const DIGIT_T* b, size_t shift, size_t n) {
    const DIGIT_T out = shift < kDigitBits
                            ? digit_of(b, n, 0) & static_cast<DIGIT_T>((uint64_t{1} << shift) - 1)
                            : right_shifted(b, n, 0, shift - kDigitBits);
    for (size_t i = 0; i < n; i++)
        a[i] = right_shifted(b, n, i, shift);
    return out;
}

int mpSetBit(DIGIT_T* a, size_t n, size_t bit, int value) {
    if (bit / kDigitBits >= n)
        return -1;
    const DIGIT_T mask = DIGIT_T{1} << bit % kDigitBits;
    if (value != 0)
        a[bit / kDigitBits] |= mask;
    else
        a[bit / kDigitBits] &= ~mask;
    return 0;
}

} // namespace zul
