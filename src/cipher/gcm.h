#pragma once
#include "cipher/aes.h"
#include "cipher/polyval.h"

// AES-GCM (SP 800-38D) and AES-GCM-SIV (RFC 8452) over whole messages. out may be in itself. Tags have 16
// bytes.
namespace zul {

constexpr size_t kGcmTag = 16;
constexpr size_t kGcmSivNonce = 12;

// gcm_encrypt takes a nonce of at least one byte.
void gcm_encrypt(uint8_t* out, uint8_t* tag, const AesKey& key, const uint8_t* nonce, size_t nonceSize,
                 const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size);
// gcm_decrypt checks the tag before it writes: false, and nothing written, if it is wrong.
[[nodiscard]] bool gcm_decrypt(uint8_t* out, const uint8_t* tag, const AesKey& key, const uint8_t* nonce,
                               size_t nonceSize, const uint8_t* aad, size_t aadSize, const uint8_t* in,
                               size_t size);

// The key-generating key has 16 or 32 bytes.
void gcm_siv_encrypt(uint8_t* out, uint8_t* tag, const uint8_t* key, size_t keySize, const uint8_t* nonce,
                     const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size);
// gcm_siv_decrypt has to decrypt before it can check: a wrong tag leaves zeros in out.
[[nodiscard]] bool gcm_siv_decrypt(uint8_t* out, const uint8_t* tag, const uint8_t* key, size_t keySize,
                                   const uint8_t* nonce, const uint8_t* aad, size_t aadSize,
                                   const uint8_t* in, size_t size);

} // namespace zul
