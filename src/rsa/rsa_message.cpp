#include "rsa/rsa_message.h"

#include <algorithm>
#include <cstring>

#include "rsa/iso9796.h"
#include "rsa/oaep.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/pkcs1_signature.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr int kEncodingMask = 0xF0, kHashMask = 0x0F, kBitsMask = 0xFFFF;

size_t iso9796_bits(int options, size_t blockLen) {
    const int bits = options & kBitsMask;
    return bits != 0 ? static_cast<size_t>(bits) : 8 * blockLen;
}

// Decoded is where a caller wants a message, and how long it was.
struct Decoded {
    uint8_t* out;
    size_t room;
    int* result;

    [[nodiscard]] int give(const uint8_t* found, size_t length) const {
        if (length > 0 && room > 0)
            memcpy(out, found, std::min(length, room));
        *result = static_cast<int>(length);
        return 0;
    }
};

[[nodiscard]] int decode_signature(const Decoded& decoded, const uint8_t* block, size_t blockLen,
                                   int options) {
    size_t start = 0;
    const DigestInfoPrefix* prefix = nullptr;
    if (const int code = pkcs1_open_block(block, blockLen, &start, &prefix))
        return code;
    if ((options & ZUL_EMSIG_GETALG) != 0) {
        *decoded.result = prefix->algorithm;
        return 0;
    }
    if ((options & ZUL_EMSIG_DIGINFO) == 0)
        start += prefix->length;
    return decoded.give(block + start, blockLen - start);
}

} // namespace

int rsa_encode_message(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, int options) {
    if ((options & ZUL_EMSIG_ISO9796) != 0)
        return iso9796_encode(out, outLen, message, length, iso9796_bits(options, outLen));
    switch (options & kEncodingMask) {
    case ZUL_EME_PKCSV1_5:
        return pkcs1_encrypt_block(out, outLen, message, length);
    case ZUL_EME_OAEP:
        return oaep_encode(out, outLen, message, length, options & kHashMask);
    case ZUL_EMSIG_PKCSV1_5:
        return pkcs1_sign_block(out, outLen, message, length, options & kHashMask,
                                (options & ZUL_EMSIG_DIGESTONLY) != 0);
    default:
        return BAD_FLAG_ERROR;
    }
}

int rsa_decode_message(uint8_t* out, size_t room, const uint8_t* block, size_t blockLen, int options,
                       int* result) {
    const Decoded decoded{out, room, result};
    size_t start = 0;
    SecretBuffer content;
    if ((options & ZUL_EMSIG_ISO9796) != 0) {
        const int code = iso9796_decode(content, block, blockLen, iso9796_bits(options, blockLen));
        return code != 0 ? code : decoded.give(content.data(), content.size());
    }
    switch (options & kEncodingMask) {
    case ZUL_EME_PKCSV1_5: {
        const int code = pkcs1_decrypt_block(block, blockLen, &start);
        return code != 0 ? code : decoded.give(block + start, blockLen - start);
    }
    case ZUL_EME_OAEP: {
        const int code = oaep_decode(content, &start, block, blockLen, options & kHashMask);
        return code != 0 ? code : decoded.give(content.data() + start, content.size() - start);
    }
    case ZUL_EMSIG_PKCSV1_5:
        return decode_signature(decoded, block, blockLen, options);
    default:
        return BAD_FLAG_ERROR;
    }
}

} // namespace zul
