#pragma once
#include "ec/curve.h"

// ECDSA (FIPS 186-5, 6) with secret numbers by RFC 6979.
namespace zul {

constexpr size_t kEcdsaExtra = 32;

// ecdsa_sign signs a digest of the algorithm with the private key d (valid, as
// ec_operations().scalar_is_valid has it): r || s. extra is kEcdsaExtra random bytes that enter the secret
// number (RFC 6979, 3.6), so that a fault in one of two signatures of the same digest tells nothing; null for
// the deterministic form. 0 or BAD_FLAG_ERROR.
[[nodiscard]] int ecdsa_sign(uint8_t* rs, EcCurve curve, const uint8_t* d, const uint8_t* digest, size_t size,
                             int digestAlgorithm, const uint8_t* extra);

// ecdsa_verify takes a valid point.
[[nodiscard]] bool ecdsa_verify(const uint8_t* rs, EcCurve curve, const uint8_t* point, const uint8_t* digest,
                                size_t size);

// ec_make_private draws a private key (FIPS 186-5, A.2.2): a generator that fails ends the process.
void ec_make_private(uint8_t* d, EcCurve curve);

} // namespace zul
