#include "x509/input/der_source.h"

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "encode/base64.h"
#include "encode/pem.h"
#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kPemBegin = "-----BEGIN";
constexpr size_t kLongestName = 256;             // a longer text may be base64
constexpr size_t kMaxInMemory = size_t{1} << 28; // of a file that is text, or a pipe

constexpr std::array<bool, 256> make_b64_or_space() {
    std::array<bool, 256> known{};
    for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="
                                         " \t\n\v\f\r"))
        known[static_cast<uint8_t>(c)] = true;
    return known;
}
constexpr std::array<bool, 256> kB64OrSpace = make_b64_or_space();

bool is_long_b64(const char* text, size_t size) {
    if (size <= kLongestName || text[0] != 'M')
        return false;
    bool all = true;
    for (size_t i = 0; i < size; i++)
        all &= kB64OrSpace[static_cast<uint8_t>(text[i])];
    return all;
}

bool has_pem_block(const char* text, size_t size) {
    return std::string_view(text, size).find(kPemBegin) != std::string_view::npos;
}

// begins_as_sequence leaves the stream at its beginning.
bool begins_as_sequence(ByteStream& stream) {
    AsnHeader header;
    bool is = asn_read_header(stream, header) == 1 && header.cls == kAsnConstructed &&
              header.tag == kAsnSequence && header.length <= stream.remaining();
    // A text that begins with "0" looks like a SEQUENCE whose length is the next character.
    const bool isShort = header.hdrsize == 2 && header.ndef == 0;
    if (is && isShort)
        is = stream.seek(0) && asn_Parse(stream, false, true);
    return stream.seek(0) && is;
}

// read_all reads a stream to its end; false for more than kMaxInMemory.
bool read_all(ByteStream& stream, SecretBuffer& content) {
    constexpr size_t kPart = size_t{64} * 1024;
    const size_t size = stream.remaining();
    if (size != SIZE_MAX) {
        if (size > kMaxInMemory)
            return false;
        content = SecretBuffer(size);
        content.shrink(stream.read(content.data(), size));
        return true;
    }
    SecretBuffer part(kPart);
    while (const size_t got = stream.read(part.data(), kPart)) {
        if (got > kMaxInMemory - content.size())
            return false;
        content.append(part.data(), got);
    }
    return true;
}

} // namespace

int invalid_asn1_data() {
    return err_invalid_data("Invalid ASN.1 data");
}

bool has_pem_block(const char* text) {
    return has_pem_block(text, strlen(text));
}

bool DerSource::open_b64(const char* text, size_t size) {
    const size_t room = size / 4 * 3 + 3;
    if (room > kMaxAllocation)
        return false;
    decoded_ = SecretBuffer(room);
    decoded_.shrink(b64_decode(decoded_.data(), room, text, size));
    stream_.emplace(decoded_.data(), decoded_.size());
    return begins_as_sequence(*stream_);
}

bool DerSource::open_pem(const char* text, size_t size) {
    size_t bodySize = 0;
    const char* body = pem_find_body(text, size, &bodySize);
    return bodySize != 0 && open_b64(body, bodySize);
}

bool DerSource::open_text(const char* text) {
    const size_t size = strlen(text);
    isText_ = is_long_b64(text, size) ? open_b64(text, size) : open_pem(text, size);
    return isText_;
}

int DerSource::open_file(const char* path) {
    isText_ = isReadError_ = false;
    decoded_ = SecretBuffer();
    path_ = path;
    stream_.emplace(path);
    if (!stream_->is_open())
        return err_fail(OPEN_ERROR, "Unable to open file '%s'", shown_name(path));
    return read_result(parse_file());
}

int DerSource::parse_file() {
    SecretBuffer content;
    const bool isPipe = stream_->remaining() == SIZE_MAX;
    if (isPipe) {
        const bool isAll = read_all(*stream_, content);
        isReadError_ = stream_->failed();
        if (!isAll || isReadError_)
            return invalid_asn1_data();
        stream_.emplace(content.data(), content.size());
    }
    if (begins_as_sequence(*stream_)) {
        decoded_ = std::move(content);
        return 0;
    }
    const bool isAll = isPipe || read_all(*stream_, content);
    isReadError_ = stream_->failed();
    if (!isAll || isReadError_)
        return invalid_asn1_data();
    const bool opened = has_pem_block(content.text(), content.size())
                            ? open_pem(content.text(), content.size())
                            : open_b64(content.text(), content.size());
    return opened ? 0 : invalid_asn1_data();
}

bool DerSource::load(size_t max) {
    SecretBuffer content;
    if (is_in_memory() || !stream_->seek(0) || stream_->remaining() > max || !read_all(*stream_, content) ||
        stream_->failed())
        return false;
    decoded_ = std::move(content);
    stream_.emplace(decoded_.data(), decoded_.size());
    return true;
}

int DerSource::read_result(int error) const {
    const bool isReadError = isReadError_ || (stream_ && stream_->failed());
    if (error == 0 || !isReadError)
        return error;
    err_set_text("Cannot read file '%s'", shown_name(path_)); // not what its part would have been taken for
    return READ_ERROR;
}

int DerSource::open(const char* fileOrText) {
    if (open_text(fileOrText))
        return 0;
    return has_pem_block(fileOrText) ? invalid_asn1_data() : open_file(fileOrText);
}

} // namespace zul
