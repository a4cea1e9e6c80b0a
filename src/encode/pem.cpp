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

PemWriter::PemWriter(FileWriter& out, const char* label, int lineLen)
    : out_(out), label_(label != nullptr && *label != '\0' ? label : nullptr),
      lineBytes_((lineLen > 3 ? static_cast<size_t>(lineLen) : kDefaultLine) / 4 * 3) {
    if (label_ != nullptr)
        written_ = write_boundary(out_, kBegin, label_);
}

void PemWriter::encode_held() {
    Wiped<std::array<char, kMaxHeld / 3 * 4 + 1>> text;
    const size_t chars = b64_encode(text->data(), text->size(), held_->data(), heldSize_);
    written_ += write_text(out_, {text->data(), chars});
    inLine_ += heldSize_;
    heldSize_ = 0;
}

void PemWriter::add(const uint8_t* data, size_t len) {
    while (len > 0) {
        const size_t take = std::min({len, kMaxHeld - heldSize_, lineBytes_ - inLine_ - heldSize_});
        memcpy(held_->data() + heldSize_, data, take);
        heldSize_ += take;
        data += take;
        len -= take;
        const bool isLine = inLine_ + heldSize_ == lineBytes_;
        if (isLine || heldSize_ == kMaxHeld)
            encode_held();
        if (isLine) {
            written_ += write_text(out_, "\r\n");
            inLine_ = 0;
        }
    }
}

size_t PemWriter::finish() {
    if (heldSize_ != 0)
        encode_held();
    if (inLine_ != 0)
        written_ += write_text(out_, "\r\n");
    return written_ + (label_ == nullptr ? 0 : write_boundary(out_, kEnd, label_));
}

size_t pem_write(FileWriter& out, const uint8_t* data, size_t len, const char* label, int lineLen) {
    PemWriter writer(out, label, lineLen);
    writer.add(data, len);
    return writer.finish();
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
