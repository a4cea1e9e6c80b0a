#pragma once
#include <array>

#include "ec/limbs.h"

namespace zul {

// The width-w non-adjacent form: odd digits below 2^(w-1), at least w - 1 zeros between two.
template<size_t N, size_t Bits>
struct NonAdjacentForm {
    std::array<int8_t, Bits + 1> digits{};

    NonAdjacentForm(const Limbs<N>& scalar, size_t width) {
        uint32_t carry = 0;
        for (size_t i = 0; i <= Bits;) {
            const uint32_t bit = limbs_bits(scalar, i, 1);
            if (bit == carry) {
                i++;
                continue;
            }
            const uint32_t word = limbs_bits(scalar, i, width) + carry;
            carry = word >> (width - 1) & 1;
            digits[i] = static_cast<int8_t>(static_cast<int>(word) - static_cast<int>(carry << width));
            i += width;
        }
    }
};

} // namespace zul
