#pragma once
#include "cert/path/path_outcome.h"
#include "cert/path/path_search.h"

namespace zul {

// CrlSignerPaths finds the certificates of CRL issuers in the pool that paths are made of.
class CrlSignerPaths final : public CrlSigners {
  public:
    CrlSignerPaths(const CertPool& pool, const PathConditions& conditions);

    const PathLink* candidate(DerView name, DerView keyIdentifier, const PathLink& anchor, size_t n,
                              PathBudget& budget) override;

  private:
    // The path of one certificate to one anchor, empty if there is none.
    struct Found {
        const CertRecord* record;
        const uint8_t* anchor; // where its key stands
        Array<PathStep> path;
    };

    const PathLink* link_of(CertRecord& record, DerView anchor, PathBudget& budget);

    const CertPool& pool_;
    PathConditions conditions_; // the time, and nothing that is about the end entity
    Array<Found> found_;
};

} // namespace zul
