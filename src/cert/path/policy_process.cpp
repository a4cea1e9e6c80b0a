#include "cert/path/policy_process.h"

#include <algorithm>

#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

void lower(int& counter, int limit) {
    if (limit >= 0)
        counter = std::min(counter, limit);
}

} // namespace

PolicyProcess::PolicyProcess(const PathConditions& conditions, int certificates)
    : conditions_(conditions), explicitPolicy_(conditions.needsExplicitPolicy ? 0 : certificates + 1),
      inhibitAnyPolicy_(conditions.inhibitsAnyPolicy ? 0 : certificates + 1),
      policyMapping_(conditions.inhibitsMapping ? 0 : certificates + 1) {}

int PolicyProcess::add_certificate(const CertRecord& record, bool isLast, PathBudget& budget) {
    const bool allowsAny = inhibitAnyPolicy_ > 0 || (!isLast && record.is_self_issued());
    if (const int error = graph_.add_certificate(record.extensions, allowsAny, budget))
        return error;
    return explicitPolicy_ > 0 || !graph_.is_null()
               ? 0
               : err_fail(NO_MATCH_ERROR, "A policy is demanded, and none is valid");
}

int PolicyProcess::prepare(const CertRecord& record, PathBudget& budget) {
    const CertExtensions& extensions = record.extensions;
    if (const int error = graph_.map(extensions, policyMapping_ > 0, budget))
        return error;
    for (int* counter : {&explicitPolicy_, &policyMapping_, &inhibitAnyPolicy_})
        if (!record.is_self_issued() && *counter > 0)
            --*counter;
    lower(explicitPolicy_, extensions.requireExplicitPolicy);
    lower(policyMapping_, extensions.inhibitPolicyMapping);
    lower(inhibitAnyPolicy_, extensions.inhibitAnyPolicy);
    return 0;
}

bool PolicyProcess::is_wanted(DerView policy) const {
    return conditions_.policies.empty() ||
           std::any_of(conditions_.policies.begin(), conditions_.policies.end(),
                       [&](const SecretBuffer& each) {
                           const DerView wanted(each.data(), each.size());
                           return policy == wanted || is_any_policy(wanted);
                       });
}

int PolicyProcess::finish(const CertRecord& last, Array<DerView>& policies) {
    if (explicitPolicy_ > 0)
        explicitPolicy_--;
    if (last.extensions.requireExplicitPolicy == 0)
        explicitPolicy_ = 0;
    Array<DerView> authority;
    bool authorityIsAny;
    graph_.authority_set(authority, authorityIsAny);
    for (const DerView policy : authority)
        if (is_wanted(policy))
            policies.add(policy);
    // anyPolicy stands for each policy that is wanted.
    if (authorityIsAny && conditions_.policies.empty())
        policies.add(any_policy());
    for (const SecretBuffer& each : conditions_.policies) {
        const DerView policy(each.data(), each.size());
        if (authorityIsAny && std::find(policies.begin(), policies.end(), policy) == policies.end())
            policies.add(policy);
    }
    return explicitPolicy_ > 0 || !policies.empty()
               ? 0
               : err_fail(NO_MATCH_ERROR, "A policy is demanded, and none of those wanted is valid");
}

} // namespace zul
