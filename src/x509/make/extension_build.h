#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

namespace zul {

// The extensions of a new certificate; what is empty or 0 is left out.
struct ExtensionChoice {
    bool basicConstraints, isCa;
    uint32_t keyUsageFlags;
    const SecretBuffer& authorityKeyIdentifier;
    const SecretBuffer& subjectKeyIdentifier;
    const SecretBuffer& emailAddress;
};
// build_extensions makes the [3] of a certificate (RFC 5280, 4.2), nothing if there is none.
AsnList build_extensions(const ExtensionChoice& choice);

} // namespace zul
