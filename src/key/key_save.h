#pragma once
#include "key/key.h"

namespace zul {

// key_save writes a key to a file; options are those of KEY_Save. password may be null, and so may
// parameters. 0 or a positive code with a text.
[[nodiscard]] int key_save(const char* path, const Key& key, const char* password, const char* parameters,
                           int options);

} // namespace zul
