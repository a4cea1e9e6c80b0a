#pragma once
#include "bignum/mp.h"

namespace zul {

// mp_column_mod_exp: y = x^e mod m for x below m; m has n digits, the highest of them not zero, and at least
// kLeastColumnBits bits; e has the given bits (2 or more). y and x have n digits. It is the portable code of
// mpModExp, in place of division digit by digit, for moduli of some length.
constexpr size_t kLeastColumnBits = 160;
void mp_column_mod_exp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                       size_t n);

} // namespace zul
