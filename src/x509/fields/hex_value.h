#pragma once
#include <string_view>

#include "frame/memory.h"

namespace zul {

// hex_value reads a number or identifier in hex, as people copy them: an odd number of digits as if a 0
// preceded them, blanks and ":" left out, a leading "0x" or "#x" too. False for anything
// else (a stray letter must not make another number) and without a digit.
bool hex_value(std::string_view text, SecretBuffer& bytes);

} // namespace zul
