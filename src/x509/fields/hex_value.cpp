#include "x509/fields/hex_value.h"

namespace zul {
namespace {

[[nodiscard]] int digit_value(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool is_separator(char c) {
    return c == ' ' || c == '\t' || c == ':';
}

} // namespace

bool hex_value(std::string_view text, SecretBuffer& bytes) {
    const size_t start = text.find_first_not_of(" \t");
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    if (text.starts_with("0x") || text.starts_with("0X") || text.starts_with("#x") || text.starts_with("#X"))
        text.remove_prefix(2);
    size_t digits = 0;
    for (const char c : text) {
        if (digit_value(c) >= 0)
            digits++;
        else if (!is_separator(c))
            return false;
    }
    if (digits == 0)
        return false;
    SecretBuffer value((digits + 1) / 2);
    size_t at = digits % 2;
    for (const char c : text) {
        if (is_separator(c))
            continue;
        value[at / 2] = static_cast<uint8_t>(value[at / 2] << 4 | digit_value(c));
        at++;
    }
    bytes = std::move(value);
    return true;
}

} // namespace zul
