#pragma once
#include "bignum/mt.h"
#include "ec/limbs.h"

namespace zul {

constexpr size_t kShortFactorLimbs = 4;
using ShortFactor = Limbs<kShortFactorLimbs>;

// short_inverse sets inverse to 1/r modulo n for an odd r with the highest bit set, in a time that depends on
// the length of n alone. If the two have a common divisor the result is of no use.
void short_inverse(MT inverse, const ShortFactor& r, const MtNumber* n);

} // namespace zul
