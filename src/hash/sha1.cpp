#include "hash/sha1.h"

#include "frame/wipe.h"
#include "hash/sha1_kernels.h"
#include "hash/sha1_rounds.h"

namespace zul {

void sha1_compress_portable(uint32_t state[5], const uint8_t* data, size_t blocks) {
    sha1_compress_scalar(state, data, blocks);
}

static void compress(uint32_t state[5], const uint8_t* data, size_t blocks) {
#if ZUL_X86_64
    if (sha1_has_shani())
        return sha1_compress_shani(state, data, blocks);
    if (sha1_has_avx2())
        return sha1_compress_avx2(state, data, blocks);
#endif
    sha1_compress_portable(state, data, blocks);
}

const char* sha1_kernel() {
#if ZUL_X86_64
    if (sha1_has_shani())
        return "sha-ni";
    if (sha1_has_avx2())
        return "avx2";
#endif
    return "portable";
}

void sha1_init(Sha1Context& context) {
    constexpr uint32_t kState[5] = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476, 0xc3d2e1f0};
    memcpy(context.state, kState, sizeof kState);
    context.length = 0;
}

void sha1_update(Sha1Context& context, const void* data, size_t size) {
    block_digest_update(context, data, size, compress);
}

void sha1_update_two(Sha1Context& first, const void* firstData, Sha1Context& second, const void* secondData,
                     size_t size) {
#if ZUL_X86_64
    constexpr size_t kBlock = Sha1Context::kBlockSize;
    const size_t filled = first.length % kBlock;
    if (sha1_has_shani() && second.length % kBlock == filled && filled + size >= kBlock) {
        auto* firstBytes = static_cast<const uint8_t*>(firstData);
        auto* secondBytes = static_cast<const uint8_t*>(secondData);
        const size_t part = kBlock - filled, blocks = (size - part) / kBlock;
        memcpy(first.block + filled, firstBytes, part);
        memcpy(second.block + filled, secondBytes, part);
        firstBytes += part;
        secondBytes += part;
        sha1_compress_two_shani(first.state, first.block, second.state, second.block, 1);
        sha1_compress_two_shani(first.state, firstBytes, second.state, secondBytes, blocks);
        const size_t rest = (size - part) % kBlock;
        memcpy(first.block, firstBytes + blocks * kBlock, rest);
        memcpy(second.block, secondBytes + blocks * kBlock, rest);
        first.length += size;
        second.length += size;
        return;
    }
#endif
    sha1_update(first, firstData, size);
    sha1_update(second, secondData, size);
}

void sha1_final(Sha1Context& context, uint8_t digest[kSha1Size]) {
    block_digest_pad<std::endian::big>(context, compress);
    for (size_t i = 0; i < 5; i++)
        store_word<std::endian::big>(digest + 4 * i, context.state[i]);
    wipe_object(context);
}

} // namespace zul
