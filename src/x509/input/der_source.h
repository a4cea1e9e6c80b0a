#pragma once
#include <optional>

#include "asn1/byte_stream.h"
#include "frame/memory.h"

namespace zul {

// DerSource gives the encoding in a certificate argument (x509_input.h) as a stream. A file of DER is read
// piece by piece. Text is decoded into memory. A pipe is read into memory too, because it can be read only
// once. A function that reads an argument twice uses one source: a file may have changed when it is opened
// again.
class DerSource {
  public:
    // open gives 0 or a positive code with a text. It checks that the first header is that of a SEQUENCE, and
    // leaves the rest to the reader.
    [[nodiscard]] int open(const char* fileOrText);
    // open_text takes text alone: base64 of more than 256 characters, or a PEM block.
    bool open_text(const char* text);
    // open_file takes the argument as the name of a file.
    [[nodiscard]] int open_file(const char* path);

    // load reads a file of at most max bytes into memory, where it can be read twice: false if it is longer,
    // or in memory already.
    bool load(size_t max);
    bool is_in_memory() const { return !decoded_.empty(); }
    // read_result gives READ_ERROR with a text in place of an error if a read has failed.
    [[nodiscard]] int read_result(int error) const;

    bool is_text() const { return isText_; }  // the argument is text, no file's name
    ByteStream& stream() { return *stream_; } // at the object after open

  private:
    bool open_b64(const char* text, size_t size);
    bool open_pem(const char* text, size_t size);

    [[nodiscard]] int parse_file();

    bool isText_ = false, isReadError_ = false;
    const char* path_ = nullptr; // of a file: the caller's, which outlives the source
    SecretBuffer decoded_;       // or read from a pipe
    std::optional<ByteStream> stream_;
};

// invalid_asn1_data reports what is not ASN.1: INVALID_DATA_ERROR with a text.
[[nodiscard]] int invalid_asn1_data();

// has_pem_block tells whether a text holds a BEGIN marker.
bool has_pem_block(const char* text);

} // namespace zul
