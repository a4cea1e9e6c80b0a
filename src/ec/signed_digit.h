#pragma once
#include "ec/limbs.h"

namespace zul {

// A digit of Booth's recoding of a scalar.
struct SignedDigit {
    uint32_t magnitude;  // at most 2^(Width - 1)
    uint64_t isNegative; // a mask
};

template<size_t Width, size_t N>
ZUL_ALWAYS_INLINE SignedDigit signed_digit(const Limbs<N>& scalar, size_t window) {
    const uint32_t bits =
        window == 0 ? limbs_bits(scalar, 0, Width) << 1 : limbs_bits(scalar, window * Width - 1, Width + 1);
    const uint64_t isNegative = limb_mask(bits >> Width);
    const uint32_t folded = (bits ^ static_cast<uint32_t>(isNegative)) & ((2u << Width) - 1);
    return {(folded >> 1) + (folded & 1), isNegative};
}

} // namespace zul
