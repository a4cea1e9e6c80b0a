#pragma once
#include <cstddef>
#include <cstdint>

#include "asn1/asn_node.h"
#include "x509/fields/subject_public_key.h"

namespace zul {

// dsa_verify checks the signature r, s (FIPS 186-4, 4.7) of a digest: 0 if it verifies, else -1. Both numbers
// are big-endian.
[[nodiscard]] int dsa_verify(const DsaPublicKey& key, const uint8_t* digest, size_t digestLen,
                             const uint8_t* r, size_t rLen, const uint8_t* s, size_t sLen);

// DsaCheck compares the signature of a certificate or message (RFC 3279, 2.2.2) with digests.
class DsaCheck {
  public:
    [[nodiscard]] int open_key(const asn_Node* subjectPublicKeyInfo); // 0 or a positive code with a text
    // open_signature gives false for anything but a Dss-Sig-Value in DER: a signature has one form.
    bool open_signature(const uint8_t* bytes, size_t size);
    bool is_open() const { return r_ != nullptr; }
    bool matches(const uint8_t* digest, size_t size) const; // after both have succeeded

  private:
    DsaPublicKey key_;
    AsnList value_;
    const asn_Node *r_ = nullptr, *s_ = nullptr;
};

} // namespace zul
