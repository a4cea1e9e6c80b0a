#pragma once
#include <string>
#include <string_view>

#include "secret_bytes.h"

namespace tool {

// decode_hex reads hex digits, with blanks and colons between them allowed. source names the text in the
// message of the UsageError thrown for anything else: the text itself is never shown. The result's data() is
// never null.
SecretBytes decode_hex(const unsigned char* text, size_t length, const std::string& source);
SecretBytes decode_hex(std::string_view text, const std::string& source);

// hex_line gives upper-case hex and a line feed.
SecretBytes hex_line(const SecretBytes& bytes);

// hex_or_raw takes a file's content for hex if it holds hex digits and white space alone, else as it is.
SecretBytes hex_or_raw(SecretBytes content, const std::string& source);

} // namespace tool
