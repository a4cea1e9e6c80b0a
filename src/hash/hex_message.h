#pragma once
#include "frame/memory.h"

// Messages and keys that come as hex text. Both functions return 0 or an error code; a text
// longer than the largest block of memory is BAD_LENGTH_ERROR.
namespace zul {

// decode_hex_message decodes a message: INVALID_DATA_ERROR if its length is odd. A text with a character
// that is no digit gives the empty message, and so does an empty text.
[[nodiscard]] int decode_hex_message(SecretBuffer& message, const char* text);

// decode_hex_key decodes a key: BAD_KEY_LEN_ERROR for a text of less than two characters, BAD_FORMAT_ERROR
// for one that is not pairs of digits.
[[nodiscard]] int decode_hex_key(SecretBuffer& key, const char* text);

} // namespace zul
