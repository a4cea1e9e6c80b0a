#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "frame/wipe.h"

namespace zul {

class FileWriter;

// PemWriter writes data that comes in pieces as base64 lines ended by CR LF, between BEGIN and END lines if
// label is not null or empty. lineLen is rounded down to a multiple of four; below 4 it means 64. A failed
// write shows in out.finish().
class PemWriter {
  public:
    PemWriter(FileWriter& out, const char* label, int lineLen);
    void add(const uint8_t* data, size_t len);
    size_t finish(); // the characters written in all

  private:
    static constexpr size_t kMaxHeld = 3072;
    void encode_held();

    FileWriter& out_;
    const char* label_; // null: no BEGIN and END
    size_t lineBytes_;
    size_t inLine_ = 0; // bytes of the present line that are written
    size_t written_ = 0;
    // A line may be of any length, so it is encoded in parts of whole groups.
    Wiped<std::array<uint8_t, kMaxHeld>> held_;
    size_t heldSize_ = 0;
};

// pem_write writes data that lie in memory likewise, and returns the characters written.
size_t pem_write(FileWriter& out, const uint8_t* data, size_t len, const char* label, int lineLen);

// pem_find_body finds the first armoured body in a text of len characters, whatever its label. Null, with
// *bodyLen 0, if there is none.
const char* pem_find_body(const char* text, size_t len, size_t* bodyLen);

// is_pem_text tells whether text begins with "-" and holds an armoured body that is not empty.
bool is_pem_text(const char* text);

// is_b64_der_text tells whether text looks like a DER SEQUENCE in base64: it begins with "M", and all the
// rest is base64 characters, spaces and tabs. A line break makes it false.
bool is_b64_der_text(const char* text);

// pem_file_from_file writes the content of one file into another as pem_write does; they may be the same
// file. 0, OPEN_ERROR, CREATE_ERROR or WRITE_ERROR, with a text.
[[nodiscard]] int pem_file_from_file(const char* outPath, const char* inPath, const char* label, int lineLen);

// pem_file_to_file decodes the armoured body of one file into another, which may be the same. The output has
// (body characters + 3) / 4 * 3 + 1 bytes, zeros after the data. Codes as above, and BAD_FORMAT_ERROR if
// there is no body.
[[nodiscard]] int pem_file_to_file(const char* outPath, const char* inPath);

} // namespace zul
