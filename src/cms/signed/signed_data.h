#pragma once
#include "asn1/asn_node.h"
#include "cms/content/octet_content.h"
#include "cms/signed/signer_info.h"
#include "x509/input/certificate_bundle.h"
#include "x509/input/der_source.h"

namespace zul {

// SignedData reads a message (RFC 5652, 5) that a file or text holds, in a ContentInfo or bare, BER or DER.
// Content and certificates are read where they stand; the rest is at most 8 MiB.
class SignedData {
  public:
    // open gives 0 or a positive code with a text.
    [[nodiscard]] int open(const char* fileOrText);
    // require_data demands version 1 and a content of type "data", there or not: 0 or a positive code with a
    // text.
    [[nodiscard]] int require_data() const;

    int64_t version() const { return version_; }
    const asn_Node* content_type() const { return contentType_.head(); } // an OBJECT IDENTIFIER
    // has_content is true for any content; that of another type than "data" may be no OCTET STRING, and
    // content() is not open then.
    bool has_content() const { return hasContent_; }
    OctetContent& content() { return content_; }
    // certificates may hold other forms of certificates than X.509; count() and certificate() pass over them.
    const CertificateBundle& certificates() const { return certificates_; }
    int signer_count() const { return signerCount_; }
    // signer gives the n-th from 0, with all fields null past the last. Ascending order is fastest.
    SignerFields signer(int n) const;

  private:
    [[nodiscard]] int read_message();
    [[nodiscard]] int read_fields(ByteStream& stream, const AsnScope& scope);
    [[nodiscard]] int read_content_info(ByteStream& stream, AsnScope scope);
    [[nodiscard]] int read_content(ByteStream& stream, const AsnScope& scope);
    [[nodiscard]] int read_signers(ByteStream& stream, const AsnScope& scope);

    DerSource source_;
    int64_t version_ = 0;
    AsnList contentType_, signerInfos_;
    bool hasContent_ = false;
    OctetContent content_;
    CertificateBundle certificates_;
    int signerCount_ = 0;
    mutable int lastSigner_ = 0; // its node is kept, since there may be a million signers
    mutable const asn_Node* lastNode_ = nullptr;
};

} // namespace zul
