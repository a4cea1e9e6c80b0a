#include "cipher/cipher_context.h"

#include <cstring>

#include "zulcore.h"

namespace zul {

int CipherContext::init(CipherAlgorithm algorithm, CipherMode mode, bool encrypt, const CipherKey& key,
                        const uint8_t* iv) {
    if (key.bytes == nullptr)
        return NULL_ERROR;
    if (iv == nullptr && mode != CipherMode::ecb)
        return BAD_IV_ERROR;
    const BlockCipher& cipher = block_cipher(algorithm);
    const auto& functions = cipher.modes[static_cast<size_t>(mode)];
    if (functions.encrypt == nullptr)
        return BAD_MODE_ERROR;
    const bool forDecryption = !encrypt && (mode == CipherMode::ecb || mode == CipherMode::cbc);
    if (!cipher.setKey(*schedule_, key, forDecryption))
        return BAD_KEY_LEN_ERROR;
    algorithm_ = algorithm;
    mode_ = mode;
    encrypt_ = encrypt;
    ended_ = false;
    if (mode != CipherMode::ecb)
        std::memcpy(chain_.data(), iv, cipher.blockLength);
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
        Secret<kMaxCipherBlock> last;
        std::memcpy(last.data(), in + whole, part);
        run(last.data(), last.data(), 1);
        std::memcpy(out + whole, last.data(), part);
        ended_ = true;
    }
    return 0;
}

void CipherContext::run(uint8_t* out, const uint8_t* in, size_t blocks) {
    const auto& functions = block_cipher(algorithm_).modes[static_cast<size_t>(mode_)];
    (encrypt_ ? functions.encrypt : functions.decrypt)(*schedule_, chain_.data(), out, in, blocks);
}

} // namespace zul
