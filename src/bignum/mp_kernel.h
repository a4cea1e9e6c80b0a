#pragma once
#include "bignum/mp.h"

// The kernels behind mpMultiply, mpSquare and mpModExp on x86-64. They take two digits as one
// 64-bit limb and give the results of the portable code, digit for digit.
namespace zul {

// mp_kernel_usable tells whether this processor runs the kernels; each of the others may only be called then.
bool mp_kernel_usable();

void mp_kernel_multiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n); // as mpMultiply
void mp_kernel_square(DIGIT_T* w, const DIGIT_T* x, size_t n);                     // as mpSquare

// mp_kernel_mod_exp is mpModExp for an exponent of two bits or more, x below m and m of at least two
// significant digits.
void mp_kernel_mod_exp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, const DIGIT_T* m, size_t n);

// mp_kernel_mod_exp_pair does two such exponentiations, the moduli and exponents of n digits, step by step in
// turn: one fills the time that the other waits for its own results. False for sizes that it does not have.
bool mp_kernel_mod_exp_pair(const MpPower& a, const MpPower& b, size_t n);

} // namespace zul
