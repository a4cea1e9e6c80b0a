#pragma once
#include "seal/age_armour.h"
#include "seal/file_key.h"

namespace zul {

// AgeStanza is a stanza of a header: its arguments, the first of which is its type, and the lines of its
// body.
struct AgeStanza {
    std::string_view type, arguments; // what follows the type and a space
    size_t argumentCount = 0;         // of those behind the type
    std::string_view body;
};

// AgeHeader is the header of an age file (age-encryption.org/v1), read or made.
class AgeHeader {
  public:
    // read takes a header from the input and checks its form: BAD_FORMAT_ERROR with a text, or the input's
    // error. A header has at most kMostHeader bytes.
    [[nodiscard]] int read(SealInput& input);
    // next gives the stanzas in turn; at begins with 0.
    bool next(AgeStanza& stanza, size_t& at) const;
    size_t count() const { return count_; }

    // add appends a stanza with a wrapped file key as its body.
    void add(std::string_view typeAndArguments, const uint8_t* wrapped);
    void finish(const FileKey& fileKey); // appends the MAC
    const SecretBuffer& text() const { return text_; }

    // is_of tells whether the MAC of a header that was read fits the file key.
    bool is_of(const FileKey& fileKey) const;

  private:
    [[nodiscard]] int read_line(SealInput& input, std::string_view& line);
    [[nodiscard]] int read_stanza(SealInput& input, std::string_view first);
    void make_mac(uint8_t* mac, const FileKey& fileKey) const;

    SecretBuffer text_;   // up to the MAC; of a header that is made, all of it
    size_t macInput_ = 0; // of these bytes
    uint8_t mac_[kAgeMac]{};
    size_t count_ = 0;
};

constexpr size_t kMostHeader = size_t{2} << 20;

// The lengths of base64 without padding.
constexpr size_t age_base64_length(size_t size) {
    return (8 * size + 5) / 6;
}
// age_base64_read reads the base64 of exactly size bytes.
[[nodiscard]] bool age_base64_read(uint8_t* out, size_t size, std::string_view text);
// age_base64_write writes a NUL too.
void age_base64_write(char* out, const uint8_t* data, size_t size);

// age_wrapped_key reads the body of a stanza that wraps a file key.
[[nodiscard]] bool age_wrapped_key(uint8_t* wrapped, const AgeStanza& stanza);

} // namespace zul
