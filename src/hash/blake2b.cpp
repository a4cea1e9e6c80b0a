#include "hash/blake2b.h"

#include <algorithm>

#include "frame/wipe.h"
#include "hash/digest_words.h"

namespace zul {

namespace {

constexpr uint64_t kStart[8] = {0x6A09E667F3BCC908, 0xBB67AE8584CAA73B, 0x3C6EF372FE94F82B,
                                0xA54FF53A5F1D36F1, 0x510E527FADE682D1, 0x9B05688C2B3E6C1F,
                                0x1F83D9ABFB41BD6B, 0x5BE0CD19137E2179};

constexpr uint8_t kSigma[10][16] = {
    {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
    {14, 10, 4, 8, 9, 15, 13, 6, 1, 12, 0, 2, 11, 7, 5, 3},
    {11, 8, 12, 0, 5, 2, 15, 13, 10, 14, 3, 6, 7, 1, 9, 4},
    {7, 9, 3, 1, 13, 12, 11, 14, 2, 6, 5, 10, 4, 0, 15, 8},
    {9, 0, 5, 7, 2, 4, 10, 15, 14, 1, 11, 12, 6, 8, 3, 13},
    {2, 12, 6, 10, 0, 11, 8, 3, 4, 13, 7, 5, 15, 14, 1, 9},
    {12, 5, 1, 15, 14, 13, 4, 10, 0, 7, 6, 3, 9, 2, 8, 11},
    {13, 11, 7, 14, 12, 1, 3, 9, 5, 0, 15, 4, 8, 6, 2, 10},
    {6, 15, 14, 9, 11, 3, 0, 8, 12, 2, 13, 7, 1, 4, 10, 5},
    {10, 2, 8, 4, 7, 6, 1, 5, 15, 11, 9, 14, 3, 12, 13, 0},
};

ZUL_ALWAYS_INLINE void mix(uint64_t& a, uint64_t& b, uint64_t& c, uint64_t& d, uint64_t x, uint64_t y) {
    a += b + x;
    d = std::rotr(d ^ a, 32);
    c += d;
    b = std::rotr(b ^ c, 24);
    a += b + y;
    d = std::rotr(d ^ a, 16);
    c += d;
    b = std::rotr(b ^ c, 63);
}

void compress(Blake2bContext& context, const uint8_t* block, bool isLast) {
    struct Work {
        uint64_t v[16], m[16];
    };
    Wiped<Work> work;
    auto& v = work->v;
    auto& m = work->m;
    for (size_t i = 0; i < 16; i++)
        m[i] = load_word<uint64_t, std::endian::little>(block + 8 * i);
    std::copy_n(context.state, 8, v);
    std::copy_n(kStart, 8, v + 8);
    v[12] ^= context.length;
    if (isLast)
        v[14] = ~v[14];
    for (size_t round = 0; round < 12; round++) {
        const uint8_t* s = kSigma[round % 10];
        for (size_t i = 0; i < 4; i++)
            mix(v[i], v[4 + i], v[8 + i], v[12 + i], m[s[2 * i]], m[s[2 * i + 1]]);
        for (size_t i = 0; i < 4; i++)
            mix(v[i], v[4 + (i + 1) % 4], v[8 + (i + 2) % 4], v[12 + (i + 3) % 4], m[s[8 + 2 * i]],
                m[s[9 + 2 * i]]);
    }
    for (size_t i = 0; i < 8; i++)
        context.state[i] ^= v[i] ^ v[8 + i];
}

} // namespace

void blake2b_init(Blake2bContext& context, size_t digestSize) {
    constexpr uint64_t kNoKeyOneLeaf = 0x01010000;
    std::copy_n(kStart, 8, context.state);
    context.state[0] ^= kNoKeyOneLeaf ^ digestSize;
    context.length = 0;
    context.filled = 0;
    context.digestSize = digestSize;
}

void blake2b_update(Blake2bContext& context, const void* data, size_t size) {
    auto* bytes = static_cast<const uint8_t*>(data);
    while (size != 0) {
        // A full block waits for what follows, since the last one is compressed in another way.
        if (context.filled == Blake2bContext::kBlockSize) {
            context.length += context.filled;
            compress(context, context.block, false);
            context.filled = 0;
        }
        const size_t part = std::min(size, Blake2bContext::kBlockSize - context.filled);
        memcpy(context.block + context.filled, bytes, part);
        context.filled += part;
        bytes += part;
        size -= part;
    }
}

void blake2b_final(Blake2bContext& context, uint8_t* digest) {
    memset(context.block + context.filled, 0, Blake2bContext::kBlockSize - context.filled);
    context.length += context.filled;
    compress(context, context.block, true);
    for (size_t i = 0; i < 8; i++)
        store_word<std::endian::little>(context.block + 8 * i, context.state[i]);
    memcpy(digest, context.block, context.digestSize);
    wipe_object(context);
}

} // namespace zul
