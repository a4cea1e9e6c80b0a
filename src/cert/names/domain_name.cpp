#include "cert/names/domain_name.h"

#include <cstring>

#include "cert/names/punycode.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMaxName = 253, kMaxLocalPart = 64;
constexpr std::string_view kPrefix = "xn--";

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_ascii(std::string_view text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

struct Range {
    char32_t first, last;
};
// Blocks that hold no character of a label: controls and signs, capital letters, punctuation, symbols, forms
// for compatibility, private use.
constexpr Range kRefused[] = {
    {0x0080, 0x00B6},    {0x00B8, 0x00DE}, {0x00F7, 0x00F7}, {0x0384, 0x038A},   {0x038C, 0x038F},
    {0x0391, 0x03AB},    {0x0400, 0x042F}, {0x10A0, 0x10C5}, {0x2000, 0x2C2F},   {0x2E00, 0x2E2E},
    {0x2E30, 0x3004},    {0x3008, 0x3029}, {0x3030, 0x303B}, {0x3200, 0x33FF},   {0xD800, 0xFB4F},
    {0xFE00, 0xFE1F},    {0xFE30, 0xFE72}, {0xFE74, 0xFFFF}, {0x1D000, 0x1D7FF}, {0x1F000, 0x1FAFF},
    {0xE0000, 0x10FFFF},
};

bool is_capital(char32_t c) {
    // The pairs of Latin Extended-A; the other blocks of capitals are in the table.
    const bool isEven = c % 2 == 0;
    if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177))
        return isEven;
    return ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) && !isEven;
}

bool is_mark(char32_t c) {
    return c >= 0x300 && c <= 0x36F;
}

// check_wide looks at a label that is not all ASCII.
[[nodiscard]] int check_wide(std::string_view label) {
    if (label.size() > 3 && label[2] == '-' && label[3] == '-')
        return bad("A label has hyphens in third and fourth place");
    char32_t before = 0;
    while (!label.empty()) {
        char32_t c = 0;
        if (!utf8_next(label, c))
            return bad("Not valid UTF-8");
        if (c < 0x80 && (c < 'a' || c > 'z') && (c < '0' || c > '9') && c != '-')
            return bad("A label of other than ASCII letters has a character that is not allowed there");
        for (const Range& range : kRefused)
            if (c >= range.first && c <= range.last)
                return bad(
                    "A label has a character that is not allowed (RFC 5892); letters have to be small");
        if (is_capital(c))
            return bad("A label of other than ASCII letters has a capital letter");
        if (c == 0xB7 && (before != 'l' || !label.starts_with('l'))) // RFC 5892, A.3
            return bad("A label has a middle dot that does not stand between two letters l");
        if (is_mark(c) && before < 0x80)
            return bad(before == 0 ? "A label begins with a combining mark"
                                   : "A letter and a combining mark are not one character (NFC)");
        before = c;
    }
    return 0;
}

// put_wide adds the A-label of a U-label.
[[nodiscard]] int put_wide(SecretBuffer& ascii, std::string_view label) {
    if (const int error = check_wide(label))
        return error;
    char form[kMaxLabel];
    const size_t size = punycode_encode(form, label);
    if (size == 0 || size + kPrefix.size() > kMaxLabel)
        return bad("A label is longer than 63 characters");
    ascii.append(kPrefix.data(), kPrefix.size());
    ascii.append(form, size);
    return 0;
}

// check_a_label demands that a label is the A-label of what it decodes to.
[[nodiscard]] int check_a_label(std::string_view label) {
    SecretBuffer wide;
    const std::string_view form = slice(label, kPrefix.size());
    if (!punycode_decode(wide, form) || is_ascii({wide.text(), wide.size()}))
        return bad("A label begins with xn-- and is not an A-label");
    const std::string_view decoded(wide.text(), wide.size());
    if (const int error = check_wide(decoded))
        return error;
    char again[kMaxLabel];
    return std::string_view(again, punycode_encode(again, decoded)) == form
               ? 0
               : bad("A label begins with xn-- and is not an A-label");
}

[[nodiscard]] int put_label(SecretBuffer& ascii, std::string_view label) {
    if (label.empty())
        return bad("A label is empty");
    if (label[0] == '-' || label.back() == '-')
        return bad("A label begins or ends with a hyphen");
    if (!is_ascii(label))
        return put_wide(ascii, label);
    if (label.size() > kMaxLabel)
        return bad("A label is longer than 63 characters");
    for (const char c : label)
        if ((c < 'a' || c > 'z') && !is_digit(c) && c != '-')
            return bad(c == '*' ? "A wildcard is the whole left-most label, or nothing"
                                : "A label has a character other than letters, digits and hyphens");
    ascii.append(label.data(), label.size());
    if (label.starts_with(kPrefix))
        return check_a_label(label);
    return label.size() > 3 && label[2] == '-' && label[3] == '-'
               ? bad("A label has hyphens in third and fourth place")
               : 0;
}

// A last label of digits alone makes the name an IPv4 address, or what some programs take for one.
bool ends_in_number(std::string_view name) {
    const std::string_view last = slice(name, name.rfind('.') + 1);
    return !last.empty() && last.find_first_not_of("0123456789") == std::string_view::npos;
}

bool is_atom(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || is_digit(c) ||
           static_cast<unsigned char>(c) >= 0x80 ||
           (c != '\0' && strchr("!#$%&'*+-/=?^_`{|}~", c) != nullptr);
}

[[nodiscard]] int check_local_part(std::string_view part, bool& isWide) {
    if (part.empty() || part.size() > kMaxLocalPart)
        return bad("The part of the address before the @ is empty or longer than 64 bytes");
    char before = '.';
    for (const char c : part) {
        if (c == '.' ? before == '.' : !is_atom(c))
            return bad("The part of the address before the @ is no dot-string");
        before = c;
    }
    if (before == '.')
        return bad("The part of the address before the @ is no dot-string");
    isWide = !is_ascii(part);
    while (!part.empty()) {
        char32_t c = 0;
        if (!utf8_next(part, c))
            return bad("Not valid UTF-8");
        if (c >= 0x80 && c < 0xA0)
            return bad("The part of the address before the @ has a control character");
    }
    return 0;
}

} // namespace

int domain_to_ascii(SecretBuffer& ascii, std::string_view text, DomainForm form) {
    SecretBuffer lower;
    lower.append(text.data(), text.size());
    for (size_t i = 0; i < lower.size(); i++)
        if (lower[i] >= 'A' && lower[i] <= 'Z')
            lower[i] |= 0x20;
    std::string_view name(lower.text(), lower.size());
    ascii = SecretBuffer();
    if (form == DomainForm::wildcard && name.starts_with("*.")) {
        ascii.append("*.", 2);
        name.remove_prefix(2);
    }
    if (ends_in_number(name))
        return bad("Not a host name: the last label is a number, as in an IP address");
    for (;;) {
        const size_t end = name.find('.');
        if (const int error = put_label(ascii, slice(name, 0, end)))
            return error;
        if (ascii.size() > kMaxName)
            return bad("The host name is longer than 253 characters");
        if (end == std::string_view::npos)
            return 0;
        ascii.append(".", 1);
        name.remove_prefix(end + 1);
    }
}

int email_to_ascii(SecretBuffer& address, bool& isWide, std::string_view text) {
    const size_t at = text.rfind('@');
    if (at == std::string_view::npos)
        return bad("An address has an @");
    if (const int error = check_local_part(slice(text, 0, at), isWide))
        return error;
    SecretBuffer domain;
    if (const int error = domain_to_ascii(domain, slice(text, at + 1), DomainForm::name))
        return error;
    address = SecretBuffer();
    address.append(text.data(), at + 1);
    address.append(domain.data(), domain.size());
    return 0;
}

} // namespace zul
