#pragma once
#include <string_view>

#include "frame/file_stream.h"

namespace zul {

// FileInput reads a file, large pieces of it straight into the caller's memory.
class FileInput {
  public:
    // The name is for error texts; null for standard input.
    FileInput(File file, const char* name) : file_(std::move(file)), name_(name), buffer_(kStreamBuffer) {}

    // read copies up to size bytes: fewer only at the end or after a failure.
    size_t read(uint8_t* out, size_t size);
    // error is the code of the failure that ended the bytes, which has its text; 0 if there was none.
    int error() const { return error_; }
    platform::FileHandle handle() const { return file_.handle(); }

    // ahead gives the bytes that come next without taking them: at least wanted, unless the file ends before.
    std::string_view ahead(size_t wanted);
    void skip(size_t size) { next_ += size; } // of what ahead gave

  private:
    size_t read_file(uint8_t* out, size_t size);

    File file_;
    const char* name_;
    SecretBuffer buffer_;
    size_t next_ = 0, filled_ = 0;
    bool atEnd_ = false;
    int error_ = 0;
};

} // namespace zul
