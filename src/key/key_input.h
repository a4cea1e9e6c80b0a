#pragma once
#include "key/key.h"

namespace zul {

// key_input reads an argument that is a key string, or else a file or text as key_read takes it, not
// encrypted. 0 or the code of key_string_read or key_read, with a text.
[[nodiscard]] int key_input(Key& key, const char* keyOrFile);
[[nodiscard]] int key_input_private(Key& key, const char* keyOrFile); // also BAD_KEY_ERROR for a public key

} // namespace zul
