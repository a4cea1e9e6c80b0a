#pragma once
#include "cipher/cipher_choice.h"

namespace zul {

// cipher_bytes enciphers length bytes; out may be in. Returns 0 or a positive code: NULL_ERROR, BAD_IV_ERROR
// or BAD_LENGTH_ERROR, each of which leaves out untouched.
[[nodiscard]] int cipher_bytes(const CipherChoice& choice, bool encrypt, uint8_t* out, const uint8_t* in,
                               size_t length, const uint8_t* key, const uint8_t* iv);

enum class TextEncoding { hex, base64 };

// The room of an output that the caller has made large enough for the result, whatever that is.
constexpr size_t kAmpleRoom = SIZE_MAX;

// cipher_text enciphers the bytes that the text in stands for and encodes the result. Key and IV are texts of
// the same encoding; the IV is not looked at in ECB. out holds outSize bytes, the NUL included, and may be
// in. Returns 0 or a positive code, which leaves out untouched: as cipher_bytes, or BAD_PARAM_ERROR for an
// empty input or key text, BAD_KEY_LEN_ERROR, SHORT_BUF_ERROR.
[[nodiscard]] int cipher_text(const CipherChoice& choice, bool encrypt, TextEncoding encoding, char* out,
                              size_t outSize, const char* in, const char* key, const char* iv);

} // namespace zul
