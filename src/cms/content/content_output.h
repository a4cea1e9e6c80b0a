#pragma once
#include "frame/memory.h"

// Where the content of a message goes: a file, or a caller's room. Results are lengths or negated codes.
namespace zul {

class OctetContent;

// content_to_file writes a content piece by piece, while it reads it from what the argument input names. A
// failure leaves what was written.
int content_to_file(OctetContent& content, const char* path, const char* input);
// bytes_to_file gives 0 or a positive code with a text: CREATE_ERROR, WRITE_ERROR, or IO_ERROR if the system
// reports only as the file is closed that something was lost. A failure removes the file.
[[nodiscard]] int bytes_to_file(const SecretBuffer& bytes, const char* path);
// content_to_room copies at most room bytes and a NUL; without output or room only the length is given.
int content_to_room(OctetContent& content, char* out, int room);
int bytes_to_room(const uint8_t* bytes, size_t size, char* out, int room);

} // namespace zul
