#pragma once
#include "bignum/mp_limb.h"

#if ZUL_X86_64
namespace zul {

// Products of limbs with the row kernels; w overlaps no operand.
void limb_multiply(Limb* w, const Limb* u, const Limb* v, size_t n); // w: 2n limbs
void limb_square(Limb* w, const Limb* x, size_t n);

// Products for n limbs, in straight lines when n is 8, 16, 32 or 64.
using LimbMultiply = void (*)(Limb* w, const Limb* u, const Limb* v, size_t n);
using LimbSquare = void (*)(Limb* w, const Limb* x, size_t n);
LimbMultiply limb_multiply_for(size_t n);
LimbSquare limb_square_for(size_t n);

} // namespace zul
#endif
