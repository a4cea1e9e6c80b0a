#pragma once
#include <cstddef>
#include <string>

// Names of algorithms, in the spellings that people use.
namespace tool {

struct Digest {
    const char* name; // as HASH_Begin takes it
    int option;       // ZUL_HASH_; negative for one that signatures and certificates do not take
    bool hasHmac, isExtendable;
};
// DigestUse chooses among the digests: any, those with an HMAC, or those with an option.
enum class DigestUse { hash, hmac, option };
const Digest& find_digest(const std::string& name, DigestUse use = DigestUse::option);
std::string digest_names(DigestUse use);

struct Cipher {
    std::string name;      // "aes-256" or "aes-256-cbc"
    std::string algorithm; // the same as CIPHER_Begin takes it
    int options;           // ZUL_CIPHER_ | ZUL_MODE_
    size_t keyBytes, blockBytes;
    bool takesIv, pads;
};
Cipher find_cipher_and_mode(const std::string& name); // "aes-256-cbc", "3DES/CTR", "des-ede3-cbc" ...
Cipher find_cipher(const std::string& name);          // the same without a mode

struct KeyEncryptionScheme {
    int option;         // of RSA_SaveEncPrivateKey
    const char* cipher; // of KEY_Save; null if it has not this scheme
};
// find_key_encryption takes a scheme and the digest of its key derivation (empty: the scheme's usual one).
KeyEncryptionScheme find_key_encryption(const std::string& name, const std::string& digest);

} // namespace tool
