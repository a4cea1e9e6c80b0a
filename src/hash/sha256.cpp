#include "hash/sha256.h"

#include "frame/wipe.h"
#include "hash/sha256_kernels.h"
#include "hash/sha2_rounds.h"

namespace zul {

void sha256_compress_portable(uint32_t state[8], const uint8_t* data, size_t blocks) {
    sha2_compress_scalar<Sha256Family>(state, data, blocks);
}

static void compress(uint32_t state[8], const uint8_t* data, size_t blocks) {
#if ZUL_X86_64
    if (sha256_has_shani())
        return sha256_compress_shani(state, data, blocks);
    if (sha256_has_avx2())
        return sha256_compress_avx2(state, data, blocks);
#endif
    sha256_compress_portable(state, data, blocks);
}

const char* sha256_kernel() {
#if ZUL_X86_64
    if (sha256_has_shani())
        return "sha-ni";
    if (sha256_has_avx2())
        return "avx2";
#endif
    return "portable";
}

static void init(Sha256Context& context, const uint32_t (&state)[8], size_t digestSize) {
    memcpy(context.state, state, sizeof state);
    context.length = 0;
    context.digestSize = digestSize;
}

void sha224_init(Sha256Context& context) {
    init(context,
         {0xc1059ed8, 0x367cd507, 0x3070dd17, 0xf70e5939, 0xffc00b31, 0x68581511, 0x64f98fa7, 0xbefa4fa4},
         kSha224Size);
}

void sha256_init(Sha256Context& context) {
    init(context,
         {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19},
         kSha256Size);
}

void sha256_update(Sha256Context& context, const void* data, size_t size) {
    block_digest_update(context, data, size, compress);
}

void sha256_final(Sha256Context& context, uint8_t* digest) {
    block_digest_pad<std::endian::big>(context, compress);
    for (size_t i = 0; i < context.digestSize / sizeof(uint32_t); i++)
        store_word<std::endian::big>(digest + sizeof(uint32_t) * i, context.state[i]);
    wipe_object(context);
}

} // namespace zul
