#pragma once
#include <cstddef>

// Characters in a text for people, in which nothing can look like something else.
namespace zul {

// is_hidden tells whether a character is one that is never written as it is: controls, line and paragraph
// separators, the controls of bidirectional text, tags, and the byte order mark.
bool is_hidden(char32_t character);

// json_put writes a character as JSON strings have it (RFC 8259, 7), with escapes for those that are hidden,
// and gives the bytes written.
constexpr size_t kMaxJsonCharacter = 12; // two \uXXXX
size_t json_put(char out[kMaxJsonCharacter], char32_t character);

} // namespace zul
