#pragma once
#include "cert/path/crl_listing.h"
#include "cert/path/revocation.h"

namespace zul {

// RevocationGap tells why evidence does not tell the status of a certificate. What came closer to telling it
// stands later.
enum class RevocationGap : uint8_t {
    noEvidence,
    unreadable,
    scope,
    noSigner,
    signature,
    signerStatus,
    date,
    reasons,
    status,
    unknownCritical,
    malformed,
    work,
};

// RevocationFinding is what the evidence looked at so far tells of one certificate.
struct RevocationFinding {
    RevocationAnswer answer;
    RevocationGap gap = RevocationGap::noEvidence;
    int64_t goodAt = INT64_MIN; // when the newest evidence that says good was made
    // The newest hold that an OCSP response tells. It counts if nothing newer says good.
    bool isOnHold = false;
    int64_t heldAt = INT64_MIN; // when the response was made
    int64_t heldSince = 0;

    bool is_revoked() const { return answer.state == RevocationState::revoked; }
    bool is_good() const { return answer.state == RevocationState::good; }
    void note(RevocationGap found) {
        if (found > gap)
            gap = found;
    }
    void add_good(bool isByOcsp, int64_t at) {
        if (at > goodAt)
            goodAt = at;
        if (answer.state == RevocationState::unknown)
            answer = {RevocationState::good, isByOcsp, -1, 0, 0, ""};
    }
    void add_hold(int64_t at, int64_t since) {
        if (isOnHold && at <= heldAt)
            return;
        isOnHold = true;
        heldAt = at;
        heldSince = since;
    }
    void settle_hold() {
        if (isOnHold && heldAt >= goodAt)
            add_revoked(true, kReasonCertificateHold, heldSince);
    }
    void add_revoked(bool isByOcsp, int reason, int64_t revokedAt) {
        if (!is_revoked())
            answer = {RevocationState::revoked, isByOcsp, reason, revokedAt, 0, ""};
    }
};

// signer_state gives the status of a signer of evidence and of the certificates above it: revoked or unknown
// if one of them is. Those of the path of the certificate that is asked for, and those that are being asked
// for already (the signer of a CRL may have to be looked up in that very CRL), count as good.
RevocationState signer_state(const RevocationContext& context, const PathLink& signer,
                             const RevocationProgress& progress);

} // namespace zul
