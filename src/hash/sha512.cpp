#include "hash/sha512.h"

#include "frame/wipe.h"
#include "hash/sha2_rounds.h"
#include "hash/sha512_kernels.h"

namespace zul {

void sha512_compress_portable(uint64_t state[8], const uint8_t* data, size_t blocks) {
    sha2_compress_scalar<Sha512Family>(state, data, blocks);
}

static void compress(uint64_t state[8], const uint8_t* data, size_t blocks) {
#if ZUL_X86_64
    if (sha512_has_avx512())
        return sha512_compress_avx512(state, data, blocks);
    if (sha512_has_avx2())
        return sha512_compress_avx2(state, data, blocks);
#endif
    sha512_compress_portable(state, data, blocks);
}

const char* sha512_kernel() {
#if ZUL_X86_64
    if (sha512_has_avx512())
        return "avx512";
    if (sha512_has_avx2())
        return "avx2";
#endif
    return "portable";
}

static void init(Sha512Context& context, const uint64_t (&state)[8], size_t digestSize) {
    memcpy(context.state, state, sizeof state);
    context.length = 0;
    context.digestSize = digestSize;
}

void sha384_init(Sha512Context& context) {
    init(context,
         {0xcbbb9d5dc1059ed8, 0x629a292a367cd507, 0x9159015a3070dd17, 0x152fecd8f70e5939, 0x67332667ffc00b31,
          0x8eb44a8768581511, 0xdb0c2e0d64f98fa7, 0x47b5481dbefa4fa4},
         kSha384Size);
}

void sha512_init(Sha512Context& context) {
    init(context,
         {0x6a09e667f3bcc908, 0xbb67ae8584caa73b, 0x3c6ef372fe94f82b, 0xa54ff53a5f1d36f1, 0x510e527fade682d1,
          0x9b05688c2b3e6c1f, 0x1f83d9abfb41bd6b, 0x5be0cd19137e2179},
         kSha512Size);
}

void sha512_256_init(Sha512Context& context) {
    init(context,
         {0x22312194fc2bf72c, 0x9f555fa3c84c64c2, 0x2393b86b6f53b151, 0x963877195940eabd, 0x96283ee2a88effe3,
          0xbe5e1e2553863992, 0x2b0199fc2c85b8aa, 0x0eb72ddc81c52ca2},
         kSha512_256Size);
}

void sha512_update(Sha512Context& context, const void* data, size_t size) {
    block_digest_update(context, data, size, compress);
}

void sha512_final(Sha512Context& context, uint8_t* digest) {
    block_digest_pad<std::endian::big>(context, compress);
    for (size_t i = 0; i < context.digestSize / sizeof(uint64_t); i++)
        store_word<std::endian::big>(digest + sizeof(uint64_t) * i, context.state[i]);
    wipe_object(context);
}

} // namespace zul
