#include "cert/path/path_outcome.h"

#include "frame/err.h"

namespace zul {

void make_path(Array<PathStep>& steps, CertRecord& anchor, const Array<CertRecord*>& chain,
               bool anchorIsCertificate) {
    steps.clear();
    steps.reserve(chain.size() + 1);
    for (size_t i = 0; i <= chain.size(); i++) {
        CertRecord& record = i == 0 ? anchor : *chain[chain.size() - i];
        PathStep& step = steps.add({});
        step.record = &record;
        step.link = {&record.view,        &record.extensions,
                     record.view.subject, record.view.publicKeyInfo,
                     record.own_key(),    i == 0 ? nullptr : &steps[i - 1].link};
        if (i == 0 && !anchorIsCertificate) {
            step.link.certificate = nullptr;
            step.link.extensions = nullptr;
        }
        if (step.link.key != nullptr || record.key_code() != 0 || i == 0)
            continue;
        const SignerKey* above = steps[i - 1].link.key;
        if (above != nullptr && step.inherited.read(record.view.publicKeyInfo, above) == 0)
            step.link.key = &step.inherited;
        err_set_text("%s", "");
    }
}

bool PathOutcome::is_better(const PathOutcome& other) const {
    if ((code == 0) != (other.code == 0))
        return code == 0;
    if (hasAnchor != other.hasAnchor)
        return hasAnchor;
    if (!hasAnchor)
        return records.size() > other.records.size();
    // The status is asked for last, when all else is good.
    const auto place = [](const PathOutcome& each) {
        const bool isStatus = each.failedCheck == PathCheck::revocation;
        // Counted from the end entity, so that the length of a path does not matter.
        return (isStatus ? 0x10000 : 0) - static_cast<int>(each.records.size() - each.failedStep);
    };
    const int here = place(*this), there = place(other);
    return here != there ? here > there : failedCheck > other.failedCheck;
}

} // namespace zul
