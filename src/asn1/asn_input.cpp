#include "asn1/asn_input.h"

#include <algorithm>
#include <string_view>

#include "asn1/asn_parse.h"
#include "encode/base64.h"
#include "encode/pem.h"
#include "encode/whole_file.h"
#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/memory.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kPemBegin = "-----BEGIN";
constexpr uint8_t kSequenceOctet = 0x30;

bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view bare_text(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    while (!text.empty() && is_space(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && (is_space(text.back()) || text.back() == '\0'))
        text.remove_suffix(1);
    return text;
}

// is_b64_sequence tells whether a text is base64 alone, with or without line breaks, and decodes to the
// beginning of a SEQUENCE.
bool is_b64_sequence(std::string_view text) {
    text = bare_text(text);
    uint8_t first = 0;
    return text.size() >= 4 && text[0] == 'M' && b64_decode(&first, 1, text.data(), 2) == 1 &&
           first == kSequenceOctet &&
           std::all_of(text.begin(), text.end(), [](char c) { return b64_is_char(c) || is_space(c); });
}

// parse_der parses one SEQUENCE. It ignores zeros and line breaks after it, which decoders of PEM files and
// transfers of text files leave. Data of another length are not parsed, so they add no error text.
bool parse_der(const uint8_t* bytes, size_t size, AsnList& list) {
    size_t offset = 0, end = 0;
    if (size == 0 || bytes[0] != kSequenceOctet || asn_FindElement(&offset, &end, bytes, size, -1, 1, 0) == 0)
        return false;
    if (!std::all_of(bytes + end, bytes + size, [](uint8_t b) { return b == 0 || b == '\r' || b == '\n'; }))
        return false;
    list = asn_ParseBytes(bytes, end);
    return static_cast<bool>(list);
}

[[nodiscard]] int parse_b64(std::string_view text, AsnList& list) {
    SecretBuffer decoded(b64_decoded_length(text.data(), text.size()));
    b64_decode(decoded.data(), decoded.size(), text.data(), text.size());
    return parse_der(decoded.data(), decoded.size(), list)
               ? 0
               : err_fail(INVALID_DATA_ERROR, "Not a valid DER structure");
}

[[nodiscard]] int parse_pem(std::string_view text, AsnList& list) {
    size_t bodyLen = 0;
    const char* body = pem_find_body(text.data(), text.size(), &bodyLen);
    if (bodyLen == 0)
        return err_fail(INVALID_DATA_ERROR, "PEM block is empty or has no end");
    const std::string_view content(body, bodyLen);
    if (content.find(':') != std::string_view::npos)
        return err_fail(NOT_SUPPORTED_ERROR,
                        "PEM block with header lines (Proc-Type, DEK-Info) is not supported");
    return parse_b64(content, list);
}

[[nodiscard]] int parse_file(const char* path, AsnList& list, size_t maxSize) {
    SecretBuffer content;
    const int error = read_whole_file(path, content, maxSize);
    return error != 0 ? error : asn_read_content(content.data(), content.size(), list);
}

bool can_open(const char* path) {
    return File(path, platform::OpenMode::read).is_open();
}

} // namespace

int asn_read_content(const uint8_t* bytes, size_t size, AsnList& list) {
    if (parse_der(bytes, size, list))
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    if (text.find(kPemBegin) != std::string_view::npos)
        return parse_pem(text, list);
    if (is_b64_sequence(text))
        return parse_b64(bare_text(text), list);
    return err_fail(INVALID_DATA_ERROR, "Not a DER, PEM or base64 file");
}

int asn_read_input(const char* fileOrText, AsnList& list, size_t maxSize) {
    const std::string_view text(fileOrText);
    if (text.size() > maxSize)
        return err_fail(INVALID_DATA_ERROR, "Text is too long");
    if (text.find(kPemBegin) != std::string_view::npos)
        return parse_pem(text, list);
    if (is_b64_sequence(text) && !can_open(fileOrText))
        return parse_b64(bare_text(text), list);
    if (!may_be_name(text) && !can_open(fileOrText))
        return err_fail(OPEN_ERROR, "Neither a key nor a file that can be opened");
    return parse_file(fileOrText, list, maxSize);
}

} // namespace zul
