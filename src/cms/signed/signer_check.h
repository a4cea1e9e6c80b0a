#pragma once
#include "cms/signed/signer_info.h"
#include "frame/memory.h"
#include "x509/verify/dsa.h"

namespace zul {

// SignerCheck is the signature of a SignerInfo made ready to be compared with digests: RSA (RFC 8017, 8.2.2)
// with any digest, or DSA (FIPS 186-4) with SHA-1.
class SignerCheck {
  public:
    // prepare takes the signer's key and digest algorithm: 0 or a positive code with a text, SIGNATURE_ERROR
    // if it cannot be the signature of any such digest.
    [[nodiscard]] int prepare(const asn_Node* subjectPublicKeyInfo, const SignerFields& signer, int digest);

    bool matches(const uint8_t* digest, size_t length) const;
    // recovered is the digest inside an RSA signature; empty for DSA.
    const SecretBuffer& recovered() const { return recovered_; }

  private:
    [[nodiscard]] int prepare_rsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature,
                                  int digest);
    [[nodiscard]] int prepare_dsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature);

    SecretBuffer recovered_;
    DsaCheck dsa_;
};

} // namespace zul
