#pragma once
#include "cert/names/name_match.h"
#include "cert/path/evidence.h"
#include "cert/path/path_budget.h"

// Which CRLs tell the status of a certificate, and for which reasons (RFC 5280, 6.3.3 (b) and (d)).
namespace zul {

// CrlScope holds what a certificate says of its CRLs: its issuer and its distribution points.
class CrlScope {
  public:
    // read takes a certificate and its extensions. False if a distribution point is malformed, or if the
    // budget is spent: those read before it count.
    [[nodiscard]] bool read(const CertificateView& certificate, const CertExtensions& extensions,
                            PathBudget& budget);

    // issuers gives the names of those whose CRLs may tell the status, the certificate's issuer first.
    const Array<NameDigest>& issuers() const { return issuers_; }
    const NameDigest& certificate_issuer() const { return issuers_[0]; }

    // reasons gives the reasons for which a CRL, complete or delta, by one of the issuers tells the status: 0
    // if it does not, or if the budget is spent.
    uint32_t reasons(const CrlRecord& crl, PathBudget& budget) const;

  private:
    struct Point {
        Array<NameDigest> names, crlIssuers;
        uint32_t reasons = kAllReasons;
        bool hasCrlIssuer = false;
    };

    bool point_covers(const Point& point, const CrlRecord& crl, const Array<NameDigest>& crlNames,
                      PathBudget& budget) const;

    bool isCa_ = false;
    Array<NameDigest> issuers_;
    Array<Point> points_;
    size_t crlIssuers_ = 0; // of all points
    Point issuerPoint_;     // stands for the CRLs of the issuer that no point names
};

} // namespace zul
