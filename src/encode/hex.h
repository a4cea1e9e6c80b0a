#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// The digits that output uses.
inline constexpr char kHexDigits[] = "0123456789ABCDEF";

// hex_encode writes two upper-case digits for each byte into out, which holds outSize bytes, the NUL
// included. Only whole pairs that fit are written; the text is always ended. Returns the characters written.
size_t hex_encode(char* out, size_t outSize, const uint8_t* data, size_t len);
size_t hex_encode_lower(char* out, size_t outSize, const uint8_t* data, size_t len);

// hex_decode reads digits of either case up to the NUL or until outMax bytes are written. It skips every
// other character and drops a single digit left over at the end. Returns the bytes written.
size_t hex_decode(uint8_t* out, size_t outMax, const char* text);

// hex_decoded_length counts the bytes that hex_decode would write with room for all of them.
size_t hex_decoded_length(const char* text);

// hex_decode_strict takes an even number of digits and nothing else; out holds textLen / 2 bytes. After a
// failure *outLen is 0 and the bytes written are wiped.
bool hex_decode_strict(uint8_t* out, size_t* outLen, const char* text, size_t textLen);

// hex_filter copies the digits among the first len characters, or up to the NUL if that comes first, and ends
// the text. out holds len + 1 bytes and may be text itself, or null to count only. Returns the characters
// kept.
size_t hex_filter(char* out, const char* text, size_t len);

} // namespace zul
