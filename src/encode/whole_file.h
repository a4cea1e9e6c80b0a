#pragma once
#include "frame/memory.h"

namespace zul {

// read_whole_file reads a file in binary mode into content, which holds a NUL after the last byte; its size()
// does not count it. 0 or a positive code with a text: READ_ERROR if reading fails; OPEN_ERROR if the file is
// missing, not a file, of no known length, shorter than it says, or above maxSize bytes.
[[nodiscard]] int read_whole_file(const char* path, SecretBuffer& content,
                                  size_t maxSize = kMaxAllocation - 1);

} // namespace zul
