#pragma once
#include "cert/fields/signed_view.h"

// SubjectPublicKeyInfo of every kind of key, as views (RFC 5280, 4.1.2.7; RFC 3279; RFC 4055; RFC 5480).
namespace zul {

struct PublicKeyView {
    AlgorithmView algorithm;
    std::string_view name; // of the algorithm, empty if it is not known
    DerView key;           // the bits
    unsigned unusedBits = 0;
};
[[nodiscard]] bool public_key_view_read(DerView publicKeyInfo, PublicKeyView& key);

// public_key_bits gives the size of a key: of the modulus, the prime, or the field of the curve. 0 if it is
// not known.
int public_key_bits(const PublicKeyView& key);
// public_key_curve gives the object identifier of a named curve, empty without one.
DerView public_key_curve(const PublicKeyView& key);

bool public_key_is_ec(const PublicKeyView& key);
bool public_key_is_rsa(const PublicKeyView& key);

// positive_bits counts the bits of the content of an INTEGER, 0 for a negative one.
int positive_bits(DerView integer);

} // namespace zul
