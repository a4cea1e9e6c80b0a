#pragma once
#include "key/key.h"

namespace zul {

// key_read reads a key from a file or a text: DER, base64, or PEM, of which the first private key is taken,
// or else the first block that is no parameters. password may be null. 0 or a positive code with a text:
// OPEN_ERROR, INVALID_DATA_ERROR (no DER), the codes of key_read_structure, BAD_PARAM_ERROR (encrypted, but
// no password), DECRYPT_ERROR (a wrong password or damaged data), OUT_OF_RANGE_ERROR (a derivation that costs
// too much), MEMORY_ERROR.
[[nodiscard]] int key_read(Key& key, const char* fileOrText, const char* password);

} // namespace zul
