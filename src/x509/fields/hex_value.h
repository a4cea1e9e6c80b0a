#pragma once
#include <string_view>

#include "frame/memory.h"

namespace zul {

// hex_value reads a number or identifier in hex, as people copy them: an odd number of digits as if a 0
// preceded them, blanks and ":" left out, a leading "0x" or "#x" too. False for anything
// else, so that no letter gone astray makes another number of it, and if there is no digit.
bool hex_value(std::string_view text, SecretBuffer& bytes);

} // namespace zul
