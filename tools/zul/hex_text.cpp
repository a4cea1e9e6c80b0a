#include "hex_text.h"

#include <algorithm>
#include <cctype>

#include "failures.h"

namespace tool {

namespace {

bool is_white_space(unsigned char c) {
    return std::isspace(c) != 0;
}
bool is_hex_digit(unsigned char c) {
    return std::isxdigit(c) != 0;
}

} // namespace

SecretBytes decode_hex(const unsigned char* text, size_t length, const std::string& source) {
    SecretBytes digits;
    digits.reserve(length + 1);
    for (size_t i = 0; i < length; ++i) {
        if (is_hex_digit(text[i]))
            digits.push_back(text[i]);
        else if (!is_white_space(text[i]) && text[i] != ':')
            throw UsageError(source + " is not hex: character " + std::to_string(i + 1) +
                             " is not one of 0-9, a-f");
    }
    if (digits.size() % 2 != 0)
        throw UsageError(source + " holds " + std::to_string(digits.size()) +
                         " hex digits; every byte takes two, so an even number is needed");
    SecretBytes bytes(digits.size() / 2 + 1);
    digits.push_back('\0');
    const int count =
        CNV_BytesFromHexStr(bytes.data(), int_length(bytes), reinterpret_cast<const char*>(digits.data()));
    bytes.resize(static_cast<size_t>(accept_length(count, source)));
    return bytes;
}

SecretBytes decode_hex(std::string_view text, const std::string& source) {
    return decode_hex(reinterpret_cast<const unsigned char*>(text.data()), text.size(), source);
}

SecretBytes hex_line(const SecretBytes& bytes) {
    SecretBytes text(2 * bytes.size() + 1);
    accept_length(CNV_HexStrFromBytes(reinterpret_cast<char*>(text.data()), int_length(text) - 1,
                                      bytes.data(), int_length(bytes)),
                  "hex");
    text.back() = '\n';
    return text;
}

SecretBytes hex_or_raw(SecretBytes content, const std::string& source) {
    const bool isHex = std::any_of(content.begin(), content.end(), is_hex_digit) &&
                       std::all_of(content.begin(), content.end(),
                                   [](unsigned char c) { return is_hex_digit(c) || is_white_space(c); });
    if (!isHex)
        return content;
    return decode_hex(content.data(), content.size(), source);
}

} // namespace tool
