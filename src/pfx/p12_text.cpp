#include "pfx/p12_text.h"

#include "encode/shown_character.h"
#include "encode/utf8_scalar.h"

namespace zul {
namespace {

// What stands for a half of a character.
constexpr char32_t kBadCharacter = 0xFFFD;
constexpr char32_t kFirstSurrogate = 0xD800, kFirstLow = 0xDC00, kLastSurrogate = 0xDFFF;

constexpr bool is_surrogate(char32_t unit) {
    return unit >= kFirstSurrogate && unit <= kLastSurrogate;
}

void append_unit(SecretBuffer& out, char32_t unit) {
    const uint8_t bytes[2] = {static_cast<uint8_t>(unit >> 8), static_cast<uint8_t>(unit)};
    out.append(bytes, sizeof bytes);
}

void append_character(SecretBuffer& out, char32_t character) {
    char bytes[kMaxUtf8];
    out.append(bytes, utf8_put(bytes, character));
}

} // namespace

bool utf16_from_utf8(SecretBuffer& out, std::string_view text) {
    out = SecretBuffer();
    while (!text.empty()) {
        char32_t c = 0;
        if (!utf8_next(text, c))
            return false;
        if (c >= 0x10000) {
            c -= 0x10000;
            append_unit(out, kFirstSurrogate | c >> 10);
            c = kFirstLow | (c & 0x3FF);
        }
        append_unit(out, c);
    }
    return true;
}

void utf8_from_utf16(SecretBuffer& out, const uint8_t* bytes, size_t size) {
    out = SecretBuffer();
    const auto unit_at = [&](size_t i) -> char32_t {
        return i + 2 <= size ? char32_t{bytes[i]} << 8 | bytes[i + 1] : 0;
    };
    for (size_t i = 0; i < size; i += 2) {
        char32_t c = i + 2 <= size ? unit_at(i) : kBadCharacter;
        const char32_t low = unit_at(i + 2);
        if (c >= kFirstSurrogate && c < kFirstLow && low >= kFirstLow && low <= kLastSurrogate) {
            c = 0x10000 + ((c & 0x3FF) << 10 | (low & 0x3FF));
            i += 2;
        }
        append_character(out, is_surrogate(c) ? kBadCharacter : c);
    }
}

void append_latin1(SecretBuffer& out, std::string_view text) {
    for (const char c : text)
        append_character(out, static_cast<uint8_t>(c));
}

void append_quoted(SecretBuffer& out, std::string_view text) {
    append_text(out, "\"");
    while (!text.empty()) {
        char32_t c = kBadCharacter;
        if (!utf8_next(text, c))
            text.remove_prefix(1);
        char bytes[kMaxJsonCharacter];
        out.append(bytes, json_put(bytes, c));
    }
    append_text(out, "\"");
}

} // namespace zul
