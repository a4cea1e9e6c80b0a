#include "hash/hmac.h"

#include "frame/wipe.h"
#include "hash/digest_output.h"
#include "hash/sha512_kernels.h"

namespace zul {

// Digests with large blocks have more state than registers, and their kernels leave words of it on the stack:
// below the long schedule of SHA-512's AVX2 code, or near the top.
static void wipe_state_of_kernels(int algorithm) {
    constexpr size_t kLargestInRegisters = 64, kDepth = 1536, kScheduleDepth = size_t{12} * 1024;
    if (digest_block_size(algorithm) <= kLargestInRegisters)
        return;
    bool isDeep = false;
#if ZUL_X86_64
    isDeep = sha512_has_avx2() && !sha512_has_avx512();
#endif
    wipe_dead_stack(isDeep ? kScheduleDepth : kDepth);
}

size_t hmac_length(int algorithm) {
    const DigestDescriptor* digest = digest_find(algorithm);
    return digest == nullptr || !digest->hasHmac ? 0 : digest->size;
}

void hmac_init(HmacContext& context, int algorithm, const void* key, size_t keyLen) {
    const size_t blockSize = digest_block_size(algorithm);
    Secret<kMaxDigestBlockSize> block;
    digest_init(context.inner, algorithm);
    digest_init(context.outer, algorithm);
    if (keyLen > blockSize) {
        digest_update(context.inner, key, keyLen);
        digest_final(context.inner, block.data());
        digest_init(context.inner, algorithm);
    } else if (keyLen != 0) {
        memcpy(block.data(), key, keyLen);
    }

    constexpr uint8_t kInnerPad = 0x36, kOuterPad = 0x5C;
    for (size_t i = 0; i < blockSize; i++)
        block[i] ^= kInnerPad;
    digest_update(context.inner, block.data(), blockSize);
    for (size_t i = 0; i < blockSize; i++)
        block[i] ^= kInnerPad ^ kOuterPad;
    digest_update(context.outer, block.data(), blockSize);
    wipe_state_of_kernels(algorithm);
}

void hmac_update(HmacContext& context, const void* data, size_t size) {
    digest_update(context.inner, data, size);
}

int hmac_final(HmacContext& context, uint8_t* mac) {
    const int algorithm = context.outer.algorithm;
    Secret<kMaxDigestSize> inner;
    const int length = digest_final(context.inner, inner.data());
    digest_update(context.outer, inner.data(), static_cast<size_t>(length));
    digest_final(context.outer, mac);
    wipe_state_of_kernels(algorithm);
    return length;
}

int hmac_bytes(uint8_t* out, int outMax, const void* data, size_t dataLen, const void* key, size_t keyLen,
               int algorithm) {
    const auto length = static_cast<int>(hmac_length(algorithm));
    if (length == 0)
        return -BAD_FLAG_ERROR;
    if (out == nullptr || outMax < 1)
        return length;
    HmacContext context; // hmac_final wipes it
    hmac_init(context, algorithm, key, keyLen);
    hmac_update(context, data, dataLen);
    Secret<kMaxDigestSize> mac;
    return digest_result(out, outMax, mac.data(), hmac_final(context, mac.data()));
}

} // namespace zul
