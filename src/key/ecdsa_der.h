#pragma once
#include <cstddef>
#include <cstdint>

// ECDSA-Sig-Value (RFC 3279, 2.2.3): SEQUENCE of the INTEGERs r and s, each of bytes bytes as the curve has
// it.
namespace zul {

// ecdsa_der_most gives the length of the longest.
size_t ecdsa_der_most(size_t bytes);

// ecdsa_der_write gives the length written.
size_t ecdsa_der_write(uint8_t* out, const uint8_t* rs, size_t bytes);

// ecdsa_der_read takes DER alone, in its one form, of two numbers that are not negative.
[[nodiscard]] bool ecdsa_der_read(uint8_t* rs, size_t bytes, const uint8_t* der, size_t size);

} // namespace zul
