#pragma once
#include <compare>

#include "asn1/asn_node.h"
#include "x509/fields/certificate.h"

namespace zul {

// IdentifierDigest stands for a SignerIdentifier or RecipientIdentifier (RFC 5652, 5.3 and 6.2.1): equal
// identifiers have equal digests, whatever their encoding. Long identifiers cost no more to compare.
struct IdentifierDigest {
    uint8_t octets[32] = {}; // all zero: no certificate

    explicit operator bool() const { return *this != IdentifierDigest(); }
    auto operator<=>(const IdentifierDigest&) const = default;
};

// identifier_digest takes an IssuerAndSerialNumber or [0] subjectKeyIdentifier; anything else gives zeros.
IdentifierDigest identifier_digest(const asn_Node* identifier);

// CertificateIdentifiers are the identifiers of a certificate. One that it lacks is zero.
struct CertificateIdentifiers {
    explicit CertificateIdentifiers(const CertificateFields& certificate);

    bool include(const IdentifierDigest& digest) const {
        return digest && (digest == issuerAndSerial || digest == subjectKey);
    }

    IdentifierDigest issuerAndSerial, subjectKey;
};

} // namespace zul
