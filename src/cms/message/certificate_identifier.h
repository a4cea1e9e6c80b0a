#pragma once
#include <compare>

#include "asn1/asn_node.h"
#include "x509/fields/certificate.h"

namespace zul {

// IdentifierDigest stands for a SignerIdentifier or RecipientIdentifier (RFC 5652, 5.3 and 6.2.1): those that
// say the same, in whatever encoding, have the same. It is compared in no time, however long they are.
struct IdentifierDigest {
    uint8_t octets[32] = {}; // of zeros only: names nothing

    explicit operator bool() const { return *this != IdentifierDigest(); }
    auto operator<=>(const IdentifierDigest&) const = default;
};

// identifier_digest takes an IssuerAndSerialNumber or [0] subjectKeyIdentifier; anything else names nothing.
IdentifierDigest identifier_digest(const asn_Node* identifier);

// CertificateIdentifiers are the two identifiers of a certificate, those that it has.
struct CertificateIdentifiers {
    explicit CertificateIdentifiers(const CertificateFields& certificate);

    bool include(const IdentifierDigest& digest) const {
        return digest && (digest == issuerAndSerial || digest == subjectKey);
    }

    IdentifierDigest issuerAndSerial, subjectKey;
};

} // namespace zul
