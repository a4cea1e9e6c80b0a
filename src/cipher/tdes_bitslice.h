#pragma once
// Where the bit-sliced kernels find things: the numbering of the state's and the key's bits.
//
// A batch of blocks is read as little-endian words and transposed, so that element j of the state has bit j
// of every block. The initial permutation then needs no moves: bit i of the left half (from 0, the highest
// first) is element tdes_place(i), and that of the right half the one after it.
#include <cstddef>
#include <cstdint>

#include "cipher/des_tables.h"

namespace zul {

constexpr size_t tdes_place(unsigned i) {
    return 8 * (7 - i % 8) + 6 - 2 * (i / 8);
}

// Input i (0 to 5) of an S-box reads this bit of the half block.
constexpr size_t tdes_box_input(unsigned box, unsigned i) {
    return tdes_place((4 * box + i + 31) % 32);
}

// Output i (0 to 3) of an S-box changes this bit of the other half.
constexpr size_t tdes_box_output(unsigned box, unsigned i) {
    for (unsigned bit = 0; bit < 32; bit++) {
        if (kDesP[bit] == 4 * box + i + 1)
            return tdes_place(bit);
    }
    return 0;
}

// By round and then by S-box input: twice the number of the key bit, the offset of its mask in TdesBitKey.
struct TdesKeyOrder {
    uint8_t offset[16][48];
};

constexpr TdesKeyOrder tdes_key_order() {
    TdesKeyOrder order{};
    for (unsigned round = 0; round < 16; round++) {
        for (unsigned i = 0; i < 48; i++) {
            const unsigned chosen = kDesPc2[i] - 1u;
            const unsigned half = chosen / 28;
            const unsigned source = half * 28 + (chosen % 28 + kDesRotated[round]) % 28;
            const unsigned bit = kDesPc1[source] - 1u;
            order.offset[round][i] = static_cast<uint8_t>(2 * (8 * (bit / 8) + 7 - bit % 8));
        }
    }
    return order;
}

inline constexpr TdesKeyOrder kTdesKeyOrder = tdes_key_order();

} // namespace zul
