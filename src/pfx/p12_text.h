#pragma once
#include <string_view>

#include "frame/memory.h"

// Text of PKCS #12 files: BMPStrings, which writers fill with UTF-16, and UTF-8 (RFC 3629).
namespace zul {

// utf16_from_utf8 gives big-endian UTF-16 without a NUL: false if the text is not well-formed UTF-8.
[[nodiscard]] bool utf16_from_utf8(SecretBuffer& out, std::string_view text);

// utf8_from_utf16 converts big-endian UTF-16. Half of a pair, or of a character, gives U+FFFD.
void utf8_from_utf16(SecretBuffer& out, const uint8_t* bytes, size_t size);

// append_latin1 adds a Latin-1 text as UTF-8.
void append_latin1(SecretBuffer& out, std::string_view text);

// append_quoted adds a UTF-8 text as a JSON string (RFC 8259, 7). Hidden characters are escaped, so that
// no text looks like something else in a report. Each byte that begins no well-formed character gives U+FFFD.
void append_quoted(SecretBuffer& out, std::string_view text);

inline void append_text(SecretBuffer& out, std::string_view text) {
    out.append(text.data(), text.size());
}
inline std::string_view view_of(const SecretBuffer& text) {
    return {text.text(), text.size()};
}

} // namespace zul
