#pragma once
#include <string_view>

#include "frame/file_stream.h"

namespace zul {

// SealInput gives bytes in turn: those of a file, or those that its armour holds.
class SealInput {
  public:
    // read copies up to size bytes: fewer only at the end or after a failure.
    virtual size_t read(uint8_t* out, size_t size) = 0;
    // error is the code of the failure that ended the bytes, which has its text; 0 if there was none.
    virtual int error() const = 0;

  protected:
    ~SealInput() = default;
};

// FileInput reads large pieces straight into the caller's memory.
class FileInput final : public SealInput {
  public:
    // The name is for error texts; null for standard input.
    FileInput(File file, const char* name) : file_(std::move(file)), name_(name), buffer_(kStreamBuffer) {}

    size_t read(uint8_t* out, size_t size) override;
    int error() const override { return error_; }
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
