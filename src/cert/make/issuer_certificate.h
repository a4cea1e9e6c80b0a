#pragma once
#include "cert/fields/cert_extensions.h"
#include "cert/input/object_list.h"
#include "cert/make/object_signer.h"

namespace zul {

// IssuerCertificate is the certificate of an authority that issues certificates or CRLs.
class IssuerCertificate {
  public:
    // open reads the first object of a file or text: 0, the codes of ObjectList::add, BAD_FORMAT_ERROR (no
    // certificate, or a malformed one) or those of key_read_structure for its key, with a text.
    [[nodiscard]] int open(const char* fileOrText);

    // check_issuer tells whether it is a certification authority's that may do what a bit of keyUsage says: 0
    // or ISSUER_ERROR with a text.
    [[nodiscard]] int check_issuer(uint32_t usage) const;
    // check_signer makes the signer's key like the certificate's, to which it has to belong: 0 or
    // NO_MATCH_ERROR with a text.
    [[nodiscard]] int check_signer(ObjectSigner& signer) const { return signer.become_like(key_); }

    const CertificateView& view() const { return view_; }
    const CertExtensions& extensions() const { return extensions_; }
    const Key& key() const { return key_; }
    AsnList name() const;                // a copy of the subject
    SecretBuffer key_identifier() const; // as the certificate has it, or computed from its key

  private:
    ObjectList list_;
    CertificateView view_;
    CertExtensions extensions_;
    Key key_;
};

// elements_of makes packed elements of DER, byte for byte; an empty list of anything else. public_key_of
// reads a SubjectPublicKeyInfo, as key_read_structure does.
AsnList elements_of(DerView encoding);
[[nodiscard]] int public_key_of(Key& key, DerView publicKeyInfo);

} // namespace zul
