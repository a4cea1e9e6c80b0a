#pragma once
#include <cstddef>
#include <cstdint>

// The message encodings that options of RSA_EncodeMsg and RSA_DecodeMsg name. Lengths are below 2^31.
namespace zul {

// rsa_encode_message fills out with an encoded message: 0 or a positive code of the encoding, BAD_FLAG_ERROR
// for an unknown one.
[[nodiscard]] int rsa_encode_message(uint8_t* out, size_t outLen, const uint8_t* message, size_t length,
                                     int options);

// rsa_decode_message copies at most room bytes of the message in a block and sets *result to its length, or
// to the digest algorithm with ZUL_EMSIG_GETALG: 0 or a positive code, after which nothing is copied.
[[nodiscard]] int rsa_decode_message(uint8_t* out, size_t room, const uint8_t* block, size_t blockLen,
                                     int options, int* result);

} // namespace zul
