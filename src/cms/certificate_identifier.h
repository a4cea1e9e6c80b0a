#pragma once
#include "asn1/asn_node.h"
#include "x509/certificate.h"

namespace zul {

// identifier_names tells whether a SignerIdentifier or RecipientIdentifier (RFC 5652, 5.3 and 6.2.1), an
// IssuerAndSerialNumber or [0] subjectKeyIdentifier, is that of a certificate. null names nothing.
bool identifier_names(const asn_Node* identifier, const CertificateFields& certificate);

} // namespace zul
