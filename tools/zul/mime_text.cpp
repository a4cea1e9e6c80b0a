#include "mime_text.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "armour.h"
#include "failures.h"

namespace tool {

namespace {

constexpr std::string_view kHex = "0123456789ABCDEF";
constexpr size_t kColumns = 76, kLongestLine = 998;

int hex_value(char c) {
    const size_t at = kHex.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
    return at == kHex.npos ? -1 : static_cast<int>(at);
}

std::string escaped(char mark, char c) {
    const auto byte = static_cast<unsigned char>(c);
    return {mark, kHex[byte >> 4], kHex[byte & 15]};
}

[[noreturn]] void refuse(const std::string& name, const std::string& reason) {
    throw Refused::by_system(BAD_FORMAT_ERROR, name, reason);
}

// base64_of gives one line.
SecretBytes base64_of(std::string_view content) {
    SecretBytes text((content.size() + 2) / 3 * 4 + 1);
    const auto* bytes = reinterpret_cast<const unsigned char*>(content.data());
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(text.data()), int_length(text) - 1, bytes,
                                      static_cast<int>(content.size())),
                  "base64");
    text.pop_back();
    return text;
}

SecretBytes decode_base64(std::string_view body, const std::string& name) {
    constexpr size_t kPiece = size_t{64} * 1024;
    SecretBytes out, text;
    out.reserve(body.size() / 4 * 3);
    text.reserve(kPiece + 1);
    const auto decode = [&] {
        append(out, view_of(decode_text(text, false, name)));
        text.clear();
    };
    size_t padding = 0;
    for (const char c : body) {
        if (is_blank(c) || c == '\r' || c == '\n')
            continue;
        const bool isDigit = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                             c == '+' || c == '/';
        padding += c == '=' ? 1 : 0;
        if ((!isDigit && c != '=') || (isDigit && padding > 0))
            refuse(name, "Its body is not base64.");
        if (padding > 2)
            break;
        text.push_back(static_cast<unsigned char>(c));
        if (text.size() == kPiece)
            decode();
    }
    if (text.size() % 4 != 0 || padding > 2)
        refuse(name, "Its base64 was cut off.");
    if (!text.empty())
        decode();
    return out;
}

SecretBytes decode_quoted_printable(std::string_view body, const std::string& name) {
    SecretBytes out;
    out.reserve(body.size());
    while (!body.empty()) {
        const std::string_view whole = next_line(body);
        std::string_view line = without_line_end(whole);
        const std::string_view end = whole.substr(line.size());
        while (!line.empty() && is_blank(line.back())) // added on the way
            line.remove_suffix(1);
        const bool isSoft = line.ends_with('=');
        if (isSoft)
            line.remove_suffix(1);
        for (size_t i = 0; i < line.size(); ++i) {
            if (line[i] != '=') {
                out.push_back(static_cast<unsigned char>(line[i]));
                continue;
            }
            const int high = i + 2 < line.size() ? hex_value(line[i + 1]) : -1;
            const int low = i + 2 < line.size() ? hex_value(line[i + 2]) : -1;
            if (high < 0 || low < 0)
                refuse(name, "Its body is not quoted-printable.");
            out.push_back(static_cast<unsigned char>(high << 4 | low));
            i += 2;
        }
        if (!isSoft)
            append(out, end);
    }
    return out;
}

// whole_characters gives the length of the longest beginning of UTF-8 with at most that many bytes.
size_t whole_characters(std::string_view text, size_t bytes) {
    if (text.size() <= bytes)
        return text.size();
    while (bytes > 1 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80)
        --bytes;
    return bytes;
}

} // namespace

std::string_view next_line(std::string_view& text) {
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end == text.npos ? end : end + 1);
    text.remove_prefix(line.size());
    return line;
}

std::string_view without_line_end(std::string_view line) {
    if (line.ends_with('\n'))
        line.remove_suffix(line.ends_with("\r\n") ? 2 : 1);
    return line;
}

bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view without_blanks(std::string_view text) {
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool is_ascii_text(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

bool is_utf8(std::string_view text) {
    return text.empty() || CNV_CheckUTF8Bytes(reinterpret_cast<const unsigned char*>(text.data()),
                                              static_cast<int>(text.size())) > 0;
}

void append_canonical(SecretBytes& bytes, std::string_view text) {
    bytes.reserve(bytes.size() + text.size());
    while (!text.empty()) {
        const std::string_view whole = next_line(text);
        append(bytes, without_line_end(whole));
        if (whole.ends_with('\n'))
            append(bytes, "\r\n");
    }
}

bool fits_seven_bits(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = without_line_end(next_line(text));
        if (line.size() > kLongestLine || std::any_of(line.begin(), line.end(), [](char c) {
                return c == '\0' || c == '\r' || static_cast<unsigned char>(c) >= 0x80;
            }))
            return false;
    }
    return true;
}

void append_base64(SecretBytes& bytes, std::string_view content) {
    constexpr size_t kPiece = kColumns / 4 * 3 * 1024; // whole lines
    bytes.reserve(bytes.size() + content.size() / 54 * 78 + 80);
    for (; !content.empty(); content.remove_prefix(std::min(kPiece, content.size()))) {
        const SecretBytes base64 = base64_of(content.substr(0, kPiece));
        for (size_t at = 0; at < base64.size(); at += kColumns) {
            append(bytes, view_of(base64).substr(at, kColumns));
            append(bytes, "\r\n");
        }
    }
}

void append_quoted_printable(SecretBytes& bytes, std::string_view text) {
    while (!text.empty()) {
        const std::string_view whole = next_line(text);
        const std::string_view line = without_line_end(whole);
        const bool isFrom = line.starts_with("From "); // which mail boxes would escape
        size_t column = 0;
        for (size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            const bool isPlain = (c > 0x20 && c < 0x7F && c != '=') || (is_blank(c) && i + 1 < line.size());
            const bool isEscaped = !isPlain || (i == 0 && (isFrom || line == "."));
            const std::string item = isEscaped ? escaped('=', c) : std::string(1, c);
            if (column + item.size() > kColumns - 1) {
                append(bytes, "=\r\n");
                column = 0;
            }
            append(bytes, item);
            column += item.size();
        }
        append(bytes, whole.substr(line.size()));
    }
}

SecretBytes decode_transfer(std::string_view body, const std::string& encoding, const std::string& name) {
    if (encoding == "base64")
        return decode_base64(body, name);
    if (encoding == "quoted-printable")
        return decode_quoted_printable(body, name);
    if (!encoding.empty() && encoding != "7bit" && encoding != "8bit" && encoding != "binary")
        throw Refused::by_system(
            NOT_SUPPORTED_ERROR, name,
            "Its Content-Transfer-Encoding is none of base64, quoted-printable, 7bit, 8bit "
            "and binary.");
    return {body.begin(), body.end()};
}

std::string header_text(std::string_view text, size_t column) {
    std::string out;
    size_t longest = 0;
    for (size_t at = 0, end; at < text.size(); at = end + 1) {
        end = std::min(text.find(' ', at), text.size());
        longest = std::max(longest, end - at);
    }
    if (is_ascii_text(text) && text.find("=?") == text.npos && longest + column <= kLongestLine / 2) {
        for (size_t at = 0; at < text.size();) {
            size_t end =
                text.find(' ', at + 1); // a line may begin with any blank but has to go on with a word
            while (end != text.npos && text.find_first_not_of(' ', end) == text.npos)
                end = text.npos;
            const std::string_view word = text.substr(at, end == text.npos ? end : end - at);
            const bool mayFold = word.find_first_not_of(' ') != word.npos && word.starts_with(' ');
            if (mayFold && column + word.size() > kColumns) {
                out += "\r\n";
                column = 0;
            }
            out += word;
            column += word.size();
            at += word.size();
        }
        return out;
    }
    constexpr size_t kAround = 12, kFewest = 24; // =?UTF-8?B??=
    while (!text.empty()) {
        column += out.empty() ? size_t{0} : size_t{1};
        if (column + kAround + kFewest > kColumns) {
            out += "\r\n ";
            column = 1;
        } else if (!out.empty()) {
            out += ' ';
        }
        const size_t size = whole_characters(text, (kColumns - column - kAround) / 4 * 3);
        const SecretBytes word = base64_of(text.substr(0, size));
        out += "=?UTF-8?B?" + std::string(view_of(word)) + "?=";
        column += word.size() + kAround;
        text.remove_prefix(size);
    }
    return out;
}

std::string parameter(const std::string& name, std::string_view value) {
    std::string out = ";\r\n " + name;
    if (is_ascii_text(value)) {
        out += "=\"";
        for (const char c : value)
            out += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
        return out + "\"";
    }
    out += "*=utf-8''";
    for (const char c : value) {
        const bool isPlain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                             c == '.' || c == '-' || c == '_';
        out += isPlain ? std::string(1, c) : escaped('%', c);
    }
    return out;
}

std::string date_now() {
    constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t now = std::time(nullptr);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the thread of commands alone asks for dates
    const tm* utc = std::gmtime(&now);
    char text[64] = "";
    if (utc != nullptr)
        std::snprintf(text, sizeof text, "%s, %d %s %04d %02d:%02d:%02d +0000", kDays[utc->tm_wday % 7],
                      utc->tm_mday, kMonths[utc->tm_mon % 12], utc->tm_year + 1900, utc->tm_hour, utc->tm_min,
                      utc->tm_sec);
    return text;
}

} // namespace tool
