#pragma once
#include "asn1/asn_node.h"
#include "cms/content/octet_content.h"
#include "x509/input/der_source.h"

namespace zul {

// RecipientFields point into the list of a KeyTransRecipientInfo (RFC 5652, 6.2.1); a field that is missing
// is null, and all are for another kind of RecipientInfo.
struct RecipientFields {
    const asn_Node* version = nullptr;
    const asn_Node* identifier = nullptr; // IssuerAndSerialNumber, or [0]
    const asn_Node* keyEncryptionAlgorithm = nullptr;
    const asn_Node* encryptedKey = nullptr; // OCTET STRING
};
RecipientFields recipient_fields(const asn_Node* recipientInfo);

// EnvelopedData reads a message (RFC 5652, 6) that a file or text holds, in a ContentInfo or bare, BER or
// DER. The encrypted content is read where it stands; the rest is at most 8 MiB.
class EnvelopedData {
  public:
    [[nodiscard]] int open(const char* fileOrText); // 0 or a positive code with a text

    int64_t version() const { return version_; }
    const asn_Node* recipients() const { return recipientInfos_.head(); } // SET OF RecipientInfo
    int recipient_count() const { return recipientCount_; }               // of every kind
    const asn_Node* content_type() const { return contentType_.head(); }  // may be null
    const asn_Node* content_encryption_algorithm() const { return contentAlgorithm_.head(); } // likewise
    bool has_content() const { return content_.is_open(); }
    OctetContent& content() { return content_; }

  private:
    [[nodiscard]] int read_message();
    [[nodiscard]] int read_fields(ByteStream& stream, const AsnScope& scope);
    [[nodiscard]] int read_encrypted_content_info(ByteStream& stream, const AsnScope& scope);

    DerSource source_;
    int64_t version_ = 0;
    AsnList recipientInfos_, contentType_, contentAlgorithm_;
    int recipientCount_ = 0;
    OctetContent content_;
};

} // namespace zul
