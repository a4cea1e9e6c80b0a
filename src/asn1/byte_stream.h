#pragma once
#include "frame/file_stream.h"

namespace zul {

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
    bool at_end() { return next_ == end_ && !fill(); }
    size_t offset() const { return windowOffset_ + static_cast<size_t>(next_ - window_); }
    bool skip(int64_t count); // forward or back; false beyond either end, and not moved (a pipe: at its end)
    bool seek(size_t offset);
    size_t read(void* out, size_t n); // fewer than n only at the end
    size_t remaining() const;         // bytes up to the end, SIZE_MAX if the source does not tell

  private:
    bool fill();
    bool skip_by_reading(size_t offset);

    // The window is the part in memory: everything, or what the buffer holds of a file.
    const uint8_t* window_ = nullptr;
    const uint8_t* next_ = nullptr;
    const uint8_t* end_ = nullptr;
    size_t windowOffset_ = 0;
    File file_;
    SecretBuffer buffer_;
    int64_t fileLength_ = -1;
    bool isMemory_;
};

} // namespace zul
