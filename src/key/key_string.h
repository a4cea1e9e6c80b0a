#pragma once
#include "frame/memory.h"
#include "key/key.h"

// Key strings of any kind. RSA keys have those of rsa/rsa_key_string.h, which the RSA_ functions know too;
// the others marks of their own: "PUBK" and "PVTK", and AES-256-GCM under a key of the process.
namespace zul {

// key_string_write protects a key; size() does not count the NUL that follows. Empty if it is too long.
SecretBuffer key_string_write(const Key& key);

// key_string_most gives the length of the longest private key string of a kind; bits are those of RSA.
size_t key_string_most(KeyKind kind, size_t bits);

// The openers give 0, BAD_PARAM_ERROR (null or empty), INVALID_DATA_ERROR or the code of key_check_exponent,
// with a text. key_string_read takes either kind, key_string_read_private private keys alone.
[[nodiscard]] int key_string_read(const char* text, Key& key);
[[nodiscard]] int key_string_read_private(const char* text, Key& key);

} // namespace zul
