#pragma once
#include <string>
#include <string_view>

#include "secret_bytes.h"

// Text as mail carries it (RFC 2045, 2047, 5322).
namespace tool {

inline std::string_view view_of(const SecretBytes& bytes) {
    return {as_text(bytes), bytes.size()};
}
inline void append(SecretBytes& bytes, std::string_view text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

// next_line cuts the first line, with its line end, off a text; a line ends with LF.
std::string_view next_line(std::string_view& text);
// without_line_end takes off LF or CR LF.
std::string_view without_line_end(std::string_view line);
bool is_blank(char c); // space or tab
std::string_view without_blanks(std::string_view text);
bool is_ascii_text(std::string_view text); // without control characters
bool is_utf8(std::string_view text);

// append_canonical ends every line with CR LF (RFC 8551, 3.1.1).
void append_canonical(SecretBytes& bytes, std::string_view text);
// fits_seven_bits is true for lines of ASCII that every mail system passes on: 998 characters at most, no
// zero bytes, no CR alone.
bool fits_seven_bits(std::string_view text);

// append_base64 writes lines of 76 characters, each with its CR LF.
void append_base64(SecretBytes& bytes, std::string_view content);
// append_quoted_printable takes text whose lines end with CR LF.
void append_quoted_printable(SecretBytes& bytes, std::string_view text);

// decode_transfer undoes a Content-Transfer-Encoding; name is for messages. Refused for one that is not known
// and for content that it cannot have made.
SecretBytes decode_transfer(std::string_view body, const std::string& encoding, const std::string& name);

// header_text makes UTF-8 fit for a field, in encoded words if need be (RFC 2047), in lines of 76 characters.
// column is where it begins.
std::string header_text(std::string_view text, size_t column);
// parameter gives ";name=value" on a line of its own, quoted or with percent signs (RFC 2231).
std::string parameter(const std::string& name, std::string_view value);
// date_now gives the present time as RFC 5322 has it, in UTC.
std::string date_now();

} // namespace tool
