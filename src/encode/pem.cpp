#include "encode/pem.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "encode/base64.h"
#include "frame/file_writer.h"

namespace zul {
namespace {

constexpr std::string_view kDashes = "-----";
constexpr std::string_view kBegin = "-----BEGIN";
constexpr std::string_view kEnd = "-----END";
constexpr size_t kShortestArmour = 31; // in characters
constexpr size_t kDefaultLine = 64;

// The classes of the C locale, whatever locale the application has set.
bool is_blank(char c) {
    return c == ' ' || c == '\t';
}
bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

size_t write_text(FileWriter& out, std::string_view text) {
    out.write(text.data(), text.size());
    return text.size();
}

size_t write_boundary(FileWriter& out, std::string_view dashesAndWord, const char* label) {
    return write_text(out, dashesAndWord) + write_text(out, " ") + write_text(out, label) +
           write_text(out, kDashes) + write_text(out, "\r\n");
}

} // namespace

size_t pem_write(FileWriter& out, const uint8_t* data, size_t len, const char* label, int lineLen) {
    const bool labelled = label != nullptr && *label != '\0';
    const size_t lineBytes = (lineLen > 3 ? static_cast<size_t>(lineLen) : kDefaultLine) / 4 * 3;
    // A line may be of any length, so it is encoded in pieces; whole groups until the last.
    constexpr size_t kPieceBytes = 3072;
    Wiped<std::array<char, kPieceBytes / 3 * 4 + 1>> piece;

    size_t written = labelled ? write_boundary(out, kBegin, label) : 0;
    while (len > 0) {
        size_t lineLeft = std::min(len, lineBytes);
        len -= lineLeft;
        while (lineLeft > 0) {
            size_t take = std::min(lineLeft, kPieceBytes);
            size_t chars = b64_encode(piece->data(), piece->size(), data, take);
            written += write_text(out, {piece->data(), chars});
            data += take;
            lineLeft -= take;
        }
        written += write_text(out, "\r\n");
    }
    return written + (labelled ? write_boundary(out, kEnd, label) : 0);
}

const char* pem_find_body(const char* text, size_t len, size_t* bodyLen) {
    *bodyLen = 0;
    std::string_view all(text, len);
    if (len < kShortestArmour)
        return nullptr;
    size_t begin = all.find(kBegin);
    if (begin == std::string_view::npos)
        return nullptr;
    size_t headerEnd = all.find(kDashes, begin + kBegin.size());
    if (headerEnd == std::string_view::npos)
        return nullptr;
    size_t start = headerEnd + kDashes.size();
    while (start < len && (is_blank(text[start]) || is_digit(text[start])))
        start++;
    size_t end = all.find(kEnd, start);
    if (end == std::string_view::npos)
        end = all.find(kBegin, start);
    if (end == std::string_view::npos)
        return nullptr;
    *bodyLen = end - start;
    return text + start;
}

bool is_pem_text(const char* text) {
    size_t len = strlen(text), bodyLen = 0;
    return text[0] == '-' && len > kShortestArmour && pem_find_body(text, len, &bodyLen) != nullptr &&
           bodyLen > 0;
}

bool is_b64_der_text(const char* text) {
    if (text[0] != 'M')
        return false;
    while (*++text != '\0') {
        if (!b64_is_char(*text) && !is_blank(*text))
            return false;
    }
    return true;
}

} // namespace zul
