#pragma once
#include <cstddef>
#include <string>

// Names of algorithms, in the spellings that people use.
namespace tool {

struct Digest {
    const char* name;
    int option; // ZUL_HASH_
};
const Digest& find_digest(const std::string& name);
std::string digest_names();

// file_digest gives the digest of a file of any size, or of standard input, in hex. options: a ZUL_HASH_
// algorithm, and perhaps ZUL_HASH_MODE_TEXT. (file_digest.cpp)
std::string file_digest(const std::string& file, int options);

struct Cipher {
    std::string name; // "aes-256" or "aes-256-cbc"
    int options;      // ZUL_CIPHER_ | ZUL_MODE_
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
