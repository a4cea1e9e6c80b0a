// DES, FIPS 46-3: the tables of the round function and the key schedule.
#include "cipher/des_core.h"

#include "cipher/des_tables.h"
#include "frame/wipe.h"

namespace zul {

namespace {

constexpr DesRoundTable make_round_table() {
    DesRoundTable table{};
    for (unsigned byte = 0; byte < 8; byte++) {
        const unsigned box = 7 - byte;
        for (unsigned in = 0; in < 64; in++) {
            const uint32_t beforeP = des_sbox(box, in) << (4 * byte);
            uint32_t out = 0;
            for (unsigned i = 0; i < 32; i++)
                out |= (beforeP >> (32 - kDesP[i]) & 1) << (31 - i);
            table.entry[byte][in] = des_expand(out);
        }
    }
    return table;
}

// Permuted choice 2 by pieces of seven bits: of C from its lowest bits upward, then of D.
constexpr unsigned kPieces = 8;
struct KeyTable {
    uint64_t entry[kPieces][128];
};

constexpr KeyTable make_key_table() {
    KeyTable table{};
    for (unsigned i = 0; i < 48; i++) {
        const unsigned fromLow = kDesPc2[i] <= 28 ? 28u - kDesPc2[i] : 28u + 56 - kDesPc2[i];
        const unsigned piece = fromLow / 7, bit = fromLow % 7;
        const uint64_t place = uint64_t{1} << (8 * (7 - i / 6) + 5 - i % 6);
        for (unsigned value = 0; value < 128; value++) {
            if (value >> bit & 1)
                table.entry[piece][value] |= place;
        }
    }
    return table;
}

constexpr KeyTable kKeyTable = make_key_table();

// The eight bytes as the rows of a matrix of bits, transposed: byte i of the result has bit i of every row.
uint64_t transpose_bytes(uint64_t x) {
    uint64_t t = (x >> 7 ^ x) & 0x00AA00AA00AA00AA;
    x ^= t ^ t << 7;
    t = (x >> 14 ^ x) & 0x0000CCCC0000CCCC;
    x ^= t ^ t << 14;
    t = (x >> 28 ^ x) & 0x00000000F0F0F0F0;
    return x ^ t ^ t << 28;
}

uint32_t rotate28(uint32_t half, unsigned count) {
    return (half << count | half >> (28 - count)) & 0x0FFFFFFF;
}

} // namespace

constinit const DesRoundTable kDesRoundTable = make_round_table();

void des_schedule(uint64_t words[kDesScheduleWords], const uint8_t key[8]) {
    uint64_t rows = 0;
    for (unsigned i = 0; i < 8; i++)
        rows |= static_cast<uint64_t>(key[i]) << (8 * i);
    // Permuted choice 1 reads the key by columns, from the last byte to the first.
    const uint64_t columns = transpose_bytes(rows);
    const auto column = [columns](unsigned number) {
        return static_cast<uint32_t>(columns >> (8 * (8 - number)) & 0xFF);
    };
    const uint32_t c = column(1) << 20 | column(2) << 12 | column(3) << 4 | column(4) >> 4;
    const uint32_t d = column(7) << 20 | column(6) << 12 | column(5) << 4 | (column(4) & 15);

    Wiped<uint64_t[16]> roundKeys;
    auto& keys = *roundKeys;
    for (unsigned round = 0; round < 16; round++) {
        const uint32_t halves[2] = {rotate28(c, kDesRotated[round]), rotate28(d, kDesRotated[round])};
        keys[round] = 0;
        for (unsigned piece = 0; piece < kPieces; piece++)
            keys[round] ^= kKeyTable.entry[piece][halves[piece / 4] >> (7 * (piece % 4)) & 127];
    }
    words[0] = keys[0];
    words[1] = keys[1];
    for (unsigned i = 0; i < 14; i++)
        words[i + 2] = keys[i] ^ keys[i + 2];
    words[16] = keys[14];
    words[17] = keys[15];
}

} // namespace zul
