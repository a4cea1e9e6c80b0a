// Triple DES on 64 blocks at once, a byte of a vector for each: the S-boxes are byte permutations (AVX-512
// VBMI), which look up nothing in memory, so the time does not depend on the data.
#include "platform/target.h"

#if ZUL_X86_64

#include <algorithm>
#include <immintrin.h>
#include <utility>

#include "cipher/des_core.h"
#include "cipher/des_tables.h"
#include "cipher/tdes_kernels.h"

namespace zul {

namespace {

using V = __m512i;
#define ZUL_VBMI ZUL_TARGET_VBMI ZUL_ALWAYS_INLINE

// A half block is eight groups of six bits, as the E table gives them, a vector for each group. The order of
// the bits in a group is ours. An output bit of an S-box stands in one place of the byte that its permutation
// gives, and the groups that want it want it there: six boxes feed a group, one in each place. Such an order
// exists, since boxes and groups make a bipartite graph of degree six, which has an edge colouring in six
// colours. A place is a colour.
struct Wiring {
    uint8_t place[8][6]; // of bit s of a group, from the highest
    uint8_t box[8][6];   // which feeds a place of a group
};

// The bit of the half block that is bit s of a group, and the number of the S-box output that it is, both
// from the highest, 0.
constexpr unsigned half_bit(unsigned group, unsigned s) {
    return (4 * group + 31 + s) % 32;
}
constexpr unsigned box_output(unsigned group, unsigned s) {
    return kDesP[half_bit(group, s)] - 1u;
}

constexpr unsigned kFree = 8;

// Of the edges that have no colour yet each group gets one, to a box that no other group has. assign finds
// it along an augmenting path.
struct Matching {
    const bool (&coloured)[8][6];
    unsigned groupOf[8]; // of a box
    unsigned edgeOf[8];  // of the box, in that group
    bool seen[8];

    constexpr bool assign(unsigned group) {
        for (unsigned s = 0; s < 6; s++) {
            const unsigned box = box_output(group, s) / 4;
            if (coloured[group][s] || seen[box])
                continue;
            seen[box] = true;
            if (groupOf[box] == kFree || assign(groupOf[box])) {
                groupOf[box] = group;
                edgeOf[box] = s;
                return true;
            }
        }
        return false;
    }
};

constexpr Wiring make_wiring() {
    Wiring wiring{};
    bool coloured[8][6] = {};
    for (uint8_t colour = 0; colour < 6; colour++) {
        Matching matching{coloured, {}, {}, {}};
        for (unsigned& group : matching.groupOf)
            group = kFree;
        for (unsigned group = 0; group < 8; group++) {
            for (bool& seen : matching.seen)
                seen = false;
            matching.assign(group);
        }
        for (uint8_t box = 0; box < 8; box++) {
            const unsigned group = matching.groupOf[box], s = matching.edgeOf[box];
            coloured[group][s] = true;
            wiring.place[group][s] = colour;
            wiring.box[group][colour] = box;
        }
    }
    return wiring;
}

constexpr Wiring kWiring = make_wiring();

struct Tables {
    alignas(64) uint8_t sboxes[8][64];
    uint8_t toPlaces[8][64]; // from the order of the E table, and what is left of the 64 bytes' bits
    uint8_t toNibble[8][64]; // back, without the two outer bits; the high nibble for every second group
};

constexpr Tables make_tables() {
    Tables tables{};
    for (unsigned group = 0; group < 8; group++)
        for (unsigned in = 0; in < 64; in++) {
            unsigned placed = 0;
            for (unsigned s = 0; s < 6; s++)
                placed |= (in >> (5 - s) & 1) << kWiring.place[group][s];
            tables.toPlaces[group][in] = static_cast<uint8_t>(placed);
            tables.toNibble[group][placed] = static_cast<uint8_t>((in >> 1 & 15) << (group % 2 == 0 ? 4 : 0));
            unsigned out = 0;
            for (unsigned other = 0; other < 8; other++)
                for (unsigned s = 0; s < 6; s++)
                    if (box_output(other, s) / 4 == group)
                        out |= (des_sbox(group, in) >> (3 - box_output(other, s) % 4) & 1)
                               << kWiring.place[other][s];
            tables.sboxes[group][placed] = static_cast<uint8_t>(out);
        }
    return tables;
}

constinit const Tables kTables = make_tables();

ZUL_VBMI V look_up(const uint8_t (&table)[64], V at) {
    return _mm512_permutexvar_epi8(at, _mm512_load_si512(table));
}

// Element 8i + k becomes element 8k + i: bytes of a vector, and words of eight vectors.
struct ByteOrder {
    alignas(64) uint8_t at[64];
};
constexpr ByteOrder make_exchange() {
    ByteOrder order{};
    for (unsigned i = 0; i < 64; i++)
        order.at[i] = static_cast<uint8_t>(i % 8 * 8 + i / 8);
    return order;
}
constinit const ByteOrder kExchange = make_exchange();

ZUL_VBMI void exchange_words(V (&x)[8]) {
    const V low = _mm512_setr_epi64(0, 8, 2, 10, 4, 12, 6, 14),
            high = _mm512_setr_epi64(1, 9, 3, 11, 5, 13, 7, 15);
    const V low2 = _mm512_setr_epi64(0, 1, 8, 9, 4, 5, 12, 13),
            high2 = _mm512_setr_epi64(2, 3, 10, 11, 6, 7, 14, 15);
    const V low4 = _mm512_setr_epi64(0, 1, 2, 3, 8, 9, 10, 11),
            high4 = _mm512_setr_epi64(4, 5, 6, 7, 12, 13, 14, 15);
    V y[8];
#pragma GCC unroll 8
    for (unsigned i = 0; i < 8; i += 2) {
        y[i] = _mm512_permutex2var_epi64(x[i], low, x[i + 1]);
        y[i + 1] = _mm512_permutex2var_epi64(x[i], high, x[i + 1]);
    }
#pragma GCC unroll 8
    for (unsigned i = 0; i < 8; i++)
        if (i % 4 < 2) {
            x[i] = _mm512_permutex2var_epi64(y[i], low2, y[i + 2]);
            x[i + 2] = _mm512_permutex2var_epi64(y[i], high2, y[i + 2]);
        }
#pragma GCC unroll 8
    for (unsigned i = 0; i < 4; i++) {
        const V first = x[i], second = x[i + 4];
        x[i] = _mm512_permutex2var_epi64(first, low4, second);
        x[i + 4] = _mm512_permutex2var_epi64(first, high4, second);
    }
}

// 64 words of eight bytes become eight vectors, of the bytes 0, 1 ... of each word, and back. Byte and word
// in a vector have been or are still to be exchanged.
ZUL_VBMI void exchange_bytes(V (&x)[8]) {
    const V order = _mm512_load_si512(kExchange.at);
#pragma GCC unroll 8
    for (V& v : x)
        v = _mm512_permutexvar_epi8(order, v);
}

ZUL_VBMI V swap_bits(V x, unsigned distance, int64_t mask) {
    const V t =
        _mm512_and_si512(_mm512_xor_si512(_mm512_srli_epi64(x, distance), x), _mm512_set1_epi64(mask));
    return _mm512_xor_si512(_mm512_xor_si512(x, t), _mm512_slli_epi64(t, distance));
}

// The eight bytes of each word as the rows of a matrix of bits, transposed.
ZUL_VBMI V transpose_bits(V x) {
    x = swap_bits(x, 7, 0x00AA00AA00AA00AA);
    x = swap_bits(x, 14, 0x0000CCCC0000CCCC);
    return swap_bits(x, 28, 0x00000000F0F0F0F0);
}

struct State {
    V left[8], right[8]; // groups
};

ZUL_VBMI void half_to_places(V (&half)[8]) {
    exchange_bytes(half);
    exchange_words(half);
    for (unsigned group = 0; group < 8; group++)
        half[group] = look_up(kTables.toPlaces[group], half[group]);
}

// With its bits transposed a block has in byte 6 - 2r row r of the left half after the initial permutation,
// its highest bit first, in byte 7 - 2r of the right half.
ZUL_VBMI void load_blocks(State& state, const uint64_t* batch) {
    // Bits 4g - 1 to 4g + 4 of a half that stands there twice.
    const V groups = _mm512_set1_epi64(0x1F03070B0F13171B);
    const V twice = _mm512_set1_epi64(0x0604020006040200);
    const V words =
        _mm512_set_epi64(0x3838383838383838, 0x3030303030303030, 0x2828282828282828, 0x2020202020202020,
                         0x1818181818181818, 0x1010101010101010, 0x0808080808080808, 0);
    const V leftBytes = _mm512_add_epi8(words, twice);
    const V rightBytes = _mm512_add_epi8(leftBytes, _mm512_set1_epi8(1));
#pragma GCC unroll 8
    for (size_t i = 0; i < 8; i++) {
        const V rows = transpose_bits(_mm512_load_si512(batch + 8 * i));
        state.left[i] = _mm512_multishift_epi64_epi8(groups, _mm512_permutexvar_epi8(leftBytes, rows));
        state.right[i] = _mm512_multishift_epi64_epi8(groups, _mm512_permutexvar_epi8(rightBytes, rows));
    }
    half_to_places(state.left);
    half_to_places(state.right);
}

ZUL_VBMI V row_of(const V (&half)[8], size_t r) {
    return _mm512_or_si512(look_up(kTables.toNibble[2 * r], half[2 * r]),
                           look_up(kTables.toNibble[2 * r + 1], half[2 * r + 1]));
}

ZUL_VBMI void store_blocks(uint64_t* batch, const State& state) {
    V rows[8];
#pragma GCC unroll 4
    for (size_t r = 0; r < 4; r++) {
        rows[6 - 2 * r] = row_of(state.left, r);
        rows[7 - 2 * r] = row_of(state.right, r);
    }
    exchange_words(rows);
    exchange_bytes(rows);
#pragma GCC unroll 8
    for (size_t i = 0; i < 8; i++)
        _mm512_store_si512(batch + 8 * i, transpose_bits(rows[i]));
}

// The key words of des_schedule by groups, each byte four times for loads that broadcast.
struct KeyWords {
    const TdesBitKey& key;
    ptrdiff_t first, step;

    ZUL_VBMI V at(ptrdiff_t i, unsigned group) const {
        return _mm512_set1_epi32(static_cast<int>(key.groups[group][first + i * step]));
    }
};

// half += S-boxes(in) + word i of the key
ZUL_VBMI void round(V (&half)[8], const V (&in)[8], const KeyWords& words, ptrdiff_t i) {
    V out[8], place[6];
#pragma GCC unroll 8
    for (unsigned box = 0; box < 8; box++)
        out[box] = look_up(kTables.sboxes[box], in[box]);
#pragma GCC unroll 6
    for (unsigned bit = 0; bit < 6; bit++)
        place[bit] = _mm512_set1_epi8(static_cast<char>(1 << bit));
#pragma GCC unroll 8
    for (unsigned group = 0; group < 8; group++) {
        V sum = _mm512_xor_si512(half[group], words.at(i, group));
#pragma GCC unroll 6
        for (unsigned bit = 0; bit < 6; bit++) // sum ^= out & place
            sum = _mm512_ternarylogic_epi64(sum, out[kWiring.box[group][bit]], place[bit], 0x78);
        half[group] = sum;
    }
}

ZUL_VBMI void add_key(V (&half)[8], const KeyWords& words, ptrdiff_t i) {
#pragma GCC unroll 8
    for (unsigned group = 0; group < 8; group++)
        half[group] = _mm512_xor_si512(half[group], words.at(i, group));
}

// The rounds of one key as in des_pass (des_core.h): each half carries the key of the round that reads it
// next.
ZUL_VBMI void pass(V (&y)[8], V (&x)[8], const KeyWords& words) {
    add_key(x, words, 0);
    for (ptrdiff_t i = 1; i < 17; i += 2) {
        round(y, x, words, i);
        round(x, y, words, i + 1);
    }
    add_key(y, words, 17);
}

constexpr ptrdiff_t kPass = kDesScheduleWords, kKeyWords = 3 * kPass;

ZUL_TARGET_VBMI void set_key(TdesBitKey& prepared, const TdesKey& key) {
    V bytes[8];
#pragma GCC unroll 8
    for (size_t i = 0; i < 8; i++) {
        const size_t begin = std::min<size_t>(8 * i, kKeyWords), left = kKeyWords - begin;
        bytes[i] = _mm512_maskz_loadu_epi64(static_cast<__mmask8>(left < 8 ? (1u << left) - 1 : 0xFF),
                                            key.words + begin);
    }
    exchange_bytes(bytes);
    exchange_words(bytes);
    const V four = _mm512_setr_epi32(0, 0x01010101, 0x02020202, 0x03030303, 0x04040404, 0x05050505,
                                     0x06060606, 0x07070707, 0x08080808, 0x09090909, 0x0A0A0A0A, 0x0B0B0B0B,
                                     0x0C0C0C0C, 0x0D0D0D0D, 0x0E0E0E0E, 0x0F0F0F0F);
#pragma GCC unroll 8
    for (unsigned group = 0; group < 8; group++) {
        const V placed = look_up(kTables.toPlaces[group], bytes[7 - group]);
#pragma GCC unroll 4
        for (ptrdiff_t i = 0; i < 4; i++)
            _mm512_storeu_si512(
                prepared.groups[group] + 16 * i,
                _mm512_permutexvar_epi8(_mm512_add_epi8(four, _mm512_set1_epi8(static_cast<char>(16 * i))),
                                        placed));
    }
}

ZUL_TARGET_VBMI void crypt(const TdesBitKey& key, bool decrypts, uint64_t* batch) {
    const ptrdiff_t step = decrypts ? -1 : 1, first = decrypts ? kKeyWords - 1 : 0;
    State state;
    load_blocks(state, batch);
    // The halves are exchanged at the end of a pass, here by their names.
    pass(state.left, state.right, {key, first, step});
    pass(state.right, state.left, {key, first + kPass * step, step});
    pass(state.left, state.right, {key, first + 2 * kPass * step, step});
    std::swap(state.left, state.right);
    store_blocks(batch, state);
}

} // namespace

const TdesKernel kTdesVbmi = {"avx512vbmi", 64, 4, set_key, crypt};

} // namespace zul

#endif
