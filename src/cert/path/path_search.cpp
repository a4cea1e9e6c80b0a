#include "cert/path/path_search.h"

#include <algorithm>

#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

// The point of an elliptic curve may have to be decompressed.
constexpr int64_t kCostOfStep = 5'000, kCostOfCandidate = 500, kCostOfKey = 200'000;

// signature_state: 1 if an issuer's key has signed a certificate, 0 if not, -1 if that depends on the
// parameters of a key further up.
int signature_state(CertRecord& subject, CertRecord& issuer, PathBudget& budget) {
    if (!issuer.is_key_tried() && !budget.take(kCostOfKey))
        return 0;
    const SignerKey* const key = issuer.own_key();
    if (key == nullptr)
        return issuer.key_code() == 0 ? -1 : 0;
    const int code = subject.check_signature(*key, issuer.view.publicKeyInfo, budget);
    err_set_text("%s", "");
    return code == 0 ? 1 : 0;
}

} // namespace

void PathSearch::run(CertRecord& endEntity, bool isLenient) {
    isLenient_ = isLenient;
    chain_.clear();
    chain_.add(&endEntity);
    extend();
}

// extend tells whether the search is over.
bool PathSearch::extend() {
    if (!budget_.take(kCostOfStep))
        return true;
    Array<Candidate> candidates;
    find_candidates(candidates);
    bool wasExtended = false;
    if (try_candidates(candidates, true, wasExtended))
        return true;
    // A wrong signature explains a refusal only if there is no right one.
    if (isLenient_ && !wasExtended && try_candidates(candidates, false, wasExtended))
        return true;
    return (isLenient_ && !wasExtended && visitor_.visit_end(chain_)) || budget_.is_spent();
}

void PathSearch::find_candidates(Array<Candidate>& candidates) {
    const CertRecord& subject = *chain_.back();
    for (CertRecord* record : pool_.of_subject(subject.issuer)) {
        if (!budget_.take(kCostOfCandidate))
            return;
        // The anchor may be the end entity itself.
        if (record->isAnchor ? onlyAnchor_ == nullptr || onlyAnchor_ == record->view.publicKeyInfo.data
                             : !is_in_chain(*record) && (isLenient_ || may_stand(*record)))
            candidates.add({record, likelihood(*record, subject), candidates.size()});
    }
    // Not std::stable_sort, whose buffer would come from outside of frame/memory.h, and exceptions with it.
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return a.likelihood != b.likelihood ? a.likelihood > b.likelihood : a.place < b.place;
    });
}

bool PathSearch::try_candidates(const Array<Candidate>& candidates, bool isSigned, bool& wasExtended) {
    CertRecord& subject = *chain_.back();
    for (const Candidate& candidate : candidates) {
        if (budget_.is_spent())
            return true;
        CertRecord& issuer = *candidate.record;
        const bool hasRoom = static_cast<int>(chain_.size()) <= conditions_.maxDepth;
        if ((!issuer.isAnchor && !hasRoom) || (signature_state(subject, issuer, budget_) != 0) != isSigned)
            continue;
        wasExtended = true;
        if (issuer.isAnchor) {
            if (visitor_.visit(issuer, chain_))
                return true;
            continue;
        }
        chain_.add(&issuer);
        const bool isOver = extend();
        chain_.shrink(chain_.size() - 1);
        if (isOver)
            return true;
    }
    return false;
}

// may_stand tells whether a certificate may be an authority's above those of the chain.
bool PathSearch::may_stand(CertRecord& record) const {
    const CertExtensions& extensions = record.extensions;
    if (record.fault != 0 || record.view.version != 3 || !extensions.isCa ||
        !extensions.allows(kUsageKeyCertSign) || extensions.unknownCritical.data != nullptr ||
        !record.is_valid_at(conditions_.time))
        return false;
    int below = 0; // intermediate certificates that count (RFC 5280, 4.2.1.9)
    for (size_t i = 1; i < chain_.size(); i++)
        below += chain_[i]->is_self_issued() ? 0 : 1;
    return extensions.pathLength < 0 || below <= extensions.pathLength;
}

bool PathSearch::is_in_chain(const CertRecord& record) const {
    return std::any_of(chain_.begin(), chain_.end(), [&](const CertRecord* each) {
        return each->digest == record.digest ||
               (each->subject == record.subject && each->view.publicKeyInfo == record.view.publicKeyInfo);
    });
}

int PathSearch::likelihood(const CertRecord& issuer, const CertRecord& subject) const {
    const AuthorityKeyId& wanted = subject.extensions.authorityKeyIdentifier;
    const DerView given = issuer.extensions.subjectKeyIdentifier;
    int points = 0;
    if (!wanted.keyIdentifier.empty() && !given.empty())
        points += wanted.keyIdentifier == given ? 8 : -8;
    if (!wanted.serialNumber.empty())
        points += wanted.serialNumber == issuer.view.serialNumber ? 2 : -2;
    if (issuer.is_valid_at(conditions_.time))
        points += 16;
    if (issuer.isAnchor)
        points += 4;
    else if (pool_.has_anchor(issuer.issuer))
        points += 1;
    return points;
}

} // namespace zul
