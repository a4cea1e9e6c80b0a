#pragma once
#include <cstddef>
#include <cstdint>

#include "cipher/block_cipher.h"

namespace zul {

// Wrapping of one symmetric key under another, the key-encryption key (KEK). In every function out may
// overlap data and kek.

constexpr size_t kAesWrapOverhead = 8;
constexpr size_t kTdesWrapKey = 24, kTdesWrappedKey = 40;

// The result of unwrapping a key whose check value is wrong: the KEK is another one or the data are damaged.
// Callers know this value as it is.
constexpr int kUnwrapFailed = 1;

// wrapped_key_length gives the length of the wrapped form of a key, unwrapped_key_length that of the key in a
// wrapped form: 0 or BAD_LENGTH_ERROR. The algorithm is Triple DES or AES.
[[nodiscard]] int wrapped_key_length(CipherAlgorithm algorithm, int keyLength, int* length);
[[nodiscard]] int unwrapped_key_length(CipherAlgorithm algorithm, int wrappedLength, int* length);

// aes_key_wrap wraps length bytes (16 or more, a multiple of 8) into length + 8 (RFC 3394). Returns 0, or
// BAD_KEY_LEN_ERROR if the KEK has no length of AES, which leaves out untouched.
[[nodiscard]] int aes_key_wrap(uint8_t* out, const uint8_t* data, size_t length, const uint8_t* kek,
                               size_t kekLength);

// aes_key_unwrap unwraps length bytes (24 or more, a multiple of 8) into length - 8. Returns 0,
// BAD_KEY_LEN_ERROR, or kUnwrapFailed, which leaves zeros in out.
[[nodiscard]] int aes_key_unwrap(uint8_t* out, const uint8_t* data, size_t length, const uint8_t* kek,
                                 size_t kekLength);

// Fills out with random bytes. Returns 0 or an error code.
using RandomBytes = int (*)(uint8_t* out, size_t length);

// tdes_key_wrap wraps a key of 24 bytes into 40 (RFC 3217) under a KEK of 24. Unlike the RFC it leaves the
// parity bits of the wrapped key as they are, so that unwrapping gives back what was wrapped. Returns 0 or
// the code of random, which leaves out untouched.
[[nodiscard]] int tdes_key_wrap(uint8_t* out, const uint8_t* data, const uint8_t* kek, RandomBytes random);

// tdes_key_unwrap unwraps 40 bytes into 24; the parity bits are not checked. Returns 0, or kUnwrapFailed,
// which leaves zeros in out.
[[nodiscard]] int tdes_key_unwrap(uint8_t* out, const uint8_t* data, const uint8_t* kek);

} // namespace zul
