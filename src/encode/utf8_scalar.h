#pragma once
#include <cstddef>
#include <string_view>

// UTF-8 character by character, as RFC 3629 has it: no overlong forms, no surrogates, nothing above U+10FFFF.
namespace zul {

// utf8_next takes the first character off a text that is not empty; false if it does not begin with one.
bool utf8_next(std::string_view& rest, char32_t& character);

// utf8_put writes a character, and gives the bytes written.
constexpr size_t kMaxUtf8 = 4;
size_t utf8_put(char out[kMaxUtf8], char32_t character);

} // namespace zul
