#pragma once
#include "cert/path/path_link.h"

// The revocation status of the certificates of a path, from CRLs (RFC 5280, 6.3) and OCSP responses (RFC
// 6960) that are at hand.
namespace zul {

class Evidence;

// CrlSigners finds the certificates of CRL issuers. The validator of paths implements it.
class CrlSigners {
  public:
    // candidate gives the n-th certificate (from 0) of a subject that has a valid path from this anchor at
    // the time of the check, null behind the last. Those whose subjectKeyIdentifier is keyIdentifier, which
    // may be empty, come first. keyUsage and revocation status are not looked at, and no such certificate has
    // to be a CA's. A link stays as it is until the check of the whole path ends.
    virtual const PathLink* candidate(DerView name, DerView keyIdentifier, const PathLink& anchor, size_t n,
                                      PathBudget& budget) = 0;

  protected:
    ~CrlSigners() = default;
};

enum class RevocationState : uint8_t { good, revoked, unknown };

// RevocationAnswer tells the status of one certificate.
struct RevocationAnswer {
    RevocationState state = RevocationState::unknown;
    bool isByOcsp = false; // an OCSP response told it, not a CRL
    int reason = -1;       // CRLReason of a revoked one, -1 if it is not given
    int64_t revokedAt = 0; // seconds since 1970
    // Of an unknown one: why, and an error code for it.
    int code = 0;
    const char* text = "";
};

struct RevocationContext {
    Evidence& evidence;
    CrlSigners& signers;
    int64_t time; // at which the status is asked for, in seconds since 1970
    PathBudget& budget;
};

// RevocationProgress is the list of the certificates whose status is being asked for, the last one first.
struct RevocationProgress {
    const PathLink* link;
    const RevocationProgress* outer;
};

// check_revocation gives the status of a link that is no anchor. The links above it are taken as they are:
// who asks looks at their validity and status. The thread's error text is left alone.
//
// Good needs an OCSP response, or CRLs that cover all reasons between them, within their dates. Any properly
// signed evidence makes a certificate revoked, also a response or CRL outside its dates, which proves nothing
// as good: nobody revokes for a time, and a certificate on hold counts as revoked until a later CRL with the
// same reasons omits it.
RevocationAnswer check_revocation(const RevocationContext& context, const PathLink& link,
                                  const RevocationProgress* outer = nullptr);

} // namespace zul
