#pragma once
#include "bignum/mp.h"
#include "platform/target.h"

#if ZUL_X86_64
namespace zul {

// y = x^e mod m for x below m; m has n digits, the highest of them not zero (n >= 2), and e has the given
// bits (2 or more). y and x have n digits. False for sizes that the kernel does not have.
void mod_exp_adx(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                 size_t n);
bool mod_exp_ifma(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                  size_t n);
bool mod_exp_pair_ifma(const MpPower& a, const MpPower& b, size_t n);

} // namespace zul
#endif
