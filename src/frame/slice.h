#pragma once
#include <algorithm>
#include <string_view>

namespace zul {

// slice is text.substr(from, count), but a start beyond the end gives an empty text. substr throws there, and
// would link the exception runtime into a library without exceptions.
constexpr std::string_view slice(std::string_view text, size_t from, size_t count = std::string_view::npos) {
    from = std::min(from, text.size());
    return {text.data() + from, std::min(count, text.size() - from)};
}

// trimmed is a text without the blanks at both of its ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " \t\r\n\v\f") {
    const size_t first = text.find_first_not_of(blanks);
    return slice(text, first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace zul
