#pragma once
#include <utility>

#include "frame/memory.h"
#include "platform/platform.h"

namespace zul {

// The buffer of a reader or a writer: large enough that system calls cost little beside the work on the
// bytes, small enough for the second-level cache.
constexpr size_t kStreamBuffer = size_t{64} * 1024;
// A writer begins with this much, which most of its files fit: a buffer costs its zeroing and its wiping.
constexpr size_t kFirstBuffer = 4096;

// File owns an open file and closes it at its end.
class File {
  public:
    File() = default;
    File(const char* path, platform::OpenMode mode) : handle_(platform::file_open(path, mode, &length_)) {}
    explicit File(platform::FileHandle handle) : handle_(handle) {}
    File(File&& other) noexcept
        : length_(other.length_), handle_(std::exchange(other.handle_, platform::kNoFile)) {}
    File& operator=(File&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(length_, other.length_);
        return *this;
    }
    ~File() { close(); }

    bool is_open() const { return handle_ != platform::kNoFile; }
    platform::FileHandle handle() const { return handle_; }
    // length is what a file opened to be read had then, without another system call; negative if it has none.
    int64_t length() const { return length_; }
    // close gives false if the system reports that something written was lost.
    bool close();

  private:
    int64_t length_ = -1; // before the handle, since opening sets it
    platform::FileHandle handle_ = platform::kNoFile;
};

// is_same_file tells whether an argument, which may be a text instead, names the same file as a path.
// The file is not opened for that, which might fail where reading it has not.
bool is_same_file(const char* argument, const char* path);

// discard_file removes a file that is closed and not whole. Another name of it, a link, keeps an empty one.
void discard_file(const char* path);

// FileReader reads a file through one wiped buffer, so that small reads cost no system call each.
class FileReader {
  public:
    explicit FileReader(const char* path, bool text = false);

    bool is_open() const { return file_.is_open(); }
    platform::FileHandle handle() const { return file_.handle(); }
    // read copies up to size bytes: fewer only at the end of the file or after a read error.
    size_t read(void* out, size_t size);
    bool failed() const { return failed_; } // a read error, as against the end of the file

  private:
    void fill();
    void fold_line_ends();

    File file_;
    SecretBuffer buffer_;
    size_t next_ = 1, filled_ = 1; // the first byte of the buffer is kept free for a CR held back
    bool atEnd_ = false, failed_ = false;
    bool folds_ = false, heldCr_ = false; // text: a CR at the end of what was read waits for what follows
};

} // namespace zul
