#pragma once
#include "frame/file_writer.h"
#include "seal/file_input.h"

// The armour of age files: PEM (RFC 7468) in its strict form, with the label "AGE ENCRYPTED FILE" and lines
// of 64 columns.
namespace zul {

constexpr size_t kArmourColumns = 64, kArmourBytes = 48; // of a line
constexpr size_t kMostArmourBlanks = 1024;               // around the armour, at either side

// armour_begins tells whether what comes next, blanks aside, can only be armour.
bool armour_begins(FileInput& input);

// ArmourReader gives the bytes that the armour holds. What it refuses is BAD_FORMAT_ERROR.
class ArmourReader {
  public:
    explicit ArmourReader(FileInput& input) : input_(input) {}

    size_t read(uint8_t* out, size_t size); // as FileInput
    int error() const { return input_.error() != 0 ? input_.error() : error_; }

  private:
    void begin();
    void decode_line();
    void end();
    bool take_line(std::string_view& line);
    void fail(const char* text);

    FileInput& input_;
    enum class State { before, body, last, after } state_ = State::before;
    uint8_t bytes_[kArmourBytes]{};
    size_t next_ = 0, filled_ = 0;
    int error_ = 0;
};

// SealInput gives a file's bytes, or those in its armour.
class SealInput {
  public:
    SealInput(FileInput& file, bool armoured) : file_(file), armour_(file), armoured_(armoured) {}

    size_t read(uint8_t* out, size_t size) {
        return armoured_ ? armour_.read(out, size) : file_.read(out, size);
    }
    int error() const { return armoured_ ? armour_.error() : file_.error(); }

  private:
    FileInput& file_;
    ArmourReader armour_;
    const bool armoured_;
};

// SealOutput writes a file's bytes, in armour if so wanted.
class SealOutput {
  public:
    SealOutput(FileWriter& file, bool armoured);

    bool write(const uint8_t* data, size_t size); // false once anything could not be written
    bool finish();

  private:
    void write_lines(const uint8_t* data, size_t size);

    FileWriter& file_;
    const bool armoured_;
    bool failed_ = false;
    uint8_t rest_[kArmourBytes]{}; // less than a line
    size_t held_ = 0;
};

} // namespace zul
