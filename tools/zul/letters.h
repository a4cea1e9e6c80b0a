#pragma once
#include <string>
#include <string_view>

namespace tool {

// lower_ascii leaves the letters of other alphabets as they are, whatever the locale is.
inline std::string lower_ascii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

} // namespace tool
