#pragma once
#include <string_view>

#include "frame/memory.h"

namespace zul {

// RevokedReader splits a text into entries, joined by ";", and these into fields keyword=value, joined by
// ",". Blanks, line ends and quotes are as in descriptions (description.h), but lists of certificates are
// longer: a value without quotes is not copied.
class RevokedReader {
  public:
    explicit RevokedReader(std::string_view text) : rest_(text) {}

    bool next_entry(); // false at the end
    // next_field gives false at the end of the entry and after a failure.
    bool next_field();
    std::string_view keyword() const { return keyword_; }
    std::string_view value() const { return value_; }  // not empty, valid until the next call
    size_t number() const { return number_; }          // of the entry, from 1
    [[nodiscard]] int error() const { return error_; } // 0 or BAD_PARAM_ERROR, with a text

  private:
    bool refuse(const char* why);
    bool read_quoted();
    void skip_blanks();

    std::string_view rest_, keyword_, value_;
    SecretBuffer unquoted_;
    size_t number_ = 0;
    bool inEntry_ = false; // another field has to follow
    int error_ = 0;
};

} // namespace zul
