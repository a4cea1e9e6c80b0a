#pragma once
#include "cert/fields/certificate_view.h"

// The values of the extensions of a certificate that paths depend on (RFC 5280, 4.2), as views.
namespace zul {

// Bits of keyUsage (RFC 5280, 4.2.1.3).
constexpr uint32_t kUsageDigitalSignature = 1U << 0, kUsageNonRepudiation = 1U << 1,
                   kUsageKeyEncipherment = 1U << 2, kUsageDataEncipherment = 1U << 3,
                   kUsageKeyAgreement = 1U << 4, kUsageKeyCertSign = 1U << 5, kUsageCrlSign = 1U << 6,
                   kUsageEncipherOnly = 1U << 7, kUsageDecipherOnly = 1U << 8;

struct AuthorityKeyId {
    DerView keyIdentifier, issuerNames, serialNumber; // a missing one is empty
};
[[nodiscard]] bool authority_key_id_read(DerView value, AuthorityKeyId& id);

struct CertExtensions {
    bool hasBasicConstraints = false, isCa = false;
    int pathLength = -1; // -1: without limit
    bool hasKeyUsage = false;
    uint32_t keyUsage = 0;
    // A view with null data stands for an extension that is missing.
    DerView subjectKeyIdentifier;
    AuthorityKeyId authorityKeyIdentifier;
    DerView extKeyUsage; // content of SEQUENCE OF KeyPurposeId
    bool extKeyUsageIsCritical = false;
    DerView subjectAltName; // content of GeneralNames
    bool subjectAltNameIsCritical = false;
    bool hasNameConstraints = false;
    DerView permitted, excluded;      // contents of GeneralSubtrees
    DerView policies, policyMappings; // contents of the SEQUENCEs OF
    int requireExplicitPolicy = -1, inhibitPolicyMapping = -1, inhibitAnyPolicy = -1;
    DerView crlDistributionPoints, freshestCrl; // contents of the SEQUENCEs OF DistributionPoint
    bool ocspNoCheck = false;
    DerView unknownCritical; // the type of the first critical extension that is not known here

    bool allows(uint32_t usage) const { return !hasKeyUsage || (keyUsage & usage) != 0; }
};

// cert_extensions_read reads the extensions that it knows: 0, or BAD_FORMAT_ERROR with a text that names the
// first one that is malformed.
[[nodiscard]] int cert_extensions_read(const CertificateView& certificate, CertExtensions& extensions);

// oid_list_is_valid tells whether a content holds one OBJECT IDENTIFIER at least and nothing else;
// oid_list_has looks for one.
[[nodiscard]] bool oid_list_is_valid(DerView content);
[[nodiscard]] bool oid_list_has(DerView content, std::string_view oid);

} // namespace zul
