#include "cert/path/revocation.h"

#include "cert/path/crl_check.h"
#include "cert/path/error_text_scope.h"
#include "cert/path/evidence.h"
#include "cert/path/ocsp_check.h"
#include "cert/path/path_budget.h"
#include "zulcore.h"

namespace zul {

namespace {

struct GapRow {
    RevocationGap gap;
    int code;
    const char* text;
};

constexpr GapRow kGaps[] = {
    {RevocationGap::noEvidence, NO_DATA_ERROR, "no CRL or OCSP response tells its status"},
    {RevocationGap::unreadable, BAD_FORMAT_ERROR, "a CRL or OCSP response cannot be read"},
    {RevocationGap::scope, NO_DATA_ERROR, "no CRL covers it"},
    {RevocationGap::noSigner, ISSUER_ERROR, "no certificate may sign the CRL or OCSP response"},
    {RevocationGap::signature, SIGNATURE_ERROR, "the signature of the CRL or OCSP response is invalid"},
    {RevocationGap::signerStatus, ISSUER_ERROR,
     "the signer of the CRL or OCSP response is revoked or unknown"},
    {RevocationGap::date, EXPIRED_ERROR, "the CRL or OCSP response is outside its dates"},
    {RevocationGap::reasons, NO_DATA_ERROR, "the CRLs cover some reasons for revocation only"},
    {RevocationGap::status, NO_DATA_ERROR, "the OCSP responder does not know it"},
    {RevocationGap::unknownCritical, NOT_SUPPORTED_ERROR,
     "the CRL or OCSP response has an unknown or invalid critical extension"},
    {RevocationGap::malformed, BAD_FORMAT_ERROR, "entries of the CRL or distribution points are malformed"},
    {RevocationGap::work, OUT_OF_RANGE_ERROR, "the CRLs and OCSP responses need too much work"},
};

// Signers of signers of ... CRLs. More than two of them do not occur.
constexpr int kMostNested = 4;

constexpr int64_t kCheckCost = 2000;

bool is_same(const PathLink& a, const PathLink& b) {
    return a.certificate != nullptr && b.certificate != nullptr &&
           a.certificate->encoding == b.certificate->encoding;
}

bool is_in_progress(const PathLink& link, const RevocationProgress& progress) {
    for (const RevocationProgress* each = &progress; each != nullptr; each = each->outer)
        for (const PathLink* above = each->link; above != nullptr; above = above->issuer)
            if (is_same(link, *above))
                return true;
    return false;
}

int depth(const RevocationProgress* progress) {
    int count = 0;
    for (; progress != nullptr; progress = progress->outer)
        count++;
    return count;
}

} // namespace

RevocationState signer_state(const RevocationContext& context, const PathLink& signer,
                             const RevocationProgress& progress) {
    RevocationState worst = RevocationState::good;
    for (const PathLink* link = &signer; link->issuer != nullptr; link = link->issuer) {
        if (is_in_progress(*link, progress))
            continue;
        const RevocationState state = check_revocation(context, *link, &progress).state;
        if (state == RevocationState::revoked)
            return state;
        if (state == RevocationState::unknown)
            worst = state;
    }
    return worst;
}

RevocationAnswer check_revocation(const RevocationContext& context, const PathLink& link,
                                  const RevocationProgress* outer) {
    const ErrorTextScope scope;
    RevocationFinding finding;
    if (context.evidence.unreadable() > 0)
        finding.note(RevocationGap::unreadable);
    const RevocationProgress progress = {&link, outer};
    if (!context.budget.take(kCheckCost) || depth(&progress) > kMostNested) {
        finding.note(RevocationGap::work);
    } else {
        ocsp_check(context, progress, finding);
        if (!finding.is_revoked())
            crl_check(context, progress, finding);
        finding.settle_hold();
    }
    // What has not been looked at might have told that it is revoked.
    if (context.budget.is_spent() && !finding.is_revoked()) {
        finding.answer = {};
        finding.note(RevocationGap::work);
    }
    if (finding.answer.state == RevocationState::unknown)
        for (const GapRow& row : kGaps)
            if (row.gap == finding.gap) {
                finding.answer.code = row.code;
                finding.answer.text = row.text;
            }
    return finding.answer;
}

} // namespace zul
