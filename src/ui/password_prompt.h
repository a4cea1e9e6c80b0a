#pragma once
namespace zul {

// password_prompt asks the user for a password and copies at most size-1 (size > 0) of its characters and a
// NUL to out. It returns the length copied, or -1 with out unchanged: the user cancelled, nobody can be
// asked, or another prompt is open. caption and label may be null; their first 127 characters count.
[[nodiscard]] int password_prompt(char* out, int size, const char* caption, const char* label);

} // namespace zul
