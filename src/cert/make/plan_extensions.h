#pragma once
#include "asn1/der_reader.h"
#include "cert/make/certificate_plan.h"

namespace zul {

// plan_extensions makes the Extensions of a plan that is complete, in which it leaves none. The identifiers
// are left out if they are empty. The result is empty if there are no extensions.
AsnList plan_extensions(CertificatePlan& plan, const SecretBuffer& subjectKeyIdentifier,
                        const SecretBuffer& authorityKeyIdentifier);

// key_identifier gives the SHA-1 digest of the key in a SubjectPublicKeyInfo (RFC 5280, 4.2.1.2, method 1),
// which names a key and protects nothing.
SecretBuffer key_identifier(DerView publicKeyInfo);

} // namespace zul
