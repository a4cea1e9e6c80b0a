#include "cipher/cipher_text.h"

#include "encode/base64.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "zulcore.h"

namespace zul {

namespace {

size_t decode(TextEncoding encoding, uint8_t* out, size_t outMax, const char* text) {
    return encoding == TextEncoding::hex ? hex_decode(out, outMax, text) : b64_decode(out, outMax, text);
}

size_t decoded_length(TextEncoding encoding, const char* text) {
    return encoding == TextEncoding::hex ? hex_decoded_length(text) : b64_decoded_length(text);
}

// out holds exactly size bytes; false if the text stands for any other number of them.
bool decode_exactly(TextEncoding encoding, uint8_t* out, size_t size, const char* text) {
    return decoded_length(encoding, text) == size && decode(encoding, out, size, text) == size;
}

} // namespace

int cipher_bytes(const CipherChoice& choice, bool encrypt, uint8_t* out, const uint8_t* in, size_t length,
                 const uint8_t* key, const uint8_t* iv) {
    if (out == nullptr || in == nullptr || key == nullptr)
        return NULL_ERROR;
    CipherContext context;
    if (const int code = context.init(choice.algorithm, choice.mode, encrypt, key, iv))
        return code;
    const size_t block = cipher_block_length(choice.algorithm);
    if (cipher_mode_pads(choice.mode) && length % block != 0)
        return err_fail(BAD_LENGTH_ERROR, "Data in ECB and CBC must be whole blocks of %d bytes",
                        static_cast<int>(block));
    return context.update(out, in, length);
}

int cipher_text(const CipherChoice& choice, bool encrypt, TextEncoding encoding, char* out, size_t outSize,
                const char* in, const char* key, const char* iv) {
    if (out == nullptr || in == nullptr || key == nullptr)
        return NULL_ERROR;
    if (in[0] == '\0' || key[0] == '\0')
        return BAD_PARAM_ERROR;
    const size_t length = decoded_length(encoding, in);
    if (length > kMaxAllocation)
        return BAD_LENGTH_ERROR;

    Secret<kMaxCipherKey> keyBytes;
    const size_t keyLength = cipher_key_length(choice.algorithm);
    if (!decode_exactly(encoding, keyBytes.data(), keyLength, key))
        return err_fail(BAD_KEY_LEN_ERROR, "The key must be of %d bytes", static_cast<int>(keyLength));
    Secret<kMaxCipherBlock> ivBytes;
    const size_t block = cipher_block_length(choice.algorithm);
    if (choice.mode != CipherMode::ecb &&
        (iv == nullptr || !decode_exactly(encoding, ivBytes.data(), block, iv)))
        return err_fail(BAD_IV_ERROR, "The initialization vector must be of %d bytes",
                        static_cast<int>(block));
    const size_t needed = encoding == TextEncoding::hex ? 2 * length : b64_encoded_length(length);
    if (outSize <= needed)
        return SHORT_BUF_ERROR;

    SecretBuffer data(length);
    decode(encoding, data.data(), length, in);
    if (const int code =
            cipher_bytes(choice, encrypt, data.data(), data.data(), length, keyBytes.data(), ivBytes.data()))
        return code;
    if (encoding == TextEncoding::hex)
        hex_encode(out, needed + 1, data.data(), length);
    else
        b64_encode(out, needed + 1, data.data(), length);
    return 0;
}

} // namespace zul
