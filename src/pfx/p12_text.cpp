#include "pfx/p12_text.h"

#include <cstdio>

namespace zul {
namespace {

constexpr uint32_t kFirstSurrogate = 0xD800, kFirstLow = 0xDC00, kLastSurrogate = 0xDFFF;

constexpr bool is_surrogate(uint32_t unit) {
    return unit >= kFirstSurrogate && unit <= kLastSurrogate;
}

bool is_hidden(uint32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x61C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

// read_character gives the bytes of the well-formed character that a text begins with, 0 for none.
size_t read_character(std::string_view text, uint32_t& character) {
    const auto lead = static_cast<uint8_t>(text[0]);
    if (lead < 0x80) {
        character = lead;
        return 1;
    }
    const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    character = lead & (0x7Fu >> length);
    for (size_t i = 1; i < length; i++) {
        const auto byte = static_cast<uint8_t>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return 0;
        character = character << 6 | (byte & 0x3F);
    }
    constexpr uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    return character < kLeast[length] || character > 0x10FFFF || is_surrogate(character) ? 0 : length;
}

void append_unit(SecretBuffer& out, uint32_t unit) {
    const uint8_t bytes[2] = {static_cast<uint8_t>(unit >> 8), static_cast<uint8_t>(unit)};
    out.append(bytes, sizeof bytes);
}

} // namespace

uint32_t utf8_next(std::string_view& text) {
    uint32_t character = kBadCharacter;
    const size_t length = read_character(text, character);
    text.remove_prefix(length == 0 ? 1 : length);
    return length == 0 ? kBadCharacter : character;
}

void utf8_append(SecretBuffer& out, uint32_t c) {
    uint8_t bytes[4];
    size_t length = 0;
    if (c < 0x80) {
        bytes[length++] = static_cast<uint8_t>(c);
    } else {
        const int rest = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        bytes[length++] = static_cast<uint8_t>((0xFF00u >> (rest + 1) & 0xFF) | c >> 6 * rest);
        for (int i = rest; i-- > 0;)
            bytes[length++] = static_cast<uint8_t>(0x80 | (c >> 6 * i & 0x3F));
    }
    out.append(bytes, length);
}

bool utf16_from_utf8(SecretBuffer& out, std::string_view text) {
    out = SecretBuffer();
    while (!text.empty()) {
        uint32_t c = 0;
        const size_t length = read_character(text, c);
        if (length == 0)
            return false;
        text.remove_prefix(length);
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
    const auto unit_at = [&](size_t i) -> uint32_t {
        return i + 2 <= size ? uint32_t{bytes[i]} << 8 | bytes[i + 1] : 0;
    };
    for (size_t i = 0; i < size; i += 2) {
        uint32_t c = i + 2 <= size ? unit_at(i) : kBadCharacter;
        const uint32_t low = unit_at(i + 2);
        if (c >= kFirstSurrogate && c < kFirstLow && low >= kFirstLow && low <= kLastSurrogate) {
            c = 0x10000 + ((c & 0x3FF) << 10 | (low & 0x3FF));
            i += 2;
        }
        utf8_append(out, is_surrogate(c) ? kBadCharacter : c);
    }
}

void append_latin1(SecretBuffer& out, std::string_view text) {
    for (const char c : text)
        utf8_append(out, static_cast<uint8_t>(c));
}

void append_quoted(SecretBuffer& out, std::string_view text) {
    append_text(out, "\"");
    while (!text.empty()) {
        const uint32_t c = utf8_next(text);
        if (is_hidden(c)) {
            char escape[8];
            snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c & 0xFFFF));
            append_text(out, escape);
            continue;
        }
        if (c == '"' || c == '\\')
            append_text(out, "\\");
        utf8_append(out, c);
    }
    append_text(out, "\"");
}

} // namespace zul
