#pragma once
#include "asn1/asn_node.h"
#include "cipher/block_cipher.h"
#include "frame/memory.h"
#include "pbe/scrypt.h"

// EncryptedPrivateKeyInfo (RFC 5958, 3).
namespace zul {

enum class KeyKdf { pbkdf2, scrypt };

struct KeyEncryption {
    KeyKdf kdf = KeyKdf::pbkdf2;
    CipherAlgorithm cipher = CipherAlgorithm::aes256; // in CBC mode
    int digest = 0;                                   // of PBKDF2's HMAC
    uint32_t iterations = 0;
    uint64_t n = 0, r = 0, p = 0; // of scrypt
};

// key_encryption_read reads "iterations=...;kdf=scrypt;cipher=...;hash=...;n=...;r=...;p=...", null for the
// defaults: 0, or with a text BAD_PARAM_ERROR, NOT_SUPPORTED_ERROR or OUT_OF_RANGE_ERROR.
[[nodiscard]] int key_encryption_read(KeyEncryption& encryption, const char* parameters);

// key_encrypt gives an EncryptedPrivateKeyInfo of PBES2 with a random salt and IV.
[[nodiscard]] int key_encrypt(AsnList& list, const SecretBuffer& plain, const char* password,
                              const KeyEncryption& encryption);

// key_is_scrypt tells whether an AlgorithmIdentifier is PBES2 with scrypt.
[[nodiscard]] bool key_is_scrypt(const asn_Node* algorithm);

// key_scrypt_cost reads the cost from an AlgorithmIdentifier of PBES2 with scrypt: 0, BAD_FORMAT_ERROR,
// NOT_SUPPORTED_ERROR, or OUT_OF_RANGE_ERROR beyond what scrypt_check_file allows.
[[nodiscard]] int key_scrypt_cost(ScryptCost& cost, const asn_Node* algorithm);

// key_decrypt decrypts one of any scheme that pbe_decrypt knows, and of PBES2 with scrypt: 0 or a positive
// code with a text.
[[nodiscard]] int key_decrypt(SecretBuffer& plain, const asn_Node* encrypted, const char* password);

} // namespace zul
