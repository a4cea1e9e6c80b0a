#include "cipher/cipher_context.h"

#include <cstring>

#include "zulcore.h"

namespace zul {

size_t cipher_key_length(CipherAlgorithm algorithm) {
    switch (algorithm) {
    case CipherAlgorithm::aes128:
        return 16;
    case CipherAlgorithm::aes256:
        return 32;
    case CipherAlgorithm::tdea:
    case CipherAlgorithm::aes192:
        break;
    }
    return 24;
}

size_t cipher_block_length(CipherAlgorithm algorithm) {
    return algorithm == CipherAlgorithm::tdea ? 8 : kAesBlock;
}

int CipherContext::init(CipherAlgorithm algorithm, CipherMode mode, bool encrypt, const uint8_t* key,
                        const uint8_t* iv) {
    if (key == nullptr)
        return NULL_ERROR;
    if (iv == nullptr && mode != CipherMode::ecb)
        return BAD_IV_ERROR;
    algorithm_ = algorithm;
    mode_ = mode;
    encrypt_ = encrypt;
    ended_ = false;
    const bool usesDecryption = !encrypt && (mode == CipherMode::ecb || mode == CipherMode::cbc);
    if (algorithm == CipherAlgorithm::tdea)
        tdes_set_key(schedule_->tdes, key);
    else if (usesDecryption)
        aes_set_key(schedule_->aes, key, cipher_key_length(algorithm));
    else
        aes_set_encrypt_key(schedule_->aes, key, cipher_key_length(algorithm));
    if (mode != CipherMode::ecb)
        std::memcpy(chain_.data(), iv, cipher_block_length(algorithm));
    return 0;
}

int CipherContext::update(uint8_t* out, const uint8_t* in, size_t length) {
    if (length == 0)
        return 0;
    const size_t block = cipher_block_length(algorithm_);
    const size_t part = length % block;
    if (ended_ || (part != 0 && (mode_ == CipherMode::ecb || mode_ == CipherMode::cbc)))
        return BAD_LENGTH_ERROR;
    const size_t whole = length - part;
    run(out, in, whole / block);
    if (part != 0) {
        // The modes that get here add a key stream, so that the bytes past the part change nothing.
        Secret<16> last;
        std::memcpy(last.data(), in + whole, part);
        run(last.data(), last.data(), 1);
        std::memcpy(out + whole, last.data(), part);
        ended_ = true;
    }
    return 0;
}

void CipherContext::run(uint8_t* out, const uint8_t* in, size_t blocks) {
    if (algorithm_ == CipherAlgorithm::tdea)
        run_tdes(out, in, blocks);
    else
        run_aes(out, in, blocks);
}

void CipherContext::run_aes(uint8_t* out, const uint8_t* in, size_t blocks) {
    const AesKey& key = schedule_->aes;
    uint8_t* iv = chain_.data();
    switch (mode_) {
    case CipherMode::ecb:
        return encrypt_ ? aes_ecb_encrypt(key, out, in, blocks) : aes_ecb_decrypt(key, out, in, blocks);
    case CipherMode::cbc:
        return encrypt_ ? aes_cbc_encrypt(key, iv, out, in, blocks)
                        : aes_cbc_decrypt(key, iv, out, in, blocks);
    case CipherMode::cfb:
        return encrypt_ ? aes_cfb_encrypt(key, iv, out, in, blocks)
                        : aes_cfb_decrypt(key, iv, out, in, blocks);
    case CipherMode::ofb:
        return aes_ofb(key, iv, out, in, blocks);
    case CipherMode::ctr:
        return aes_ctr(key, iv, out, in, blocks);
    }
}

void CipherContext::run_tdes(uint8_t* out, const uint8_t* in, size_t blocks) {
    const TdesKey& key = schedule_->tdes;
    uint8_t* iv = chain_.data();
    switch (mode_) {
    case CipherMode::ecb:
        return encrypt_ ? tdes_ecb_encrypt(key, out, in, blocks) : tdes_ecb_decrypt(key, out, in, blocks);
    case CipherMode::cbc:
        return encrypt_ ? tdes_cbc_encrypt(key, iv, out, in, blocks)
                        : tdes_cbc_decrypt(key, iv, out, in, blocks);
    case CipherMode::cfb:
        return encrypt_ ? tdes_cfb_encrypt(key, iv, out, in, blocks)
                        : tdes_cfb_decrypt(key, iv, out, in, blocks);
    case CipherMode::ofb:
        return tdes_ofb(key, iv, out, in, blocks);
    case CipherMode::ctr:
        return tdes_ctr(key, iv, out, in, blocks);
    }
}

} // namespace zul
