#pragma once
#include "frame/memory.h"
#include "rsa/rsa_key.h"

// Internal key strings: base64 texts that only the process that made them can open.
namespace zul {

enum class KeyStringType : int {
    plain = 0,
    rsaPublic = 1,
    rsaPrivate = 2,
    otherPublic = 3,
    otherPrivate = 4
};

// key_string_make protects the DER of a key; size() of the result does not count the NUL that follows. It is
// empty if the DER is empty or too long (65,535 bytes or more).
SecretBuffer key_string_make(const uint8_t* der, size_t derLen, KeyStringType type);

// key_string_open gives back the DER and the type: 0 or INVALID_DATA_ERROR. A text that does not begin
// with a marker is plain base64 of the DER.
[[nodiscard]] int key_string_open(const char* keyString, SecretBuffer& der, KeyStringType* type);

// rsa_open_public and rsa_open_private open a key string of their own kind into a key: 0 or
// INVALID_DATA_ERROR. A plain one opens as the RSAPublicKey or RSAPrivateKey that it holds. rsa_open_any
// takes either kind, a plain one as public first; *isPrivate (may be null) is set on success.
[[nodiscard]] int rsa_open_public(const char* keyString, RsaKey& key);
[[nodiscard]] int rsa_open_private(const char* keyString, RsaKey& key);
[[nodiscard]] int rsa_open_any(const char* keyString, RsaKey& key, bool* isPrivate);

// rsa_public_key_string and rsa_private_key_string write a key as a key string into a caller's room, as
// exports do (docs/conventions.md), and set *length: 0, INVALID_DATA_ERROR for a key that is too long, or
// SHORT_BUF_ERROR if the string does not fit.
[[nodiscard]] int rsa_public_key_string(char* out, int outChars, const RsaKey& key, int* length);
[[nodiscard]] int rsa_private_key_string(char* out, int outChars, const RsaKey& key, int* length);

} // namespace zul
