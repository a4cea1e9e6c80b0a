#pragma once
#include <cstddef>

namespace zul {

// password_prompt asks the user for a password and copies at most size-1 (size > 0) of its characters and a
// NUL to out: the length copied, or -1, and out as it was, if there is none: the user cancelled, nobody can
// be asked, or another prompt is open. caption and label, of which 127 characters count, may be null.
[[nodiscard]] int password_prompt(char* out, int size, const char* caption, const char* label);

} // namespace zul
