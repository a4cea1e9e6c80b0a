#include "cms/message/certificate_identifier.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "hash/digest.h"
#include "x509/fields/certificate_extensions.h"

namespace zul {
namespace {

// IdentifierHash digests one octet for the kind of an identifier and then the identifier's octets.
class IdentifierHash {
  public:
    enum class Kind : uint8_t { issuerAndSerial, subjectKey };

    explicit IdentifierHash(Kind kind) {
        digest_init(context_, kDigestSha256);
        add(&kind, sizeof kind);
    }
    void add(const void* data, size_t size) { digest_update(context_, data, size); }
    IdentifierDigest end() {
        IdentifierDigest digest;
        digest_final(context_, digest.octets);
        return digest;
    }

  private:
    DigestContext context_;
};

// An INTEGER without octets that only repeat its sign, so that encodings that are not DER compare equal.
struct Octets {
    const uint8_t* data;
    size_t size;

    explicit Octets(const asn_Node* integer)
        : data(integer->data), size(integer->data == nullptr ? 0 : integer->length) {
        while (size > 1 && (data[0] == 0 || data[0] == 0xFF) && ((data[0] ^ data[1]) & 0x80) == 0) {
            data++;
            size--;
        }
    }
};

// name_octets gives a Name in DER, or as it stands if it cannot be converted.
SecretBuffer name_octets(const asn_Node* name) {
    const AsnList der = asn_ToDer(asn_CopyElement(name));
    return der ? asn_Encode(der) : asn_EncodeElement(name);
}

IdentifierDigest issuer_and_serial_digest(const asn_Node* issuer, const asn_Node* serialNumber) {
    if (issuer == nullptr || serialNumber == nullptr)
        return {};
    const Octets number(serialNumber);
    const SecretBuffer name = name_octets(issuer);
    if (number.size == 0 || name.empty())
        return {};
    IdentifierHash hash(IdentifierHash::Kind::issuerAndSerial);
    hash.add(&number.size, sizeof number.size);
    hash.add(number.data, number.size);
    hash.add(name.data(), name.size());
    return hash.end();
}

// key_digest takes the octets of a [0] in one piece or in segments. An explicit tag around an OCTET STRING
// looks like segments and is accepted too.
IdentifierDigest key_digest(const asn_Node* identifier) {
    IdentifierHash hash(IdentifierHash::Kind::subjectKey);
    bool isEmpty = true;
    const asn_Node* end = asn_ElementEnd(identifier);
    for (const asn_Node* part = identifier; part != end; part = part->next) {
        if (part->data == nullptr)
            continue;
        if (part != identifier && !asn_is(part, kAsnUniversal, kAsnOctetString))
            return {};
        hash.add(part->data, part->length);
        isEmpty = false;
    }
    return isEmpty ? IdentifierDigest() : hash.end();
}

IdentifierDigest key_digest(const SecretBuffer& octets) {
    if (octets.empty())
        return {};
    IdentifierHash hash(IdentifierHash::Kind::subjectKey);
    hash.add(octets.data(), octets.size());
    return hash.end();
}

} // namespace

IdentifierDigest identifier_digest(const asn_Node* identifier) {
    if (asn_is(identifier, kAsnConstructed, kAsnSequence)) {
        AsnChildren children(identifier);
        const asn_Node* issuer = children.take_sequence();
        return issuer_and_serial_digest(issuer, children.take_integer());
    }
    if (asn_is(identifier, kAsnContext, 0) || asn_is(identifier, kAsnExplicit, 0))
        return key_digest(identifier);
    return {};
}

CertificateIdentifiers::CertificateIdentifiers(const CertificateFields& certificate)
    : issuerAndSerial(issuer_and_serial_digest(certificate.issuer, certificate.serialNumber)),
      subjectKey(key_digest(subject_key_identifier(certificate))) {}

} // namespace zul
