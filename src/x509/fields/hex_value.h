#pragma once
#include <string_view>

#include "frame/memory.h"

namespace zul {

// hex_value reads a number or identifier in hex. It skips blanks, ":" and a leading "0x" or "#x", and puts a
// 0 before an odd number of digits. It gives false for any other character, so that a typing error makes no
// other number, and for a text without digits.
bool hex_value(std::string_view text, SecretBuffer& bytes);

} // namespace zul
