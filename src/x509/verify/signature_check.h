#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"
#include "x509/verify/dsa.h"

namespace zul {

// rsa_signer_key takes the RSA key out of a SubjectPublicKeyInfo: 0 or a positive code with a text.
[[nodiscard]] int rsa_signer_key(const asn_Node* subjectPublicKeyInfo, RsaKey& key);

// SignatureCheck compares a signature with the digest of bytes: RSA (RFC 8017, 8.2.2) with any digest, or DSA
// (FIPS 186-4) with SHA-1.
class SignatureCheck {
  public:
    static constexpr int kNever = -2; // the signature matches no bytes at all

    // prepare takes the key and the two elements, which must outlive the check: 0, kNever, or a positive code
    // with a text for an unsupported key or algorithm.
    [[nodiscard]] int prepare(const asn_Node* subjectPublicKeyInfo, const asn_Node* signatureAlgorithm,
                              const asn_Node* signatureValue);

    // After prepare, digest_algorithm tells how to digest the bytes, and matches compares the signature with
    // their digest.
    int digest_algorithm() const { return digest_; }
    bool matches(const uint8_t* digest, size_t length) const;

  private:
    [[nodiscard]] int prepare_rsa(const asn_Node* subjectPublicKeyInfo, const char* algorithm);
    [[nodiscard]] int prepare_dsa(const asn_Node* subjectPublicKeyInfo);
    [[nodiscard]] int open_rsa(const RsaKey& key);

    int digest_ = 0;
    const uint8_t* signature_ = nullptr;
    size_t signatureLength_ = 0;
    SecretBuffer block_; // the encoded message of an RSA signature
    DsaCheck dsa_;
};

} // namespace zul
