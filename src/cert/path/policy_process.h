#pragma once
#include "cert/path/cert_pool.h"
#include "cert/path/path_conditions.h"
#include "cert/path/policy_graph.h"

namespace zul {

// PolicyProcess is what path validation does about policies (RFC 5280, 6.1; RFC 9618). Failures have a text.
class PolicyProcess {
  public:
    PolicyProcess(const PathConditions& conditions, int certificates);

    // add_certificate: 6.1.3 (d) to (f). 0, NO_MATCH_ERROR, or the codes of PolicyGraph.
    [[nodiscard]] int add_certificate(const CertRecord& record, bool isLast, PathBudget& budget);
    // prepare: 6.1.4 (a), (b), (h) to (j). 0 or the codes of PolicyGraph.
    [[nodiscard]] int prepare(const CertRecord& record, PathBudget& budget);
    // finish: 6.1.5 (a), (b), (g), with the user-constrained-policy-set. 0 or NO_MATCH_ERROR.
    [[nodiscard]] int finish(const CertRecord& last, Array<DerView>& policies);

  private:
    bool is_wanted(DerView policy) const;

    const PathConditions& conditions_;
    PolicyGraph graph_;
    int explicitPolicy_, inhibitAnyPolicy_, policyMapping_;
};

} // namespace zul
