#include "cert/path/path_find.h"

#include <climits>

#include "cert/path/crl_signer_paths.h"
#include "cert/path/path_search.h"
#include "cert/path/path_validator.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr int kMostExplanations = 50; // chains that cannot be valid, looked at to tell what is wrong

// BestPath validates chains and keeps the best outcome.
class BestPath final : public ChainVisitor {
  public:
    BestPath(PathValidator& validator, PathSummary& summary, bool anchorIsCertificate)
        : validator_(validator), summary_(summary), anchorIsCertificate_(anchorIsCertificate) {}

    // leave_after ends the search after so many chains.
    void leave_after(int chains) { left_ = chains; }

    bool visit(CertRecord& anchor, const Array<CertRecord*>& chain) override {
        PathOutcome outcome;
        make_path(path_, anchor, chain, anchorIsCertificate_);
        validator_.run(path_, outcome);
        return keep(std::move(outcome));
    }

    // A chain that ends without an anchor.
    bool visit_end(const Array<CertRecord*>& chain) override {
        PathOutcome outcome;
        for (size_t i = chain.size(); i-- > 0;) {
            outcome.records.add(chain[i]);
            outcome.steps.add({});
        }
        outcome.code = err_fail(ISSUER_ERROR, "No certificate of its issuer leads to a trusted certificate");
        outcome.failedCheck = PathCheck::issuer;
        take_error_text(outcome.text);
        return keep(std::move(outcome));
    }

  private:
    bool keep(PathOutcome outcome) {
        summary_.tried += outcome.hasAnchor ? 1 : 0;
        if (!hasBest_ || outcome.is_better(summary_.best))
            summary_.best = std::move(outcome);
        hasBest_ = true;
        return summary_.best.code == 0 || --left_ == 0;
    }

    PathValidator& validator_;
    PathSummary& summary_;
    const bool anchorIsCertificate_;
    Array<PathStep> path_;
    bool hasBest_ = false;
    int left_ = INT_MAX;
};

} // namespace

void path_find(PathSummary& summary, CertPool& pool, CertRecord& endEntity, Evidence* evidence,
               const PathConditions& conditions) {
    PathBudget budget;
    CrlSignerPaths signers(pool, conditions);
    PathValidator validator(conditions, budget, evidence, &signers);
    BestPath visitor(validator, summary, conditions.anchorIsCertificate);
    PathSearch search(pool, conditions, budget, visitor);
    summary.best.code = ISSUER_ERROR;
    search.run(endEntity, false);
    summary.isCutShort = summary.best.code != 0 && budget.is_spent();
    if (summary.tried == 0 && !summary.isCutShort) {
        visitor.leave_after(kMostExplanations);
        search.run(endEntity, true);
    }
    summary.signatures = budget.signatures();
    summary.code = summary.isCutShort ? OUT_OF_RANGE_ERROR : summary.best.code;
}

} // namespace zul
