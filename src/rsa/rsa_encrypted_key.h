#pragma once
#include "asn1/asn_node.h"
#include "pbe/pbe.h"
#include "rsa/rsa_key.h"

namespace zul {

// rsa_encrypt_key gives a private key as EncryptedPrivateKeyInfo; empty, with a text, if it cannot be
// encrypted.
AsnList rsa_encrypt_key(PbeContext& encryption, const RsaKey& key);

// rsa_save_encrypted_key encrypts a key and writes it to a file; options are those of RSA_SaveEncPrivateKey.
// 0 or a positive code, with a text.
[[nodiscard]] int rsa_save_encrypted_key(const char* path, const RsaKey& key, int iterationCount,
                                         const char* password, int options);

} // namespace zul
