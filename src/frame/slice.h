#pragma once
#include <algorithm>
#include <string_view>

namespace zul {

// slice is text.substr(from, count) for a library without exceptions, whose machinery the mere possibility of
// one would link in: what lies beyond the end is cut off.
constexpr std::string_view slice(std::string_view text, size_t from, size_t count = std::string_view::npos) {
    from = std::min(from, text.size());
    return {text.data() + from, std::min(count, text.size() - from)};
}

} // namespace zul
