#include "hash/hex_message.h"

#include <cstring>

#include "encode/hex.h"
#include "zulcore.h"

namespace zul {

// Leaves bytes empty if the text is anything but pairs of digits.
static bool decode(SecretBuffer& bytes, const char* text, size_t textLen) {
    bytes = SecretBuffer(textLen / 2);
    size_t length = 0;
    const bool decoded = hex_decode_strict(bytes.data(), &length, text, textLen);
    bytes.shrink(length);
    return decoded;
}

int decode_hex_message(SecretBuffer& message, const char* text) {
    const size_t textLen = strlen(text);
    if (textLen % 2 != 0)
        return INVALID_DATA_ERROR;
    if (textLen / 2 > kMaxAllocation)
        return BAD_LENGTH_ERROR;
    if (textLen != 0)
        decode(message, text, textLen);
    return 0;
}

int decode_hex_key(SecretBuffer& key, const char* text) {
    const size_t textLen = strlen(text);
    if (textLen < 2)
        return BAD_KEY_LEN_ERROR;
    if (textLen / 2 > kMaxAllocation)
        return BAD_LENGTH_ERROR;
    return decode(key, text, textLen) ? 0 : BAD_FORMAT_ERROR;
}

} // namespace zul
