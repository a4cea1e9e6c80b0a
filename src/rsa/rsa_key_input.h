#pragma once
#include "rsa/rsa_key.h"

// Keys from what an argument names or holds (asn1/asn_input.h). All give 0 or a positive code with a text:
// that of the reader, or BAD_FORMAT_ERROR for anything but such a key.
namespace zul {

[[nodiscard]] int rsa_input_public_key(const char* fileOrText,
                                       RsaKey& key); // RSAPublicKey or SubjectPublicKeyInfo
[[nodiscard]] int rsa_input_private_key(const char* fileOrText,
                                        RsaKey& key); // PrivateKeyInfo or RSAPrivateKey

// rsa_input_encrypted_key reads an EncryptedPrivateKeyInfo: DECRYPT_ERROR for every fault after the
// reading, so that a wrong password and damaged data look the same.
[[nodiscard]] int rsa_input_encrypted_key(const char* fileOrText, const char* password, RsaKey& key);

} // namespace zul
