// The modes of SP 800-38A over the bit-sliced cipher.
#include <cstring>

#include "cipher/aes_bitslice.h"
#include "cipher/aes_kernels.h"
#include "frame/wipe.h"

namespace zul {

namespace {

constexpr size_t kBatch = kBitsliceBlocks * kAesBlock;

void add(uint8_t* out, const uint8_t* a, const uint8_t* b, size_t length) {
    for (size_t i = 0; i < length; i++)
        out[i] = a[i] ^ b[i];
}

void cbc_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    for (; blocks > 0; blocks--, out += kAesBlock, in += kAesBlock) {
        add(iv, iv, in, kAesBlock);
        aes_bitslice_encrypt(key, iv, iv, 1);
        std::memcpy(out, iv, kAesBlock);
    }
}

// The batch holds the chaining blocks: the one before the first, then the ciphertext itself.
void cbc_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    Secret<kBatch> chain;
    while (blocks > 0) {
        const size_t now = blocks < kBitsliceBlocks ? blocks : kBitsliceBlocks;
        const size_t length = now * kAesBlock;
        std::memcpy(chain.data(), iv, kAesBlock);
        std::memcpy(chain.data() + kAesBlock, in, length - kAesBlock);
        std::memcpy(iv, in + length - kAesBlock, kAesBlock);
        aes_bitslice_decrypt(key, out, in, now);
        add(out, out, chain.data(), length);
        in += length;
        out += length;
        blocks -= now;
    }
}

void cfb_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    for (; blocks > 0; blocks--, out += kAesBlock, in += kAesBlock) {
        aes_bitslice_encrypt(key, iv, iv, 1);
        add(iv, iv, in, kAesBlock);
        std::memcpy(out, iv, kAesBlock);
    }
}

void cfb_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    Secret<kBatch> stream;
    while (blocks > 0) {
        const size_t now = blocks < kBitsliceBlocks ? blocks : kBitsliceBlocks;
        const size_t length = now * kAesBlock;
        std::memcpy(stream.data(), iv, kAesBlock);
        std::memcpy(stream.data() + kAesBlock, in, length - kAesBlock);
        std::memcpy(iv, in + length - kAesBlock, kAesBlock);
        aes_bitslice_encrypt(key, stream.data(), stream.data(), now);
        add(out, in, stream.data(), length);
        in += length;
        out += length;
        blocks -= now;
    }
}

void ofb(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    for (; blocks > 0; blocks--, out += kAesBlock, in += kAesBlock) {
        aes_bitslice_encrypt(key, iv, iv, 1);
        add(out, in, iv, kAesBlock);
    }
}

void ctr(const AesKey& key, uint8_t* counter, uint8_t* out, const uint8_t* in, size_t blocks) {
    Secret<kBatch> stream;
    while (blocks > 0) {
        const size_t now = blocks < kBitsliceBlocks ? blocks : kBitsliceBlocks;
        for (size_t k = 0; k < now; k++) {
            std::memcpy(stream.data() + k * kAesBlock, counter, kAesBlock);
            for (size_t i = kAesBlock; i > 8; i--) {
                if (++counter[i - 1] != 0)
                    break;
            }
        }
        const size_t length = now * kAesBlock;
        aes_bitslice_encrypt(key, stream.data(), stream.data(), now);
        add(out, in, stream.data(), length);
        in += length;
        out += length;
        blocks -= now;
    }
}

} // namespace

const AesKernel kAesPortable = {
    .name = "portable",
    .expand = aes_bitslice_expand,
    .ecbEncrypt = aes_bitslice_encrypt,
    .ecbDecrypt = aes_bitslice_decrypt,
    .cbcEncrypt = cbc_encrypt,
    .cbcDecrypt = cbc_decrypt,
    .cfbEncrypt = cfb_encrypt,
    .cfbDecrypt = cfb_decrypt,
    .ofb = ofb,
    .ctr = ctr,
};

} // namespace zul
