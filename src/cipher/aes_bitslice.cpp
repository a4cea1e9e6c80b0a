// AES, FIPS 197, bit-sliced: plane i holds bit i of all 64 bytes of four blocks, so that the S-box is plain
// logic on words, with neither an index nor a branch that depends on a secret.
//
// The byte in row r and column c of block k stands at bit 16r + 4c + k of a plane. A row is thus one 16-bit
// quarter: ShiftRows rotates within the quarters, MixColumns rotates whole planes.
#include "cipher/aes_bitslice.h"

#include <cstring>

#include "frame/wipe.h"

namespace zul {

namespace {

// The loops over bits are unrolled, so that planes stay in registers instead of being stored and reloaded.
#define ZUL_UNROLL _Pragma("GCC unroll 8")

struct Planes {
    uint64_t bit[8];
};

uint64_t rotate_right(uint64_t x, unsigned n) {
    return (x >> n) | (x << (64 - n));
}

// interleave puts the four bytes of a column at the even bytes of the result.
uint64_t interleave(const uint8_t* column) {
    uint64_t spread = 0;
    for (unsigned r = 0; r < 4; r++)
        spread |= static_cast<uint64_t>(column[r]) << (16 * r);
    return spread;
}

// transpose exchanges word number and bit number within each byte; it undoes itself.
void transpose(Planes& p) {
    static constexpr uint64_t kLow[3] = {0x5555555555555555, 0x3333333333333333, 0x0F0F0F0F0F0F0F0F};
    for (unsigned step = 0; step < 3; step++) {
        const unsigned distance = 1u << step;
        for (unsigned i = 0; i < 8; i++) {
            if (i & distance)
                continue;
            uint64_t& a = p.bit[i];
            uint64_t& b = p.bit[i + distance];
            const uint64_t swap = ((a >> distance) ^ b) & kLow[step];
            b ^= swap;
            a ^= swap << distance;
        }
    }
}

// Before transposing, word 4h + k holds columns h and h + 2 of block k at its even and odd bytes.
void load(Planes& p, const uint8_t* const block[kBitsliceBlocks]) {
    for (size_t k = 0; k < kBitsliceBlocks; k++) {
        for (size_t h = 0; h < 2; h++)
            p.bit[4 * h + k] = interleave(block[k] + 4 * h) | interleave(block[k] + 4 * h + 8) << 8;
    }
    transpose(p);
}

void store(Planes& p, uint8_t* out, size_t blocks) {
    transpose(p);
    for (size_t k = 0; k < blocks; k++) {
        for (size_t i = 0; i < kAesBlock; i++) {
            const size_t row = i % 4, column = i / 4;
            const uint64_t word = p.bit[4 * (column % 2) + k];
            out[kAesBlock * k + i] = static_cast<uint8_t>(word >> (16 * row + 8 * (column / 2)));
        }
    }
}

// reduce takes a polynomial of degree 14 modulo x^8 + x^4 + x^3 + x + 1.
void reduce(Planes& out, uint64_t product[15]) {
    ZUL_UNROLL for (unsigned k = 14; k >= 8; k--) {
        product[k - 8] ^= product[k];
        product[k - 7] ^= product[k];
        product[k - 5] ^= product[k];
        product[k - 4] ^= product[k];
    }
    ZUL_UNROLL for (unsigned i = 0; i < 8; i++) out.bit[i] = product[i];
}

Planes multiply(const Planes& a, const Planes& b) {
    uint64_t product[15] = {};
    ZUL_UNROLL for (unsigned i = 0; i < 8; i++) {
        ZUL_UNROLL for (unsigned j = 0; j < 8; j++) {
            product[i + j] ^= a.bit[i] & b.bit[j];
        }
    }
    Planes result;
    reduce(result, product);
    return result;
}

Planes square(const Planes& a, unsigned times) {
    Planes result = a;
    for (; times > 0; times--) {
        uint64_t product[15] = {};
        ZUL_UNROLL for (size_t i = 0; i < 8; i++) product[2 * i] = result.bit[i];
        reduce(result, product);
    }
    return result;
}

// invert raises to the power 254, which is the inverse, and 0 for 0.
void invert(Planes& x) {
    const Planes x2 = square(x, 1);
    const Planes x3 = multiply(x2, x);
    const Planes x12 = square(x3, 2);
    const Planes x15 = multiply(x12, x3);
    const Planes x240 = square(x15, 4);
    x = multiply(multiply(x240, x12), x2);
}

void sub_bytes(Planes& p) {
    invert(p);
    Planes x = p;
    for (unsigned i = 0; i < 8; i++) {
        p.bit[i] =
            x.bit[i] ^ x.bit[(i + 4) % 8] ^ x.bit[(i + 5) % 8] ^ x.bit[(i + 6) % 8] ^ x.bit[(i + 7) % 8];
        if ((0x63 >> i) & 1)
            p.bit[i] = ~p.bit[i];
    }
}

void inv_sub_bytes(Planes& p) {
    Planes x = p;
    for (unsigned i = 0; i < 8; i++) {
        p.bit[i] = x.bit[(i + 2) % 8] ^ x.bit[(i + 5) % 8] ^ x.bit[(i + 7) % 8];
        if ((0x05 >> i) & 1)
            p.bit[i] = ~p.bit[i];
    }
    invert(p);
}

// shift_rows rotates the four 16-bit quarters right by 0, 4, 8 and 12 bits; its inverse exchanges the turns
// of the rows 1 and 3.
template<bool inverse>
void shift_rows(Planes& p) {
    constexpr unsigned kTurn[4] = {0, inverse ? 12 : 4, 8, inverse ? 4 : 12};
    for (uint64_t& plane : p.bit) {
        uint64_t turned = 0;
        for (unsigned row = 0; row < 4; row++) {
            const uint64_t quarter = (plane >> (16 * row)) & 0xFFFF;
            turned |= (((quarter | quarter << 16) >> kTurn[row]) & 0xFFFF) << (16 * row);
        }
        plane = turned;
    }
}

// times_x multiplies every byte by x in the field.
Planes times_x(const Planes& p) {
    const uint64_t top = p.bit[7];
    return {{top, p.bit[0] ^ top, p.bit[1], p.bit[2] ^ top, p.bit[3] ^ top, p.bit[4], p.bit[5], p.bit[6]}};
}

void mix_columns(Planes& p) {
    Planes pair; // each byte and the one in the next row
    for (unsigned i = 0; i < 8; i++)
        pair.bit[i] = p.bit[i] ^ rotate_right(p.bit[i], 16);
    const Planes twice = times_x(pair);
    for (unsigned i = 0; i < 8; i++)
        p.bit[i] = twice.bit[i] ^ rotate_right(p.bit[i], 16) ^ rotate_right(pair.bit[i], 32);
}

// The matrix (14 11 13 9) is the product of (2 3 1 1) and (5 0 4 0).
void inv_mix_columns(Planes& p) {
    Planes pair;
    for (unsigned i = 0; i < 8; i++)
        pair.bit[i] = p.bit[i] ^ rotate_right(p.bit[i], 32);
    const Planes fourTimes = times_x(times_x(pair));
    for (unsigned i = 0; i < 8; i++)
        p.bit[i] ^= fourTimes.bit[i];
    mix_columns(p);
}

void add_round_key(Planes& p, const uint8_t* roundKey) {
    Wiped<Planes> key;
    const uint8_t* const same[kBitsliceBlocks] = {roundKey, roundKey, roundKey, roundKey};
    load(*key, same);
    for (unsigned i = 0; i < 8; i++)
        p.bit[i] ^= key->bit[i];
}

template<bool encrypting>
void cipher(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    const auto& roundKeys = encrypting ? key.encrypt : key.decrypt;
    Wiped<Planes> state;
    for (size_t done = 0; done < blocks; done += kBitsliceBlocks) {
        const size_t now = blocks - done < kBitsliceBlocks ? blocks - done : kBitsliceBlocks;
        const uint8_t* block[kBitsliceBlocks];
        for (size_t k = 0; k < kBitsliceBlocks; k++)
            block[k] = in + kAesBlock * (done + (k < now ? k : 0));
        load(*state, block);
        add_round_key(*state, roundKeys[0]);
        for (unsigned round = 1; round <= key.rounds; round++) {
            if constexpr (encrypting) {
                sub_bytes(*state);
                shift_rows<false>(*state);
                if (round < key.rounds)
                    mix_columns(*state);
            } else {
                inv_sub_bytes(*state);
                shift_rows<true>(*state);
                if (round < key.rounds)
                    inv_mix_columns(*state);
            }
            add_round_key(*state, roundKeys[round]);
        }
        store(*state, out + kAesBlock * done, now);
    }
}

void sub_word(uint8_t word[4]) {
    Secret<kAesBlock> block;
    std::memcpy(block.data(), word, 4);
    const uint8_t* const same[kBitsliceBlocks] = {block.data(), block.data(), block.data(), block.data()};
    Wiped<Planes> planes;
    load(*planes, same);
    sub_bytes(*planes);
    store(*planes, block.data(), 1);
    std::memcpy(word, block.data(), 4);
}

void expand(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo) {
    uint8_t* words = key.encrypt[0];
    std::memcpy(words, bytes, length);
    uint8_t roundConstant = 1;
    Secret<4> word;
    for (size_t at = length; at < kAesBlock * (key.rounds + 1); at += 4) {
        std::memcpy(word.data(), words + at - 4, 4);
        if (at % length == 0) {
            const uint8_t first = word[0];
            std::memmove(word.data(), word.data() + 1, 3);
            word[3] = first;
            sub_word(word.data());
            word[0] ^= roundConstant;
            roundConstant = static_cast<uint8_t>(roundConstant << 1 ^ (roundConstant >> 7) * 0x1B);
        } else if (length == 32 && at % length == 16) {
            sub_word(word.data());
        }
        for (size_t i = 0; i < 4; i++)
            words[at + i] = words[at - length + i] ^ word[i];
    }
    if (!decryptToo)
        return;
    for (unsigned round = 0; round <= key.rounds; round++) {
        const uint8_t* from = key.encrypt[key.rounds - round];
        const uint8_t* const same[kBitsliceBlocks] = {from, from, from, from};
        Wiped<Planes> planes;
        load(*planes, same);
        if (round > 0 && round < key.rounds)
            inv_mix_columns(*planes);
        store(*planes, key.decrypt[round], 1);
    }
}

} // namespace

// What the S-box leaves on the stack tells the state, and with the ciphertext the last round key.
static constexpr size_t kStackDepth = 4096;

void aes_bitslice_expand(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo) {
    WithCleanStack<expand>::call<kStackDepth>(key, bytes, length, decryptToo);
}

void aes_bitslice_encrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    WithCleanStack<cipher<true>>::call<kStackDepth>(key, out, in, blocks);
}

void aes_bitslice_decrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    WithCleanStack<cipher<false>>::call<kStackDepth>(key, out, in, blocks);
}

} // namespace zul
