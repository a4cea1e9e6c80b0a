#include "frame/file_stream.h"

#include <algorithm>
#include <cstring>

namespace zul {

bool File::close() {
    const platform::FileHandle handle = std::exchange(handle_, platform::kNoFile);
    return handle == platform::kNoFile || platform::file_close(handle);
}

bool is_same_file(const char* argument, const char* path) {
    return platform::file_is_regular(argument) && platform::file_is(argument, path);
}

void discard_file(const char* path) {
    if (!platform::file_is_regular(path))
        return;
    File(path, platform::OpenMode::create).close();
    platform::file_remove(path);
}

// buffer_size takes one byte more than a small file has, so that one system call shows its end. Files that
// the system makes as they are read say that they are empty, and some of them give their text to one read
// only.
static size_t buffer_size(const File& file) {
    const int64_t length = file.length();
    return length > 0 && length < int64_t{kStreamBuffer} ? static_cast<size_t>(length) + 1 : kStreamBuffer;
}

FileReader::FileReader(const char* path, bool text)
    : file_(path, text ? platform::OpenMode::readText : platform::OpenMode::read),
      folds_(text && !platform::file_folds_line_ends()) {
    if (file_.is_open())
        buffer_ = SecretBuffer(1 + buffer_size(file_));
    else
        atEnd_ = true;
}

void FileReader::fill() {
    next_ = 1;
    filled_ = 1 + platform::file_read(file_.handle(), buffer_.data() + 1, buffer_.size() - 1, &failed_);
    atEnd_ = filled_ < buffer_.size();
    if (folds_)
        fold_line_ends();
}

void FileReader::fold_line_ends() {
    if (heldCr_)
        buffer_[--next_] = '\r';
    heldCr_ = !atEnd_ && buffer_[filled_ - 1] == '\r';
    if (heldCr_)
        filled_--;
    size_t kept = next_;
    for (size_t i = next_; i < filled_; i++)
        if (buffer_[i] != '\r' || i + 1 == filled_ || buffer_[i + 1] != '\n')
            buffer_[kept++] = buffer_[i];
    filled_ = kept;
}

size_t FileReader::read(void* out, size_t size) {
    auto* bytes = static_cast<uint8_t*>(out);
    size_t done = 0;
    while (done < size) {
        if (next_ == filled_) {
            if (atEnd_)
                break;
            fill();
            continue;
        }
        const size_t part = std::min(size - done, filled_ - next_);
        memcpy(bytes + done, buffer_.data() + next_, part);
        next_ += part;
        done += part;
    }
    return done;
}

} // namespace zul
