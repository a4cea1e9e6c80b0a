#include "cms/content/octet_content.h"

#include <algorithm>

#include "asn1/asn_levels.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {
namespace {

bool is_marker(const AsnHeader& header) {
    return header.cls == 0 && header.tag == 0;
}

bool is_constructed(const AsnHeader& header) {
    return (header.cls & kAsnConstructed) != 0;
}

} // namespace

int OctetContent::open(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag) {
    stream_ = nullptr;
    start_ = stream.offset();
    size_ = 0;
    AsnLevels levels;
    do {
        AsnHeader header;
        if (asn_read_header(stream, header) != 1)
            return INVALID_DATA_ERROR;
        const bool marker = is_marker(header) && levels.depth() > 0;
        if (marker ? header.is_false_marker() : (header.hdr[0] & ~kAsnConstructed) != (cls | tag))
            return INVALID_DATA_ERROR;
        const size_t offset = stream.offset();
        const auto end = static_cast<int64_t>(offset) + header.length;
        if (offset > scope.end || header.length > scope.end - offset || header.length > stream.remaining() ||
            !levels.holds(end))
            return INVALID_DATA_ERROR;
        if (is_constructed(header)) {
            if (!levels.enter(header.ndef != 0 ? AsnLevels::kOpen : end))
                return INVALID_DATA_ERROR;
        } else {
            if (header.ndef != 0)
                return INVALID_DATA_ERROR;
            if (header.length > kAsnMaxContent)
                return err_fail(MSG_TOO_LONG_ERROR, "Content is too long (max=%u bytes)", kAsnMaxContent);
            if (!stream.skip(header.length))
                return INVALID_DATA_ERROR;
            size_ += header.length;
        }
        if (levels.leave(static_cast<int64_t>(stream.offset()), marker) != AsnLevels::Step::good)
            return INVALID_DATA_ERROR;
        cls = kAsnUniversal; // of segments
        tag = kAsnOctetString;
    } while (levels.depth() > 0);
    end_ = stream.offset();
    stream_ = &stream;
    return rewind() && stream.seek(end_) ? 0 : INVALID_DATA_ERROR;
}

bool OctetContent::rewind() {
    at_ = start_;
    left_ = 0;
    return stream_ != nullptr && stream_->seek(start_);
}

// next_piece goes to the next piece with octets. open has checked the nesting.
bool OctetContent::next_piece() {
    while (stream_->offset() < end_) {
        AsnHeader header;
        if (asn_read_header(*stream_, header) != 1)
            return false;
        if (is_constructed(header) || header.length == 0)
            continue;
        left_ = header.length;
        return true;
    }
    return false;
}

size_t OctetContent::read(void* out, size_t n) {
    if (stream_ == nullptr || !stream_->seek(at_))
        return 0;
    auto* bytes = static_cast<uint8_t*>(out);
    size_t done = 0;
    while (done < n && (left_ > 0 || next_piece())) {
        const size_t part = std::min(n - done, left_);
        const size_t got = stream_->read(bytes + done, part);
        done += got;
        left_ -= got;
        if (got < part) {
            left_ = 0;
            break;
        }
    }
    at_ = stream_->offset();
    return done;
}

} // namespace zul
