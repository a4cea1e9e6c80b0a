#pragma once
#include <cstddef>
#include <string_view>

namespace zul {

// str_copy copies at most size-1 characters of src and a NUL into dest; returns the full length of src. With
// a null pointer or a size of 0 or less it copies nothing and returns 0.
int str_copy(char* dest, const char* src, int size);

// str_append appends src to the text in dest. size is the whole room of dest. It returns the length that the
// joined text would have without the cut, and 0 where str_copy does.
int str_append(char* dest, const char* src, int size);

// An algorithm name is shorter than any AES key in hex or base64, which may stand in its place by mistake.
constexpr size_t kLongestFileName = 260, kLongestAlgorithmName = 23;

// may_be_name tells whether a text can be a name: it has no line break and at most longest characters.
bool may_be_name(std::string_view text, size_t longest = kLongestFileName);

// shown_name gives a caller's text for an error text: the text itself if it may be a name, else "...", since
// it may be a private key. No caller's text enters an error text without it.
const char* shown_name(const char* text, size_t longest = kLongestFileName);

// is_missing tells whether a text argument is null or empty.
inline bool is_missing(const char* text) {
    return text == nullptr || *text == '\0';
}

// str_length is the length of a text, 0 for null; a length above INT_MAX is INT_MAX.
int str_length(const char* text);

// text_result hands out a text under the common length rule: at most room characters and a NUL, returning the
// length copied; without output or room, the whole length.
int text_result(char* out, int room, const char* text);

} // namespace zul
