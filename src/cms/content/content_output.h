#pragma once
#include "frame/memory.h"

// Where the content of a message goes: a file, or a caller's room. Results are lengths or negated codes.
namespace zul {

class OctetContent;

// content_to_file writes a content piece by piece; noFile is the text if the file cannot be created. The file
// that a failure leaves is removed.
int content_to_file(OctetContent& content, const char* path, const char* noFile);
// content_to_room copies at most room bytes and a NUL; without output or room only the length is given.
int content_to_room(OctetContent& content, char* out, int room);
int bytes_to_room(const uint8_t* bytes, size_t size, char* out, int room);

} // namespace zul
