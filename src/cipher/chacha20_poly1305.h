#pragma once
#include "cipher/chacha20.h"
#include "cipher/poly1305.h"

// ChaCha20-Poly1305 (RFC 8439, 2.8). out may be in itself.
namespace zul {

void chacha20_poly1305_encrypt(uint8_t* out, uint8_t* tag, const uint8_t* key, const uint8_t* nonce,
                               const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size);
// chacha20_poly1305_decrypt checks the tag before it writes: false, and nothing written, if it is wrong.
[[nodiscard]] bool chacha20_poly1305_decrypt(uint8_t* out, const uint8_t* tag, const uint8_t* key,
                                             const uint8_t* nonce, const uint8_t* aad, size_t aadSize,
                                             const uint8_t* in, size_t size);

} // namespace zul
