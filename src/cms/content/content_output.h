#pragma once
#include "frame/memory.h"

// Where the content of a message goes: a file, or a caller's room. All give 0 or a positive code with a text.
namespace zul {

class OctetContent;

// content_to_file writes a content piece by piece, while it reads it from what the argument input names. A
// failure leaves what was written.
[[nodiscard]] int content_to_file(OctetContent& content, const char* path, const char* input, int* length);
// bytes_to_file gives CREATE_ERROR, WRITE_ERROR, or IO_ERROR if the system reports a loss only as the file is
// closed. A failure removes the file.
[[nodiscard]] int bytes_to_file(const SecretBuffer& bytes, const char* path);

// Both copy at most room bytes and a NUL, and give the length copied; without output or room the whole
// length.
[[nodiscard]] int content_to_room(OctetContent& content, char* out, int room, int* length);
[[nodiscard]] int bytes_to_room(const SecretBuffer& bytes, char* out, int room, int* length);

} // namespace zul
