#include "cert/path/path_validator.h"

#include <algorithm>

#include "cert/names/subject_names.h"
#include "cert/path/name_constraints.h"
#include "cert/path/policy_process.h"
#include "cert/path/web_rules.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

// The state variables of RFC 5280, 6.1.2.
struct PathValidator::State {
    const Array<PathStep>& path;
    PathOutcome& outcome;
    PolicyProcess policies;
    Array<NameConstraints> constraints; // one after the other; all have to be met
    int maxPathLength;

    size_t last() const { return path.size() - 1; }
    const CertRecord& record(size_t i) const { return *path[i].record; }

    // passes notes the result of a check: false if it is a failure, with the thread's error text.
    bool passes(size_t i, PathCheck check, int code) {
        if (code == 0) {
            outcome.steps[i].pass(check);
            return true;
        }
        outcome.code = code;
        outcome.failedStep = i;
        outcome.failedCheck = check;
        take_error_text(outcome.text);
        return false;
    }
};

namespace {

void lower(int& value, int limit) {
    if (limit >= 0)
        value = std::min(value, limit);
}

[[nodiscard]] int check_validity(const CertificateView& certificate, int64_t time) {
    if (time < certificate.notBefore)
        return err_fail(EXPIRED_ERROR, "It is not valid yet");
    return time <= certificate.notAfter ? 0 : err_fail(EXPIRED_ERROR, "It has expired");
}

// check_authority_rights: RFC 5280, 6.1.4 (k).
[[nodiscard]] int check_authority_rights(const CertRecord& record, bool isAnchor) {
    if (record.view.version != 3)
        // Roots of version 1 are common; a version 1 certificate below one says nothing about its rights.
        return isAnchor ? 0
                        : err_fail(ISSUER_ERROR, "A certificate of version %d does not make its subject a CA",
                                   record.view.version);
    return record.extensions.isCa ? 0 : err_fail(ISSUER_ERROR, "Its subject is not a CA (basicConstraints)");
}

[[nodiscard]] int check_cert_sign(const CertRecord& record) {
    return record.extensions.allows(kUsageKeyCertSign)
               ? 0
               : err_fail(ISSUER_ERROR, "Its key may not sign certificates (keyUsage)");
}

[[nodiscard]] int check_critical(const CertRecord& record) {
    return record.extensions.unknownCritical.data == nullptr
               ? 0
               : err_fail(NOT_SUPPORTED_ERROR, "It has a critical extension that is not known");
}

[[nodiscard]] int fault_of(const CertRecord& record) {
    return record.fault == 0 ? 0 : err_fail(record.fault, "%s", record.faultText.text());
}

// issuer_key_code tells why the key of an issuer cannot be used.
[[nodiscard]] int issuer_key_code(const CertRecord& issuer) {
    if (issuer.key_code() == 0)
        return err_fail(NOT_SUPPORTED_ERROR, "The issuer's DSA key has no parameters");
    return err_fail(issuer.key_code() == BAD_KEY_ERROR ? ISSUER_ERROR : issuer.key_code(),
                    "The issuer's key cannot be used: %s", issuer.key_text().text());
}

} // namespace

template<class Check>
int PathValidator::once(LeafCheck& known, const CertRecord& record, Check check) {
    if (known.record != &record) {
        known = {&record, check(), {}};
        if (known.code != 0)
            take_error_text(known.text);
    }
    return known.code == 0 ? 0 : err_fail(known.code, "%s", known.text.text());
}

void PathValidator::run(const Array<PathStep>& path, PathOutcome& outcome) {
    outcome = {};
    outcome.hasAnchor = true;
    for (const PathStep& step : path) {
        outcome.records.add(step.record);
        outcome.steps.add({});
    }
    const int count = static_cast<int>(path.size()) - 1;
    State state{path, outcome, PolicyProcess(conditions_, count), {}, count};
    if (conditions_.anchorIsCertificate && !check_anchor(state))
        return;
    for (size_t i = 1; i < path.size(); i++)
        if (!check_certificate(state, i) || (i < state.last() && !check_authority(state, i)))
            return;
    if (!finish_policies(state) || !check_subject_names(state, state.last()))
        return;
    for (size_t i = 1; i < path.size(); i++)
        if (!check_status(state, i))
            return;
}

// check_anchor: RFC 5937. extKeyUsage, which it does not name, counts as in the certificates below.
bool PathValidator::check_anchor(State& state) {
    const CertRecord& anchor = state.record(0);
    const CertExtensions& extensions = anchor.extensions;
    // A trusted certificate of an end entity vouches for itself.
    const bool isOwn = state.last() == 1 && state.record(1).digest == anchor.digest;
    if (!state.passes(0, PathCheck::structure, fault_of(anchor)) ||
        !state.passes(0, PathCheck::validity, check_validity(anchor.view, conditions_.time)) ||
        !state.passes(0, PathCheck::criticalExtensions, check_critical(anchor)))
        return false;
    if (!isOwn &&
        (!state.passes(0, PathCheck::basicConstraints, check_authority_rights(anchor, true)) ||
         !state.passes(0, PathCheck::keyUsage, check_cert_sign(anchor)) || !check_purpose(state, 0)))
        return false;
    lower(state.maxPathLength, extensions.pathLength);
    if (extensions.hasNameConstraints)
        return state.passes(0, PathCheck::nameConstraints,
                            state.constraints.add({}).read(extensions, budget_));
    return true;
}

bool PathValidator::check_certificate(State& state, size_t i) {
    CertRecord& record = *state.path[i].record;
    const PathLink& issuer = *state.path[i].link.issuer;
    if (!state.passes(i, PathCheck::structure, fault_of(record)))
        return false;
    const int code = issuer.key == nullptr
                         ? issuer_key_code(state.record(i - 1))
                         : record.check_signature(*issuer.key, issuer.publicKeyInfo, budget_);
    return state.passes(i, PathCheck::signature, code) &&
           state.passes(i, PathCheck::validity, check_validity(record.view, conditions_.time)) &&
           state.passes(i, PathCheck::criticalExtensions, check_critical(record)) &&
           check_purpose(state, i) && (!conditions_.isWeb || check_web(state, i)) && check_names(state, i) &&
           check_policies(state, i);
}

bool PathValidator::check_purpose(State& state, size_t i) {
    constexpr int64_t kCostOfOctet = 10; // of extKeyUsage
    const CertRecord& record = state.record(i);
    const CertExtensions& extensions = record.extensions;
    if (conditions_.purpose == PathPurpose::any)
        return true;
    int code;
    if (i == state.last())
        code = once(purpose_, record, [&] { return check_leaf_purpose(extensions, conditions_.purpose); });
    else if (budget_.take(kCostOfOctet * static_cast<int64_t>(extensions.extKeyUsage.size)))
        code = check_authority_purpose(extensions, conditions_.purpose);
    else
        code = err_fail(OUT_OF_RANGE_ERROR, "Too many purposes");
    return state.passes(i, PathCheck::purpose, code);
}

bool PathValidator::check_web(State& state, size_t i) {
    const CertRecord& record = state.record(i);
    int code = check_web_certificate(record.view);
    const SignerKey* const keys[] = {i == 1 ? state.path[0].link.key : nullptr, state.path[i].link.key};
    for (const SignerKey* key : keys)
        if (code == 0 && key != nullptr)
            code = check_web_key(*key);
    if (code == 0 && i == state.last())
        code = once(web_, record, [&] { return check_web_leaf(record.view, record.extensions); });
    return state.passes(i, PathCheck::webRules, code);
}

// check_names: 6.1.3 (b), (c).
bool PathValidator::check_names(State& state, size_t i) {
    const CertRecord& record = state.record(i);
    if (state.constraints.empty() || (i < state.last() && record.is_self_issued()))
        return true;
    CertificateNames names;
    int code = names.read(record.view, record.extensions, budget_);
    // A name that may be relied on is a name that constraints are about.
    if (i == state.last() && !conditions_.host.empty() && conditions_.nameOptions != 0)
        names.add_host(record.view, record.extensions);
    for (size_t c = 0; code == 0 && c < state.constraints.size(); c++)
        code = state.constraints[c].check(names, budget_);
    return state.passes(i, PathCheck::nameConstraints, code);
}

// check_policies: 6.1.3 (d) to (f).
bool PathValidator::check_policies(State& state, size_t i) {
    return state.passes(i, PathCheck::policies,
                        state.policies.add_certificate(state.record(i), i == state.last(), budget_));
}

// check_authority prepares for the next certificate: 6.1.4.
bool PathValidator::check_authority(State& state, size_t i) {
    const CertRecord& record = state.record(i);
    if (!state.passes(i, PathCheck::basicConstraints, check_authority_rights(record, false)) ||
        !state.passes(i, PathCheck::keyUsage, check_cert_sign(record)))
        return false;
    int code = 0;
    if (!record.is_self_issued() && state.maxPathLength-- <= 0)
        code = err_fail(ISSUER_ERROR, "The path below an authority is longer than its pathLenConstraint");
    lower(state.maxPathLength, record.extensions.pathLength);
    if (!state.passes(i, PathCheck::pathLength, code))
        return false;
    if (record.extensions.hasNameConstraints &&
        !state.passes(i, PathCheck::nameConstraints,
                      state.constraints.add({}).read(record.extensions, budget_)))
        return false;
    return state.passes(i, PathCheck::policies, state.policies.prepare(record, budget_));
}

// finish_policies: 6.1.5 (a), (b), (g).
bool PathValidator::finish_policies(State& state) {
    state.outcome.hasPolicies = true;
    return state.passes(state.last(), PathCheck::policies,
                        state.policies.finish(state.record(state.last()), state.outcome.policies));
}

bool PathValidator::check_subject_names(State& state, size_t i) {
    const CertRecord& record = state.record(i);
    return (conditions_.host.empty() && conditions_.email.empty() && conditions_.ip.empty()) ||
           state.passes(i, PathCheck::subjectName,
                        once(subjectName_, record, [&] { return subject_names_code(record); }));
}

int PathValidator::subject_names_code(const CertRecord& record) const {
    for (const SecretBuffer* each : {&conditions_.host, &conditions_.email, &conditions_.ip})
        if (!each->empty())
            if (const int code = check_subject_name(record.view, record.extensions,
                                                    {each->text(), each->size()}, conditions_.nameOptions))
                return code;
    return 0;
}

bool PathValidator::check_status(State& state, size_t i) {
    if (evidence_ == nullptr || signers_ == nullptr || conditions_.revocation == RevocationDemand::none)
        return true;
    StepOutcome& outcome = state.outcome.steps[i];
    outcome.hasStatus = true;
    outcome.status = check_revocation({*evidence_, *signers_, conditions_.time, budget_}, state.path[i].link);
    const RevocationAnswer& status = outcome.status;
    int code = 0;
    if (status.state == RevocationState::revoked) {
        code = err_fail(BAD_KEY_ERROR, "It is revoked");
    } else if (status.state == RevocationState::unknown) {
        const bool isDemanded = conditions_.revocation == RevocationDemand::all ||
                                (conditions_.revocation == RevocationDemand::leaf && i == state.last());
        // What was too much work to find out is not known either way.
        const bool isKept = status.code == EXPIRED_ERROR || status.code == OUT_OF_RANGE_ERROR;
        if (isDemanded || status.code == OUT_OF_RANGE_ERROR)
            code = err_fail(isKept ? status.code : NO_DATA_ERROR, "Whether it is revoked is not known: %s",
                            status.text);
    }
    return state.passes(i, PathCheck::revocation, code);
}

} // namespace zul
