#pragma once
#include "asn1/asn_node.h"

// The fields of signed objects (RFC 5280, 4.1 and 5.1; RFC 2986, 4). They point into the object's list, which
// stays the caller's. A missing field is null.
namespace zul {

bool x509_is_certificate(const asn_Node* object);
bool x509_is_request(const asn_Node* object);

struct SignedFields {
    const asn_Node* toBeSigned = nullptr;         // the first SEQUENCE of the object
    const asn_Node* signatureAlgorithm = nullptr; // the second
    const asn_Node* signatureValue = nullptr;     // its first BIT STRING
};
SignedFields signed_fields(const asn_Node* object);

struct CertificateFields : SignedFields {
    const asn_Node* version = nullptr; // the element inside [0], which should be an INTEGER
    const asn_Node* serialNumber = nullptr;
    const asn_Node* issuer = nullptr;
    const asn_Node* validity = nullptr;
    const asn_Node* notBefore = nullptr;
    const asn_Node* notAfter = nullptr;
    const asn_Node* subject = nullptr;
    const asn_Node* subjectPublicKeyInfo = nullptr;
    const asn_Node* extensions = nullptr; // [3]
};
CertificateFields certificate_fields(const asn_Node* certificate);

struct RequestFields : SignedFields {
    const asn_Node* version = nullptr;
    const asn_Node* subject = nullptr;
    const asn_Node* subjectPublicKeyInfo = nullptr;
};
RequestFields request_fields(const asn_Node* request);

// same_name compares the DER of two Names; null equals nothing.
bool same_name(const asn_Node* a, const asn_Node* b);

// certificate_version gives the version, which is 1 if the field is missing: 0, or BAD_FORMAT_ERROR with a
// text for an invalid version.
[[nodiscard]] int certificate_version(const CertificateFields& certificate, int* version);

// issuer_and_serial_number makes the SEQUENCE { issuer, serialNumber } of CMS (RFC 5652, 10.2.4); empty if
// the certificate lacks one of them.
AsnList issuer_and_serial_number(const CertificateFields& certificate);

// validity_state gives 0 if the present time lies within the validity, -1 if it does not, or BAD_FORMAT_ERROR
// with a text if the validity or one of its times is missing or invalid.
[[nodiscard]] int validity_state(const CertificateFields& certificate);

} // namespace zul
