#pragma once
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

#include "file_names.h"
#include "secret_bytes.h"

// Files and standard streams. Data of any size passes in pieces, and a failed read is never taken for the
// end.
namespace tool {

constexpr size_t kChunk = size_t{96} * 1024; // whole base64 groups and whole pages

// Input reads a file, or standard input if its name is "-". Unbuffered: no copy of a key stays in the
// runtime. Refused with READ_ERROR if a read fails.
class Input {
  public:
    explicit Input(const std::string& name);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input();

    size_t read(unsigned char* out, size_t size); // less than size only at the end
    int64_t bytes_left() const;                   // negative if not known
    // refuse_output protects a regular file from being overwritten while it is read.
    void refuse_output(const std::string& out) const;
    // become_standard_input makes the file the standard input of the process, also for the library. False if
    // that fails.
    bool become_standard_input() const;
    // each_piece calls take with pieces of at most kChunk bytes, up to the end or until take returns false.
    void each_piece(const std::function<bool(const unsigned char* piece, size_t size)>& take);
    // read_all gives the whole content, at most kMaxLength bytes; its data() is never null.
    SecretBytes read_all();

  private:
    std::string name_;
    std::FILE* file_;
};

// Output writes a file, or standard output if its name is "-". A file that is not finished is emptied and
// removed. A file without any write permission is not overwritten, even for the superuser.
class Output {
  public:
    // forOwnerAlone keeps other users of the machine from reading a new file.
    explicit Output(const std::string& name, bool forOwnerAlone = false);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    void write(const void* data, size_t size);
    void write(std::string_view text) { write(text.data(), text.size()); }
    void write(const SecretBytes& bytes) { write(bytes.data(), bytes.size()); }
    void finish();

  private:
    std::string name_;
    std::FILE* file_;
};

// copy_all writes the rest of an input to an output and finishes it; the result is the number of bytes.
size_t copy_all(Input& input, Output& output);
void write_file(const std::string& name, const SecretBytes& content, bool forOwnerAlone = false);

} // namespace tool
