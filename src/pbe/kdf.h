#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/memory.h"

// Key derivation from passwords. Iteration counts below 1 count as 1. hashAlg is a ZUL_HASH_ algorithm.
namespace zul {

// kMaxForeignIterations is the largest iteration count that a file may ask for: some seconds of computing,
// the best part of a minute with MD2.
constexpr uint32_t kMaxForeignIterations = 10'000'000;

// pbkdf1 (RFC 8018, 5.1) writes outLen bytes, at most the digest's length.
void pbkdf1(uint8_t* out, size_t outLen, int hashAlg, const void* password, size_t passwordLen,
            const uint8_t* salt, size_t saltLen, uint32_t iterations);

// pbkdf2 (RFC 8018, 5.2) with HMAC over hashAlg, any but MD2.
void pbkdf2(uint8_t* out, size_t outLen, int hashAlg, const void* password, size_t passwordLen,
            const uint8_t* salt, size_t saltLen, uint32_t iterations);

// pkcs12_kdf (RFC 7292, appendix B.2) over the password bytes as given, which the schemes of PKCS #12 want in
// the form of pkcs12_password. Password and salt together are at most 3/4 of kMaxAllocation.
enum class Pkcs12Purpose : uint8_t { key = 1, iv = 2, mac = 3 };
void pkcs12_kdf(uint8_t* out, size_t outLen, int hashAlg, Pkcs12Purpose purpose, const void* password,
                size_t passwordLen, const uint8_t* salt, size_t saltLen, uint32_t iterations);

// pkcs12_password gives a Latin-1 password as BMPString characters with a NUL (RFC 7292, appendix B.1).
SecretBuffer pkcs12_password(const void* password, size_t passwordLen);

} // namespace zul
