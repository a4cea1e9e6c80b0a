#pragma once
#include <cstddef>
#include <string_view>

#include "frame/memory.h"

namespace zul {

// PairReader reads keyword=value pairs separated by ";". A value in single quotes may hold ";". A backslash
// in it makes the next character literal.
class PairReader {
  public:
    explicit PairReader(std::string_view text) : rest_(text) {}

    // next steps to the next pair; false when no "=" is left.
    bool next();
    std::string_view keyword() const { return keyword_; } // without leading blanks and tabs
    std::string_view raw_value() const { return raw_; }   // quotes and backslashes included
    // value gives the value without its quotes and their backslashes, with a NUL behind it.
    SecretBuffer value() const;

  private:
    std::string_view rest_, keyword_, raw_;
};

// same_word compares without regard to ASCII case.
bool same_word(std::string_view a, std::string_view b);

} // namespace zul
