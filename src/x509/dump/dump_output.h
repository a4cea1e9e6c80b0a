#pragma once
#include <string_view>

#include "frame/file_writer.h"

namespace zul {

// DumpOutput writes a text file. It refuses to overwrite the file that the argument input names. After a
// failure the file keeps what was written so far.
class DumpOutput {
  public:
    DumpOutput(const char* path, const char* input) : file_(path, {.input = input}) {}
    bool is_open() const { return file_.is_open(); }

    // put writes texts one after the other, each "\n" as the platform's line end.
    template<class... Texts>
    void put(const Texts&... texts) {
        (write(texts), ...);
    }
    void put_number(long value);
    void put_hex(const uint8_t* bytes, size_t n); // "%02X " each
    // put_hex_block writes lines of 16 bytes in the same form, each after the indent.
    void put_hex_block(std::string_view indent, const uint8_t* bytes, size_t n);

    bool finish() { return file_.finish(); }

  private:
    void write(std::string_view text);
    void write(const SecretBuffer& text) { write({text.text(), text.size()}); }

    FileWriter file_;
};

} // namespace zul
