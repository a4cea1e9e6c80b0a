#pragma once
#include "bignum/mt.h"

namespace zul {

// rsaGeneratePrime makes p a probable prime of nbits bits (at least 2; the top two are set) with p mod eValue
// other than 1. fill draws random bytes with the seed as additional input. The number of candidates examined,
// or -1 if no search found one or fill failed.
[[nodiscard]] int rsaGeneratePrime(MT p, size_t nbits, DIGIT_T eValue, size_t nTests, const uint8_t* seed,
                                   size_t seedlen, MtFill fill, bool showProgress);

} // namespace zul
