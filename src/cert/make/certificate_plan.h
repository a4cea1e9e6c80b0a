#pragma once
#include <ctime>
#include <optional>

#include "asn1/asn_node.h"
#include "cert/make/time_value.h"
#include "frame/array.h"

namespace zul {

enum class PlanKind { selfSigned, issued, request };
enum class CertificateProfile { none, server, client, email, code, ca, ocsp, timestamp };

// CertificatePlan is what a description says about a certificate or request. Lists hold elements of the type
// that the extension repeats. What was not given is empty or -1.
struct CertificatePlan {
    PlanKind kind = PlanKind::selfSigned;
    AsnList subject; // relative names
    bool hasWholeSubject = false;
    AsnList alternativeNames;
    CertificateProfile profile = CertificateProfile::none;

    std::optional<bool> isCa;
    int pathLength = -1;
    std::optional<uint32_t> keyUsage; // bits as in cert_extensions.h
    AsnList extKeyUsage;              // KeyPurposeIds
    AsnList policies, policyMappings;
    int requireExplicitPolicy = -1, inhibitPolicyMapping = -1, inhibitAnyPolicy = -1;
    AsnList permitted, excluded;            // GeneralSubtrees
    AsnList crlPoints, freshestPoints;      // DistributionPoints
    AsnList authorityAccess, subjectAccess; // AccessDescriptions
    AsnList tlsFeatures;                    // INTEGERs
    std::optional<bool> noCheck;
    AsnList otherExtensions; // Extensions

    std::optional<tm> notBefore, notAfter;
    std::optional<TimeSpan> span;
    SecretBuffer serial, signature;
    Array<SecretBuffer> copied; // object identifiers of extensions, as content octets
};

// certificate_plan_read reads a description, whose keywords stand in zulcore.h, into a plan of some kind: 0
// or BAD_PARAM_ERROR with a text.
[[nodiscard]] int certificate_plan_read(CertificatePlan& plan, const char* description);

// plan_drop_repeats takes out of its lists what stands there already.
void plan_drop_repeats(CertificatePlan& plan);

} // namespace zul
