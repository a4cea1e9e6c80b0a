// AES, FIPS 197, and its modes, SP 800-38A: the choice of the kernel and what all kernels have in common.
#include "cipher/aes.h"

#include "cipher/aes_kernels.h"

namespace zul {

static const AesKernel& kernel() {
#if ZUL_X86_64
    if (aes_vaes512_usable())
        return kAesVaes512;
    if (aes_vaes256_usable())
        return kAesVaes256;
    if (aes_ni_usable())
        return kAesNi;
#endif
    return kAesPortable;
}

const char* aes_kernel() {
    return kernel().name;
}

static bool set_key(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo) {
    if (length != 16 && length != 24 && length != 32)
        return false;
    key.rounds = static_cast<unsigned>(length / 4 + 6);
    kernel().expand(key, bytes, length, decryptToo);
    return true;
}

bool aes_set_key(AesKey& key, const uint8_t* bytes, size_t length) {
    return set_key(key, bytes, length, true);
}

bool aes_set_encrypt_key(AesKey& key, const uint8_t* bytes, size_t length) {
    return set_key(key, bytes, length, false);
}

void aes_ecb_encrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().ecbEncrypt(key, out, in, blocks);
}

void aes_ecb_decrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().ecbDecrypt(key, out, in, blocks);
}

void aes_cbc_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().cbcEncrypt(key, iv, out, in, blocks);
}

void aes_cbc_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().cbcDecrypt(key, iv, out, in, blocks);
}

void aes_cfb_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().cfbEncrypt(key, iv, out, in, blocks);
}

void aes_cfb_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().cfbDecrypt(key, iv, out, in, blocks);
}

void aes_ofb(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    kernel().ofb(key, iv, out, in, blocks);
}

void aes_ctr(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    while (blocks > 0) {
        uint64_t low = 0;
        for (size_t i = 8; i < 16; i++)
            low = (low << 8) | iv[i];
        // A run ends where the low half of the counter comes back to zero. From zero itself that is 2^64
        // blocks away, which no buffer has.
        const uint64_t untilCarry = 0 - low;
        const bool carries = low != 0 && untilCarry <= blocks;
        const size_t run = carries ? static_cast<size_t>(untilCarry) : blocks;
        kernel().ctr(key, iv, out, in, run);
        for (size_t i = 8; carries && i > 0; i--) {
            if (++iv[i - 1] != 0)
                break;
        }
        out += run * kAesBlock;
        in += run * kAesBlock;
        blocks -= run;
    }
}

} // namespace zul
