#include "seal/age_header.h"

#include <algorithm>
#include <cstring>

#include "encode/base64.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "hash/hmac.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kVersion = "age-encryption.org/v1\n", kStanza = "-> ", kFooter = "---";
constexpr size_t kColumns = 64;
constexpr size_t kLongestFixed = 48; // bytes: the longest value of a known length
constexpr size_t kWrappedLine = age_base64_length(kWrappedFileKey);

int malformed(const char* text) {
    return err_fail(BAD_FORMAT_ERROR, "Malformed header: %s", text);
}

// count_arguments counts what single spaces part: 0 if a part is empty or has another character.
size_t count_arguments(std::string_view text) {
    size_t count = 1;
    bool isEmpty = true;
    for (const char c : text) {
        if (c == ' ') {
            if (isEmpty)
                return 0;
            count++;
            isEmpty = true;
        } else if (c < 0x21 || c > 0x7E) {
            return 0;
        } else {
            isEmpty = false;
        }
    }
    return isEmpty ? 0 : count;
}

// take_line takes a line, without its end, off a text that is whole lines.
std::string_view take_line(std::string_view& text) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = slice(text, 0, end);
    text = slice(text, end + 1);
    return line;
}

} // namespace

bool age_base64_read(uint8_t* out, size_t size, std::string_view text) {
    uint8_t bytes[kLongestFixed];
    size_t written = 0;
    if (size > kLongestFixed || text.size() != age_base64_length(size) ||
        !b64_decode_canonical(bytes, &written, text, false) || written != size)
        return false;
    memcpy(out, bytes, size);
    return true;
}

void age_base64_write(char* out, const uint8_t* data, size_t size) {
    char padded[b64_encoded_length(kLongestFixed) + 1];
    b64_encode(padded, sizeof padded, data, size);
    memcpy(out, padded, age_base64_length(size));
    out[age_base64_length(size)] = '\0';
}

bool age_wrapped_key(uint8_t* wrapped, const AgeStanza& stanza) {
    return stanza.body.size() == kWrappedLine + 1 &&
           age_base64_read(wrapped, kWrappedFileKey, slice(stanza.body, 0, kWrappedLine));
}

// The view is good until the next line is read.
int AgeHeader::read_line(SealInput& input, std::string_view& line) {
    const size_t start = text_.size();
    for (uint8_t c = 0; c != '\n';) {
        if (text_.size() == kMostHeader)
            return malformed("longer than 2 MiB");
        if (input.read(&c, 1) == 0)
            return input.error() != 0 ? input.error() : malformed("the file ends in it");
        text_.append(&c, 1);
    }
    line = {text_.text() + start, text_.size() - start - 1};
    return 0;
}

int AgeHeader::read_stanza(SealInput& input, std::string_view first) {
    if (!first.starts_with(kStanza) || count_arguments(slice(first, kStanza.size())) == 0)
        return malformed("a stanza's first line");
    count_++;
    for (;;) {
        std::string_view line;
        if (const int code = read_line(input, line))
            return code;
        uint8_t bytes[kLongestFixed];
        size_t written = 0;
        if (line.size() > kColumns || !b64_decode_canonical(bytes, &written, line, false))
            return malformed("a stanza's body");
        if (line.size() < kColumns)
            return 0;
    }
}

int AgeHeader::read(SealInput& input) {
    uint8_t version[kVersion.size()];
    const size_t got = input.read(version, sizeof version);
    if (input.error() != 0)
        return input.error();
    if (got != sizeof version || memcmp(version, kVersion.data(), got) != 0)
        return err_fail(BAD_FORMAT_ERROR, "Not an age file of version 1");
    text_.append(version, got);
    for (;;) {
        const size_t start = text_.size();
        std::string_view line;
        if (const int code = read_line(input, line))
            return code;
        if (line.starts_with(kFooter)) {
            line = slice(line, kFooter.size());
            if (count_ == 0)
                return malformed("it has no stanza");
            if (!line.starts_with(' ') || !age_base64_read(mac_, kAgeMac, slice(line, 1)))
                return malformed("the line of the MAC");
            macInput_ = start + kFooter.size();
            return 0;
        }
        if (const int code = read_stanza(input, line))
            return code;
    }
}

bool AgeHeader::next(AgeStanza& stanza, size_t& at) const {
    at = std::max(at, kVersion.size());
    std::string_view rest = slice({text_.text(), text_.size()}, at);
    std::string_view line = take_line(rest);
    if (!line.starts_with(kStanza))
        return false;
    line = slice(line, kStanza.size());
    stanza.argumentCount = count_arguments(line) - 1;
    stanza.type = slice(line, 0, line.find(' '));
    stanza.arguments = slice(line, stanza.type.size() + 1);
    const char* const body = rest.data();
    while (take_line(rest).size() == kColumns) {
    }
    stanza.body = {body, static_cast<size_t>(rest.data() - body)};
    at = static_cast<size_t>(rest.data() - text_.text());
    return true;
}

void AgeHeader::make_mac(uint8_t* mac, const FileKey& fileKey) const {
    AgeKey key;
    age_derive(key, fileKey.data(), fileKey.size(), nullptr, 0, "header");
    Wiped<HmacContext> context;
    hmac_init(*context, kDigestSha256, key.data(), key.size());
    hmac_update(*context, text_.data(), macInput_);
    hmac_final(*context, mac);
}

bool AgeHeader::is_of(const FileKey& fileKey) const {
    Secret<kAgeMac> mac;
    make_mac(mac.data(), fileKey);
    return bytes_equal(mac.data(), mac_, kAgeMac);
}

void AgeHeader::add(std::string_view typeAndArguments, const uint8_t* wrapped) {
    if (text_.empty())
        text_.append(kVersion.data(), kVersion.size());
    char body[kWrappedLine + 1];
    age_base64_write(body, wrapped, kWrappedFileKey);
    body[kWrappedLine] = '\n';
    text_.append(kStanza.data(), kStanza.size());
    text_.append(typeAndArguments.data(), typeAndArguments.size());
    text_.append("\n", 1);
    text_.append(body, sizeof body);
    count_++;
}

void AgeHeader::finish(const FileKey& fileKey) {
    text_.append(kFooter.data(), kFooter.size());
    macInput_ = text_.size();
    char line[age_base64_length(kAgeMac) + 1];
    make_mac(mac_, fileKey);
    age_base64_write(line, mac_, kAgeMac);
    line[sizeof line - 1] = '\n';
    text_.append(" ", 1);
    text_.append(line, sizeof line);
}

} // namespace zul
