#include "encode/utf8_scalar.h"

#include <cstdint>

namespace zul {

bool utf8_next(std::string_view& rest, char32_t& character) {
    const auto first = static_cast<uint8_t>(rest[0]);
    const size_t size = first < 0x80 ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    if (size == 0 || first > 0xF4 || size > rest.size())
        return false;
    char32_t value = size == 1 ? first : first & (0x7Fu >> size);
    for (size_t i = 1; i < size; i++) {
        const auto octet = static_cast<uint8_t>(rest[i]);
        if ((octet & 0xC0) != 0x80)
            return false;
        value = value << 6 | (octet & 0x3Fu);
    }
    if (value < kLeast[size] || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000))
        return false;
    character = value;
    rest.remove_prefix(size);
    return true;
}

size_t utf8_put(char out[kMaxUtf8], char32_t character) {
    constexpr uint8_t kMarks[] = {0, 0, 0xC0, 0xE0, 0xF0};
    const size_t size = character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    for (size_t i = size - 1; i > 0; i--) {
        out[i] = static_cast<char>(0x80 | (character & 0x3F));
        character >>= 6;
    }
    out[0] = static_cast<char>(kMarks[size] | character);
    return size;
}

} // namespace zul
