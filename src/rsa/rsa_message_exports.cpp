#include <algorithm>
#include <cstring>

#include "frame/call_frame.h"
#include "rsa/iso9796.h"
#include "rsa/oaep.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/pkcs1_signature.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr int kEncodingMask = 0xF0, kHashMask = 0x0F, kBitsMask = 0xFFFF;

size_t iso9796_bits(int options, size_t blockLen) {
    const int bits = options & kBitsMask;
    return bits != 0 ? static_cast<size_t>(bits) : 8 * blockLen;
}

int encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, int options) {
    if ((options & ZUL_EMSIG_ISO9796) != 0)
        return std::min(iso9796_encode(out, outLen, message, length, iso9796_bits(options, outLen)), 0);
    switch (options & kEncodingMask) {
    case ZUL_EME_PKCSV1_5:
        return pkcs1_encrypt_block(out, outLen, message, length);
    case ZUL_EME_OAEP:
        return oaep_encode(out, outLen, message, length, options & kHashMask);
    case ZUL_EMSIG_PKCSV1_5:
        return pkcs1_sign_block(out, outLen, message, length, options & kHashMask,
                                (options & ZUL_EMSIG_DIGESTONLY) != 0);
    default:
        return -BAD_FLAG_ERROR;
    }
}

// Passes on the length of what was found, copying as much of it as the room holds, or a negated code.
int give(uint8_t* out, size_t room, const uint8_t* found, int length) {
    if (length > 0 && room > 0)
        memcpy(out, found, std::min(static_cast<size_t>(length), room));
    return length;
}

int decode(uint8_t* out, size_t room, const uint8_t* block, size_t blockLen, int options) {
    size_t start = 0;
    if ((options & ZUL_EMSIG_ISO9796) != 0) {
        SecretBuffer message;
        const int length = iso9796_decode(message, block, blockLen, iso9796_bits(options, blockLen));
        return give(out, room, message.data(), length);
    }
    switch (options & kEncodingMask) {
    case ZUL_EME_PKCSV1_5: {
        const int length = pkcs1_decrypt_block(block, blockLen, &start);
        return give(out, room, block + start, length);
    }
    case ZUL_EME_OAEP: {
        SecretBuffer content;
        const int length = oaep_decode(content, &start, block, blockLen, options & kHashMask);
        return give(out, room, content.data() + start, length);
    }
    case ZUL_EMSIG_PKCSV1_5: {
        const DigestInfoPrefix* prefix = nullptr;
        const int length = pkcs1_open_block(block, blockLen, &start, &prefix);
        if (length < 0)
            return length;
        if ((options & ZUL_EMSIG_GETALG) != 0)
            return prefix->algorithm;
        if ((options & ZUL_EMSIG_DIGINFO) != 0)
            return give(out, room, block + start, length);
        return give(out, room, block + start + prefix->length, static_cast<int>(prefix->digestLength));
    }
    default:
        return -BAD_FLAG_ERROR;
    }
}

} // namespace

int RSA_EncodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                  int nOptions) {
    CallFrame frame;
    if (lpOutput == nullptr || nOutBytes < 0 || nInputLen < 0 || (lpInput == nullptr && nInputLen > 0))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(
        encode(lpOutput, static_cast<size_t>(nOutBytes), lpInput, static_cast<size_t>(nInputLen), nOptions));
}

int RSA_DecodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                  int nOptions) {
    CallFrame frame;
    if (lpInput == nullptr || nInputLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    const size_t room = lpOutput == nullptr || nOutBytes < 1 ? 0 : static_cast<size_t>(nOutBytes);
    return frame.length(decode(lpOutput, room, lpInput, static_cast<size_t>(nInputLen), nOptions));
}
