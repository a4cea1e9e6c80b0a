#pragma once
#include "frame/memory.h"
#include "platform/platform.h"

namespace zul {

// pfx_write writes a file of what was made or extracted, as PEM if label is not null: 0, CREATE_ERROR without
// a text, which the caller knows best, or WRITE_ERROR with one. The file that the argument input names is
// CREATE_ERROR too: there may be no other copy of the key in it.
int pfx_write(const char* path, const SecretBuffer& content, const char* label, platform::OpenMode mode,
              const char* input);

} // namespace zul
