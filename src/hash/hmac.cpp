#include "hash/hmac.h"

#include "frame/wipe.h"
#include "hash/digest_output.h"

namespace zul {

int hmac_length(int algorithm) {
    return algorithm == kDigestMd2 ? -BAD_FLAG_ERROR : digest_length(algorithm);
}

int hmac_init(HmacContext& context, int algorithm, const void* key, size_t keyLen) {
    if (hmac_length(algorithm) < 0)
        return -BAD_FLAG_ERROR;
    const auto blockSize = static_cast<size_t>(digest_block_size(algorithm));
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
    return 0;
}

void hmac_update(HmacContext& context, const void* data, size_t size) {
    digest_update(context.inner, data, size);
}

int hmac_final(HmacContext& context, uint8_t* mac) {
    Secret<kMaxDigestSize> inner;
    const int length = digest_final(context.inner, inner.data());
    digest_update(context.outer, inner.data(), static_cast<size_t>(length));
    return digest_final(context.outer, mac);
}

static int hmac(uint8_t* mac, int algorithm, const void* data, size_t dataLen, const void* key,
                size_t keyLen) {
    HmacContext context; // hmac_final wipes it
    const int result = hmac_init(context, algorithm, key, keyLen);
    if (result < 0)
        return result;
    hmac_update(context, data, dataLen);
    return hmac_final(context, mac);
}

void hmac_sha1(uint8_t mac[kSha1Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestSha1, data, dataLen, key, keyLen);
}

void hmac_sha224(uint8_t mac[kSha224Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestSha224, data, dataLen, key, keyLen);
}

void hmac_sha256(uint8_t mac[kSha256Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestSha256, data, dataLen, key, keyLen);
}

void hmac_sha384(uint8_t mac[kSha384Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestSha384, data, dataLen, key, keyLen);
}

void hmac_sha512(uint8_t mac[kSha512Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestSha512, data, dataLen, key, keyLen);
}

void hmac_md5(uint8_t mac[kMd5Size], const void* data, size_t dataLen, const void* key, size_t keyLen) {
    hmac(mac, kDigestMd5, data, dataLen, key, keyLen);
}

int hmac_bytes(uint8_t* out, int outMax, const void* data, size_t dataLen, const void* key, size_t keyLen,
               int algorithm) {
    const int length = hmac_length(algorithm);
    if (length < 0 || out == nullptr || outMax < 1)
        return length;
    Secret<kMaxDigestSize> mac;
    return digest_result(out, outMax, mac.data(), hmac(mac.data(), algorithm, data, dataLen, key, keyLen));
}

} // namespace zul
