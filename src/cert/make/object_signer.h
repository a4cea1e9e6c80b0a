#pragma once
#include "asn1/asn_node.h"
#include "key/key.h"
#include "key/signature_choice.h"

namespace zul {

// ObjectSigner signs certificates, requests and CRLs.
class ObjectSigner {
  public:
    // open reads a private key as key_input does; choose then reads an algorithm as SIG_ names it. Null or
    // empty: as signature_choose, but PKCS #1 v1.5 with SHA-256 for keys of the kind "rsa", which every
    // verifier of certificates knows. 0 or a code with a text.
    [[nodiscard]] int open(const char* keyOrFile);
    [[nodiscard]] int choose(const char* algorithm);

    // become_like gives an RSA key the kind and the rules of a public key of the same numbers: certificates
    // of RSA-PSS keys often name their key RSA. 0 or NO_MATCH_ERROR with a text.
    [[nodiscard]] int become_like(const Key& publicKey);

    const Key& key() const { return key_; }
    // identifier is the AlgorithmIdentifier for what is to be signed.
    AsnList identifier() const { return asn_CopyList(identifier_.head()); }

    // sign makes SEQUENCE { toBeSigned, identifier, signature }: 0 or a code with a text.
    [[nodiscard]] int sign(AsnList& object, AsnList toBeSigned) const;

  private:
    Key key_;
    SignatureAlgorithm algorithm_;
    AsnList identifier_;
};

} // namespace zul
