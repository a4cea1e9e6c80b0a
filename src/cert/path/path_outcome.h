#pragma once
#include "cert/path/cert_pool.h"
#include "cert/path/path_link.h"
#include "cert/path/revocation.h"
#include "frame/array.h"

namespace zul {

// PathStep is a place of a path: its first one is the anchor. Links point to the steps before them, so the
// steps stay where they are.
struct PathStep {
    CertRecord* record = nullptr;
    PathLink link;
    SignerKey inherited; // a DSA key with the parameters of its issuer's key
};

// make_path fills steps with an anchor and, from the last to the first, the certificates of a chain that
// begins with the end entity. A key that cannot be read is null in its link. Without anchorIsCertificate the
// first link is a name and a key alone.
void make_path(Array<PathStep>& steps, CertRecord& anchor, const Array<CertRecord*>& chain,
               bool anchorIsCertificate);

// What is checked of a certificate, in this order.
enum class PathCheck : uint8_t {
    structure,
    issuer, // there is an issuer's certificate, up to an anchor
    signature,
    validity,
    criticalExtensions,
    basicConstraints,
    pathLength,
    keyUsage,
    purpose,
    webRules,
    nameConstraints,
    policies,
    subjectName,
    revocation,
};

struct StepOutcome {
    uint32_t passed = 0; // bits, by PathCheck
    bool hasStatus = false;
    RevocationAnswer status;

    void pass(PathCheck check) { passed |= 1U << static_cast<unsigned>(check); }
    bool has_passed(PathCheck check) const { return (passed >> static_cast<unsigned>(check) & 1) != 0; }
};

// PathOutcome tells what the validation of one path has found.
struct PathOutcome {
    Array<CertRecord*> records; // from the anchor to the end entity
    Array<StepOutcome> steps;   // of the same certificates
    bool hasAnchor = false;     // otherwise the first certificate has no issuer

    int code = 0; // 0: the path is valid
    size_t failedStep = 0;
    PathCheck failedCheck = PathCheck::structure;
    SecretBuffer text; // why

    // The user-constrained-policy-set, as content octets, and whether it is known: validation came to its
    // end.
    bool hasPolicies = false;
    Array<DerView> policies;

    // is_better tells whether a path got further than another.
    bool is_better(const PathOutcome& other) const;
};

} // namespace zul
