#pragma once
#include <cstddef>
#include <cstdint>

// EMSA-PSS (RFC 8017, 9.1) with MGF1 and the trailer BC.
namespace zul {

struct PssEncoding {
    size_t bits; // emBits: one less than those of the modulus
    int digest, mgfDigest;
    size_t saltSize;
    bool mayBeLonger = false; // the salt of an encoding that is verified

    size_t bytes() const { return (bits + 7) / 8; }
};

// pss_salt_room gives the longest salt that the encoding has room for; false if there is none even for an
// empty one.
[[nodiscard]] bool pss_salt_room(const PssEncoding& encoding, size_t* room);

// pss_encode writes encoding.bytes() bytes for a digest and a salt that fits.
void pss_encode(uint8_t* out, const PssEncoding& encoding, const uint8_t* digest, const uint8_t* salt);

// pss_verify takes encoding.bytes() bytes. The salt has to have exactly the given length, or at least that if
// it may be longer.
[[nodiscard]] bool pss_verify(const uint8_t* encoded, const PssEncoding& encoding, const uint8_t* digest);

} // namespace zul
