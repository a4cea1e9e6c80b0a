#include <gtest/gtest.h>

#include "cipher/des_tables.h"

namespace zul {

// The circuits of the bit-sliced kernels, over words in which bit x stands for the input x.
namespace {

#define ZUL_DES_CIRCUIT(name) void name(V a1, V a2, V a3, V a4, V a5, V a6, V& o1, V& o2, V& o3, V& o4)

using V = uint64_t;

V lut(unsigned table, V a, V b, V c) {
    V out = 0;
    for (unsigned cell = 0; cell < 8; cell++) {
        if (table >> cell & 1)
            out |= (cell & 4 ? a : ~a) & (cell & 2 ? b : ~b) & (cell & 1 ? c : ~c);
    }
    return out;
}

namespace of_gates {
#include "cipher/des_sboxes.inc"
} // namespace of_gates

namespace of_luts {
#define ZUL_DES_LUT(table, a, b, c) lut(table, a, b, c)
#include "cipher/des_sboxes_lut3.inc"
} // namespace of_luts

using Circuit = void(V, V, V, V, V, V, V&, V&, V&, V&);

} // namespace

TEST(Des, SboxCircuitsGiveTheStandardsTables) {
    static Circuit* const circuits[2][8] = {
        {of_gates::sbox1, of_gates::sbox2, of_gates::sbox3, of_gates::sbox4, of_gates::sbox5, of_gates::sbox6,
         of_gates::sbox7, of_gates::sbox8},
        {of_luts::sbox1, of_luts::sbox2, of_luts::sbox3, of_luts::sbox4, of_luts::sbox5, of_luts::sbox6,
         of_luts::sbox7, of_luts::sbox8},
    };
    V in[6] = {};
    for (unsigned x = 0; x < 64; x++) {
        for (unsigned i = 0; i < 6; i++)
            in[i] |= V{x >> (5 - i) & 1} << x;
    }
    for (const auto& set : circuits) {
        for (unsigned box = 0; box < 8; box++) {
            V out[4] = {};
            set[box](in[0], in[1], in[2], in[3], in[4], in[5], out[0], out[1], out[2], out[3]);
            for (unsigned x = 0; x < 64; x++) {
                const V found = (out[0] >> x & 1) << 3 | (out[1] >> x & 1) << 2 | (out[2] >> x & 1) << 1 |
                                (out[3] >> x & 1);
                ASSERT_EQ(found, des_sbox(box, x)) << "S" << box + 1 << " of " << x;
            }
        }
    }
}

} // namespace zul
