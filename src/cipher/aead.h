#pragma once
#include <cstddef>
#include <cstdint>

// Authenticated encryption with associated data (RFC 5116).
namespace zul {

enum class Aead : int { aes128Gcm, aes192Gcm, aes256Gcm, chacha20Poly1305, aes256GcmSiv };

constexpr size_t kAeadTag = 16, kAeadRandomNonce = 12;

struct AeadInput {
    const uint8_t *key, *nonce, *aad, *data; // null where the size is 0
    size_t keySize, nonceSize, aadSize, size;
};

// aead_find gives the algorithm of a name: a code with a text, as name_find has it.
[[nodiscard]] int aead_find(Aead& algorithm, const char* name);

// aead_check: BAD_KEY_LEN_ERROR or BAD_IV_ERROR if the key or the nonce has a length that the algorithm does
// not take.
[[nodiscard]] int aead_check(Aead algorithm, const AeadInput& input);

// aead_encrypt writes size bytes and a tag. The input is checked.
void aead_encrypt(Aead algorithm, uint8_t* out, const AeadInput& input);

// aead_decrypt takes size bytes and a tag, writes size bytes: DECRYPT_ERROR, and zeros, if the tag is wrong.
[[nodiscard]] int aead_decrypt(Aead algorithm, uint8_t* out, const AeadInput& input);

} // namespace zul
