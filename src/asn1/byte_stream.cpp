#include "asn1/byte_stream.h"

#include <algorithm>
#include <cstring>

#include "hash/digest.h"

namespace zul {

static constexpr size_t kWindow = size_t{16} * 1024;

ByteStream::ByteStream(const void* bytes, size_t n)
    : window_(static_cast<const uint8_t*>(bytes)), next_(window_),
      end_(window_ == nullptr ? nullptr : window_ + n), isMemory_(true) {}

ByteStream::ByteStream(const char* path) : file_(path, platform::OpenMode::read), isMemory_(false) {
    if (!file_.is_open())
        return;
    fileLength_ = file_.length();
    // A small file is read whole, and no further until something is asked of what lies behind it.
    const bool isSmall = fileLength_ > 0 && fileLength_ < int64_t{kWindow};
    buffer_ = SecretBuffer(kKept + (isSmall ? static_cast<size_t>(fileLength_) : kWindow));
    window_ = next_ = end_ = buffer_.data();
}

bool ByteStream::fill() {
    if (isMemory_ || failed_ || !file_.is_open())
        return false;
    uint8_t last[kKept];
    const size_t kept = std::min(kKept, static_cast<size_t>(end_ - window_));
    memcpy(last, end_ - kept, kept);
    uint8_t* bytes = buffer_.data() + kKept;
    const size_t got = platform::file_read(file_.handle(), bytes, buffer_.size() - kKept, &failed_);
    if (got == 0) // the window stays, so that a pipe can still go back in it
        return false;
    windowOffset_ += static_cast<size_t>(end_ - window_) - kept;
    memcpy(bytes - kept, last, kept);
    window_ = bytes - kept;
    next_ = bytes;
    end_ = bytes + got;
    digest_piece(windowOffset_ + kept, bytes, got);
    return true;
}

size_t ByteStream::remaining() const {
    if (isMemory_)
        return static_cast<size_t>(end_ - next_);
    if (!file_.is_open())
        return 0;
    if (fileLength_ < 0)
        return SIZE_MAX;
    const auto length = static_cast<size_t>(fileLength_);
    return length - std::min(length, offset());
}

size_t ByteStream::read_on(uint8_t* bytes, size_t n) {
    size_t done = 0;
    while (done < n) {
        if (next_ == end_ && n - done >= kWindow && !isMemory_ && !failed_ && file_.is_open()) {
            const size_t got = platform::file_read(file_.handle(), bytes + done, n - done, &failed_);
            digest_piece(offset(), bytes + done, got);
            windowOffset_ = offset() + got;
            next_ = end_ = window_;
            return done + got;
        }
        if (at_end())
            break;
        const size_t part = std::min(n - done, static_cast<size_t>(end_ - next_));
        memcpy(bytes + done, next_, part);
        next_ += part;
        done += part;
    }
    return done;
}

bool ByteStream::skip(int64_t count) {
    const size_t from = offset();
    if (count < 0) {
        const size_t back = static_cast<size_t>(-(count + 1)) + 1;
        return back <= from && seek(from - back);
    }
    return static_cast<uint64_t>(count) <= remaining() && seek(from + static_cast<size_t>(count));
}

bool ByteStream::seek_beyond(size_t offset) {
    if (isMemory_ || !file_.is_open())
        return false;
    if (fileLength_ < 0 || digest_ != nullptr)
        return skip_by_reading(offset);
    if (offset > static_cast<size_t>(fileLength_) ||
        !platform::file_seek(file_.handle(), static_cast<int64_t>(offset)))
        return false;
    windowOffset_ = offset;
    next_ = end_ = window_;
    return true;
}

bool ByteStream::skip_by_reading(size_t offset) {
    if (offset < windowOffset_)
        return false;
    while (offset - windowOffset_ > static_cast<size_t>(end_ - window_))
        if (!fill()) {
            next_ = end_;
            return false;
        }
    next_ = window_ + (offset - windowOffset_);
    return true;
}

void ByteStream::begin_digest(DigestContext& context, size_t offset, size_t n) {
    digest_ = &context;
    digestNext_ = offset;
    digestEnd_ = offset + n;
    digest_piece(windowOffset_, window_, static_cast<size_t>(end_ - window_));
}

bool ByteStream::end_digest() {
    constexpr size_t kChunk = size_t{64} * 1024;
    SecretBuffer chunk(std::min(kChunk, digestEnd_ - digestNext_));
    next_ = end_;
    while (digestNext_ < digestEnd_ &&
           read(chunk.data(), std::min(chunk.size(), digestEnd_ - digestNext_)) != 0) {
    }
    digest_ = nullptr;
    return digestNext_ == digestEnd_;
}

// digest_piece takes bytes that have come into memory. They follow those that came before.
void ByteStream::digest_piece(size_t offset, const uint8_t* bytes, size_t n) {
    const size_t end = std::min(offset + n, digestEnd_);
    if (digest_ == nullptr || offset > digestNext_ || digestNext_ >= end)
        return;
    digest_update(*digest_, bytes + (digestNext_ - offset), end - digestNext_);
    digestNext_ = end;
}

} // namespace zul
