#pragma once
#include <cstddef>
#include <cstdint>

// X25519 (RFC 7748, 5). Keys and coordinates are 32 bytes, little-endian.
namespace zul {

constexpr size_t kX25519Bytes = 32;

// x25519 multiplies the point of coordinate u by a private key, in constant time: false, and zeros, if the
// result is zero, as for every point of small order (6.1).
[[nodiscard]] bool x25519(uint8_t* out, const uint8_t* privateKey, const uint8_t* u);

// x25519_public gives the public key of a private one.
void x25519_public(uint8_t* out, const uint8_t* privateKey);

} // namespace zul
