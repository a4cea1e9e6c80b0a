#include <gtest/gtest.h>

#include "cipher/des.h"
#include "cipher/des_tables.h"
#include "frame/wipe.h"
#include "support/vectors.h"

namespace zul {

using Bytes = std::vector<uint8_t>;

TEST(Des, VectorsBothWays) {
    for (const auto& v : test::read_vectors("cipher/des.txt")) {
        SCOPED_TRACE(v.where());
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext");
        ASSERT_EQ(plain.size(), coded.size());
        const size_t blocks = plain.size() / 8;
        Bytes out(plain.size()), back(plain.size());
        Wiped<DesKey> key;
        des_set_key(*key, v.hex("Key").data());
        if (v.text("Mode") == "ECB") {
            des_ecb_encrypt(*key, out.data(), plain.data(), blocks);
            des_ecb_decrypt(*key, back.data(), coded.data(), blocks);
        } else {
            Bytes iv = v.hex("IV");
            des_cbc_encrypt(*key, iv.data(), out.data(), plain.data(), blocks);
            const Bytes last(coded.end() - 8, coded.end());
            EXPECT_EQ(iv, last);
            iv = v.hex("IV");
            back = coded;
            des_cbc_decrypt(*key, iv.data(), back.data(), back.data(), blocks);
            EXPECT_EQ(iv, last);
        }
        EXPECT_EQ(out, coded);
        EXPECT_EQ(back, plain);
    }
}

TEST(Des, ParityBitsDoNotCount) {
    const Bytes odd = test::from_hex("0123456789abcdef"), even = test::from_hex("0022446688aaccee");
    const Bytes plain = test::from_hex("4e6f772069732074");
    Bytes first(8), second(8);
    Wiped<DesKey> key;
    des_set_key(*key, odd.data());
    des_ecb_encrypt(*key, first.data(), plain.data(), 1);
    des_set_key(*key, even.data());
    des_ecb_encrypt(*key, second.data(), plain.data(), 1);
    EXPECT_EQ(first, test::from_hex("3fa40e8a984d4815")); // FIPS 81, table B1
    EXPECT_EQ(second, first);
}

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
