#pragma once
#include <cstring>

#include "frame/file_stream.h"

namespace zul {

struct DigestContext;

// ByteStream reads bytes of a file or of memory, which stays the caller's, forwards and back. Of a file it
// holds one buffer at a time; a source that has no length (a pipe) goes back no further than that.
class ByteStream {
  public:
    ByteStream(const void* bytes, size_t n);
    explicit ByteStream(const char* path);

    bool is_open() const { return isMemory_ || file_.is_open(); }
    int get() { // the next byte, -1 at the end
        return next_ != end_ || fill() ? *next_++ : -1;
    }
    int peek() { // the next byte, which is not taken
        return next_ != end_ || fill() ? *next_ : -1;
    }
    bool at_end() { return next_ == end_ && !fill(); }
    // take_short_header takes the header of an element with an identifier octet and less than 128 bytes, if
    // the whole element is in memory: false leaves the stream where it was.
    bool take_short_header(uint8_t identifier, size_t& length) {
        if (end_ - next_ < 2 || next_[0] != identifier || next_[1] > 0x7F || next_[1] > end_ - next_ - 2)
            return false;
        length = next_[1];
        next_ += 2;
        return true;
    }
    // holds tells whether all bytes up to an offset are in memory. take_view steps over n bytes that are in
    // memory and gives their place, which is valid until something is read that is not in memory.
    bool holds(size_t offset) const { return offset - windowOffset_ <= static_cast<size_t>(end_ - window_); }
    const uint8_t* take_view(size_t n) {
        next_ += n;
        return next_ - n;
    }
    size_t offset() const { return windowOffset_ + static_cast<size_t>(next_ - window_); }
    bool skip(int64_t count); // forward or back; false beyond either end, and not moved (a pipe: at its end)
    bool seek(size_t offset) {
        if (offset - windowOffset_ > static_cast<size_t>(end_ - window_)) // also below the window
            return seek_beyond(offset);
        next_ = window_ + (offset - windowOffset_);
        return true;
    }
    size_t read(void* out, size_t n) { // fewer than n only at the end
        if (n > static_cast<size_t>(end_ - next_))
            return read_on(static_cast<uint8_t*>(out), n);
        if (n != 0)
            memcpy(out, next_, n);
        next_ += n;
        return n;
    }
    size_t remaining() const;               // bytes up to the end, SIZE_MAX if the source does not tell
    bool failed() const { return failed_; } // a read error: nothing comes after it, as after the end

    // begin_digest passes n bytes from an offset at or after the present one through a digest as they are
    // read. end_digest reads those that are left, and gives false if the bytes end early. Between the two
    // calls a file is read forward only (back by at most kKept bytes), so the digest covers the same bytes
    // that the readers have seen.
    void begin_digest(DigestContext& context, size_t offset, size_t n);
    [[nodiscard]] bool end_digest();

  private:
    static constexpr size_t kKept = 16; // bytes before the window that stay in memory

    bool fill();
    bool seek_beyond(size_t offset);
    size_t read_on(uint8_t* bytes, size_t n);
    bool skip_by_reading(size_t offset);
    void digest_piece(size_t offset, const uint8_t* bytes, size_t n);

    // The window is the part in memory: everything, or what the buffer holds of a file.
    const uint8_t* window_ = nullptr;
    const uint8_t* next_ = nullptr;
    const uint8_t* end_ = nullptr;
    size_t windowOffset_ = 0;
    File file_;
    SecretBuffer buffer_;
    int64_t fileLength_ = -1;
    bool isMemory_, failed_ = false;
    DigestContext* digest_ = nullptr;
    size_t digestNext_ = 0, digestEnd_ = 0;
};

} // namespace zul
