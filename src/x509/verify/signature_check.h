#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"
#include "x509/verify/dsa.h"

namespace zul {

class ByteStream;

// rsa_signer_key takes the RSA key out of a SubjectPublicKeyInfo: 0 or a positive code with a text.
int rsa_signer_key(const asn_Node* subjectPublicKeyInfo, RsaKey& key);

// SignatureCheck is a signature made ready to be compared with the bytes that it may belong to: RSA (RFC
// 8017, 8.2.2) with any digest, or DSA (FIPS 186-4) with SHA-1.
class SignatureCheck {
  public:
    static constexpr int kNever = -2; // the signature belongs to no bytes at all

    // prepare takes the key and the two elements, which have to stay: 0, kNever, or a positive code with a
    // text for a key or algorithm that does not serve.
    int prepare(const asn_Node* subjectPublicKeyInfo, const asn_Node* signatureAlgorithm,
                const asn_Node* signatureValue);

    // compare gives 0 if the signature belongs to the bytes, -1 if not, INVALID_DATA_ERROR with a text if
    // they cannot be read.
    int compare(ByteStream& stream, size_t offset, size_t size) const;

  private:
    int prepare_rsa(const asn_Node* subjectPublicKeyInfo, const char* algorithm);
    int prepare_dsa(const asn_Node* subjectPublicKeyInfo);
    int open_rsa(const RsaKey& key);

    int digest_ = 0;
    const uint8_t* signature_ = nullptr;
    size_t signatureLength_ = 0;
    SecretBuffer block_; // what an RSA signature was made of
    DsaCheck dsa_;
};

} // namespace zul
