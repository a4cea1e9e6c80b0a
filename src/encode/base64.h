#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/memory.h"

namespace zul {

// b64_encode writes base64 in one line into out, which holds outSize bytes, the NUL included. Only whole
// groups of four characters that fit are written; the text is always ended. Returns the characters written.
size_t b64_encode(char* out, size_t outSize, const uint8_t* data, size_t len);

// b64_encoded_length is the number of characters of len encoded bytes, padding included.
constexpr size_t b64_encoded_length(size_t len) {
    return (len / 3 + (len % 3 != 0)) * 4;
}

// b64_text gives the whole text; size() does not count the NUL that follows.
SecretBuffer b64_text(const uint8_t* data, size_t len);

// b64_decode reads up to the NUL or the first "=", skipping every character outside the alphabet. It stops at
// the first group whose bytes do not all fit into outMax. Returns the bytes written. The form with a length
// reads at most textLen characters.
size_t b64_decode(uint8_t* out, size_t outMax, const char* text);
size_t b64_decode(uint8_t* out, size_t outMax, const char* text, size_t textLen);

// b64_decoded_length counts the bytes that b64_decode would write with room for all of them.
size_t b64_decoded_length(const char* text);
size_t b64_decoded_length(const char* text, size_t textLen);

// b64_decode_canonical reads the one text that encodes some bytes, with its padding or, as files without it
// have it, with none: false for any other text (RFC 4648, 3.5). out has room for a whole last group.
[[nodiscard]] bool b64_decode_canonical(uint8_t* out, size_t* written, std::string_view text, bool padded);

// b64_is_char tells whether c belongs to the alphabet or is the padding "=".
bool b64_is_char(char c);

// b64_filter copies the characters of the alphabet and "=" among the first len characters, or up to the NUL
// if that comes first, and ends the text. out holds len + 1 bytes and may be text itself, or null to count
// only. Returns the characters kept.
size_t b64_filter(char* out, const char* text, size_t len);

} // namespace zul
