#pragma once
#include "cipher/cipher_choice.h"

namespace zul {

// cipher_file enciphers the file pathIn into pathOut, padding in ECB and CBC. Returns 0 or a positive code:
// NULL_ERROR, BAD_IV_ERROR, OPEN_ERROR, BAD_LENGTH_ERROR (input to decrypt is not whole blocks),
// BAD_PARAM_ERROR (the output is the input file), CREATE_ERROR, READ_ERROR, WRITE_ERROR or DECRYPT_ERROR (bad
// pad). An output that was begun does not remain after an error.
[[nodiscard]] int cipher_file(const CipherChoice& choice, bool encrypt, const char* pathOut,
                              const char* pathIn, const uint8_t* key, const uint8_t* iv);

} // namespace zul
