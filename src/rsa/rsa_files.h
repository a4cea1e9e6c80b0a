#pragma once
#include "asn1/asn_node.h"
#include "rsa/rsa_key.h"

// Key files. options: ZUL_KEY_FORMAT_PEM and ZUL_KEY_FORMAT_PEM_ALT. All give 0 or a positive code with a
// text (CREATE_ERROR, WRITE_ERROR ...); a new file that failed is removed, and an existing one is as it was.
namespace zul {

[[nodiscard]] int rsa_write_public_key(const char* path, const RsaKey& key, int options);
[[nodiscard]] int rsa_write_private_key_info(const char* path, const RsaKey& key, int options);
// rsa_write_encrypted_key writes an EncryptedPrivateKeyInfo. A file that cannot be created is CREATE_ERROR
// without a text, which the caller knows best.
[[nodiscard]] int rsa_write_encrypted_key(const char* path, const asn_Node* encryptedPrivateKeyInfo,
                                          int options);

} // namespace zul
