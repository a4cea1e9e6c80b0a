#pragma once
#include "bignum/mt.h"

namespace zul {

// What a key record holds.
enum RsaKeyPart : uint32_t {
    kRsaPublic = 1,  // n, e
    kRsaPrivate = 2, // d
    kRsaCrt = 4,     // p, q, dP, dQ, qInv
};

// RsaKey is a public or private key (RFC 8017, 3); its values are wiped at its end.
struct RsaKey {
    uint32_t flags = 0;
    size_t bits = 0; // of the modulus
    BigInt n, e, d, p, q, dP, dQ, qInv;

    size_t bytes() const { return (bits + 7) / 8; }
};

} // namespace zul
