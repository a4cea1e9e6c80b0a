#include "encode/shown_character.h"

#include "encode/utf8_scalar.h"

namespace zul {
namespace {

size_t put_unit(char* out, char32_t unit) {
    constexpr char kDigits[] = "0123456789abcdef";
    out[0] = '\\';
    out[1] = 'u';
    for (unsigned i = 0; i < 4; i++)
        out[2 + i] = kDigits[unit >> (12 - 4 * i) & 0xF];
    return 6;
}

} // namespace

bool is_hidden(char32_t c) {
    if (c < 0x80)
        return c < 0x20 || c == 0x7F;
    return c < 0xA0 || c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF || (c & 0xFFFE) == 0xFFFE ||
           (c >= 0xE0000 && c <= 0xE007F);
}

size_t json_put(char out[kMaxJsonCharacter], char32_t character) {
    if (character == '"' || character == '\\') {
        out[0] = '\\';
        out[1] = static_cast<char>(character);
        return 2;
    }
    if (!is_hidden(character))
        return utf8_put(out, character);
    if (character < 0x10000)
        return put_unit(out, character);
    const size_t size = put_unit(out, 0xD800 + ((character - 0x10000) >> 10));
    return size + put_unit(out + size, 0xDC00 + (character & 0x3FF));
}

} // namespace zul
