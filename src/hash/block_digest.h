#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "hash/digest_words.h"

// What MD5, SHA-1 and SHA-2 have in common around their compression functions: messages are cut into blocks,
// and the last block ends with the message's length.
namespace zul {

template<class WordType, size_t StateWords, size_t BlockSize>
struct BlockDigestContext {
    using Word = WordType;
    static constexpr size_t kBlockSize = BlockSize;

    Word state[StateWords];
    uint64_t length; // in bytes, so far; the last length % kBlockSize of them wait in block
    uint8_t block[BlockSize];
};

// compress(state, data, blocks) absorbs whole blocks.
template<class Context, class Compress>
inline void block_digest_update(Context& context, const void* data, size_t size, Compress compress) {
    constexpr size_t kBlockSize = Context::kBlockSize;
    if (size == 0)
        return;
    auto* bytes = static_cast<const uint8_t*>(data);
    const size_t filled = context.length % kBlockSize;
    context.length += size;
    if (filled != 0) {
        const size_t part = std::min(size, kBlockSize - filled);
        memcpy(context.block + filled, bytes, part);
        bytes += part;
        size -= part;
        if (filled + part < kBlockSize)
            return;
        compress(context.state, context.block, 1);
    }
    const size_t blocks = size / kBlockSize;
    if (blocks != 0)
        compress(context.state, bytes, blocks);
    memcpy(context.block, bytes + blocks * kBlockSize, size % kBlockSize);
}

// block_digest_pad absorbs the one bit, the zeros and the length in bits as two words of the digest's own
// size and byte order. The state is then the digest.
template<std::endian Order, class Context, class Compress>
inline void block_digest_pad(Context& context, Compress compress) {
    using Word = typename Context::Word;
    constexpr size_t kLengthAt = Context::kBlockSize - 2 * sizeof(Word);
    size_t filled = context.length % Context::kBlockSize;
    context.block[filled++] = 0x80;
    if (filled > kLengthAt) {
        memset(context.block + filled, 0, Context::kBlockSize - filled);
        compress(context.state, context.block, 1);
        filled = 0;
    }
    memset(context.block + filled, 0, kLengthAt - filled);
    const auto low = static_cast<Word>(context.length << 3);
    const auto high = static_cast<Word>(sizeof(Word) == 8 ? context.length >> 61 : context.length >> 29);
    constexpr bool kBigEndian = Order == std::endian::big;
    store_word<Order>(context.block + kLengthAt, kBigEndian ? high : low);
    store_word<Order>(context.block + kLengthAt + sizeof(Word), kBigEndian ? low : high);
    compress(context.state, context.block, 1);
}

} // namespace zul
