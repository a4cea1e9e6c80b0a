// Schoolbook products of 32-bit digits.
#include "bignum/mp.h"
#include "bignum/mp_kernel.h"
#include "bignum/mp_portable.h"

namespace zul {

namespace {

// add_product: w += u * d over n digits; the digit that follows is returned.
DIGIT_T add_product(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n) {
    uint64_t carry = 0;
    for (size_t i = 0; i < n; i++) {
        carry += uint64_t{u[i]} * d + w[i];
        w[i] = static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
    }
    return static_cast<DIGIT_T>(carry);
}

// add_two_products: w += u * (d0 + d1 * 2^32) + carry, where w has n digits and receives two more. Two rows
// at a time keep two chains of carries busy.
void add_two_products(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d0, DIGIT_T d1, size_t n, DIGIT_T carry) {
    uint64_t carry0 = carry, carry1 = 0;
    DIGIT_T previous = 0;
    for (size_t i = 0; i < n; i++) {
        carry0 += uint64_t{u[i]} * d0 + w[i];
        carry1 += uint64_t{previous} * d1 + static_cast<DIGIT_T>(carry0);
        w[i] = static_cast<DIGIT_T>(carry1);
        carry0 >>= kDigitBits;
        carry1 >>= kDigitBits;
        previous = u[i];
    }
    carry1 += uint64_t{previous} * d1 + carry0;
    w[n] = static_cast<DIGIT_T>(carry1);
    w[n + 1] = static_cast<DIGIT_T>(carry1 >> kDigitBits);
}

} // namespace

DIGIT_T mpShortMult(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n) {
    uint64_t carry = 0;
    for (size_t i = 0; i < n; i++) {
        carry += uint64_t{u[i]} * d;
        w[i] = static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
    }
    return static_cast<DIGIT_T>(carry);
}

void mp_portable_multiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    mpSetZero(w, n);
    size_t i = 0;
    for (; i + 1 < n; i += 2)
        add_two_products(w + i, u, v[i], v[i + 1], n, 0);
    if (i < n)
        w[i + n] = add_product(w + i, u, v[i], n);
}

void mp_portable_square(DIGIT_T* w, const DIGIT_T* x, size_t n) {
    // Each product of two different digits once, ...
    mpSetZero(w, 2 * n);
    for (size_t i = 0; i + 1 < n; i += 2) {
        const DIGIT_T carry = add_product(w + 2 * i + 1, x + i + 1, x[i], 1);
        add_two_products(w + 2 * i + 2, x + i + 2, x[i], x[i + 1], n - i - 2, carry);
    }
    // ... doubled, and the squares of the digits added.
    DIGIT_T shifted = 0;
    uint64_t carry = 0;
    for (size_t i = 0; i < n; i++) {
        const uint64_t square = uint64_t{x[i]} * x[i];
        const DIGIT_T low = w[2 * i], high = w[2 * i + 1];
        carry += uint64_t{low << 1 | shifted} + static_cast<DIGIT_T>(square);
        w[2 * i] = static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
        carry += uint64_t{high << 1 | low >> 31} + (square >> kDigitBits);
        w[2 * i + 1] = static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
        shifted = high >> 31;
    }
}

void mp_add_product(DIGIT_T* w, const DIGIT_T* u, size_t un, const DIGIT_T* v, size_t vn, size_t n) {
    for (size_t i = 0; i < vn && i < n; i++) {
        const size_t count = un < n - i ? un : n - i;
        const DIGIT_T carry = add_product(w + i, u, v[i], count);
        mpShortAdd(w + i + count, w + i + count, carry, n - i - count);
    }
}

void mpMultiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    if (mp_kernel_usable())
        mp_kernel_multiply(w, u, v, n);
    else
        mp_portable_multiply(w, u, v, n);
}

void mpSquare(DIGIT_T* w, const DIGIT_T* x, size_t n) {
    if (mp_kernel_usable())
        mp_kernel_square(w, x, n);
    else
        mp_portable_square(w, x, n);
}

} // namespace zul
