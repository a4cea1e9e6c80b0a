#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

namespace zul {

// The extensions of a new certificate. A member that is empty, 0 or false adds none.
struct ExtensionChoice {
    bool basicConstraints, isCa;
    uint32_t keyUsageFlags;
    const SecretBuffer& authorityKeyIdentifier;
    const SecretBuffer& subjectKeyIdentifier;
    const SecretBuffer& emailAddress;
};
// build_extensions makes the [3] of a certificate (RFC 5280, 4.2). It is empty if there are no extensions.
AsnList build_extensions(const ExtensionChoice& choice);

} // namespace zul
