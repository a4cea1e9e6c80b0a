#pragma once
#include "bignum/mp.h"

// What the portable code of the digit arrays shares between its files.
namespace zul {

void mp_portable_multiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n); // as mpMultiply
void mp_portable_square(DIGIT_T* w, const DIGIT_T* x, size_t n);                     // as mpSquare

// mp_add_product: w += u * v modulo 2^(32n), where w has n digits and overlaps neither.
void mp_add_product(DIGIT_T* w, const DIGIT_T* u, size_t un, const DIGIT_T* v, size_t vn, size_t n);

// mp_divide_steps is the loop of Knuth's Algorithm D. The dividend is the un digits of r below the digit top;
// the divisor v has two digits or more and its highest bit set; the vn highest digits of the dividend, top
// included, are less than v. The remainder is left in the vn low digits of r, the others become zero. q, if
// it is not null, receives the un - vn + 1 digits of the quotient.
void mp_divide_steps(DIGIT_T* q, DIGIT_T* r, DIGIT_T top, size_t un, const DIGIT_T* v, size_t vn);

// mp_divide_with divides u by v, both without leading zero digits and v not zero, in scratch space of vn
// digits. q, if it is not null, and r have un digits; r may be u.
void mp_divide_with(DIGIT_T* q, DIGIT_T* r, const DIGIT_T* u, size_t un, const DIGIT_T* v, size_t vn,
                    DIGIT_T* scratch);

} // namespace zul
