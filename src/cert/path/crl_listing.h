#pragma once
#include "cert/make/crl_reason.h"
#include "cert/path/evidence.h"
#include "cert/path/path_budget.h"

// Looking up a certificate among the entries of a CRL (RFC 5280, 5.3 and 6.3.3 (i), (j)).
namespace zul {

// CrlListing is what a CRL says of one certificate.
struct CrlListing {
    bool isListed = false;
    int reason = -1; // CRLReason, -1 if it is not given
    int64_t revokedAt = 0;

    bool is_revoked() const { return isListed && reason != kReasonRemoveFromCrl; }
    bool is_on_hold() const { return isListed && reason == kReasonCertificateHold; }
};

// crl_find looks for a certificate, of an issuer with that digest. The first time it reads all entries and
// tells the record how they are; up to a malformed one they are searched. False if the budget is spent.
[[nodiscard]] bool crl_find(CrlRecord& crl, DerView serialNumber, const NameDigest& issuer,
                            CrlListing& listing, PathBudget& budget);

} // namespace zul
