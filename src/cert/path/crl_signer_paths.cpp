#include "cert/path/crl_signer_paths.h"

#include "cert/path/path_validator.h"

namespace zul {

namespace {

// FirstValid keeps the first chain that is a valid path.
class FirstValid final : public ChainVisitor {
  public:
    FirstValid(const PathConditions& conditions, PathBudget& budget, Array<PathStep>& path)
        : validator_(conditions, budget), anchorIsCertificate_(conditions.anchorIsCertificate), path_(path) {}

    bool visit(CertRecord& anchor, const Array<CertRecord*>& chain) override {
        PathOutcome outcome;
        make_path(path_, anchor, chain, anchorIsCertificate_);
        validator_.run(path_, outcome);
        if (outcome.code == 0)
            return true;
        path_.clear();
        return false;
    }
    bool visit_end(const Array<CertRecord*>&) override { return false; }

  private:
    PathValidator validator_;
    const bool anchorIsCertificate_;
    Array<PathStep>& path_;
};

} // namespace

CrlSignerPaths::CrlSignerPaths(const CertPool& pool, const PathConditions& conditions) : pool_(pool) {
    conditions_.time = conditions.time;
    conditions_.maxDepth = conditions.maxDepth;
    conditions_.anchorIsCertificate = conditions.anchorIsCertificate;
}

const PathLink* CrlSignerPaths::link_of(CertRecord& record, DerView anchor, PathBudget& budget) {
    for (const Found& each : found_)
        if (each.record == &record && each.anchor == anchor.data)
            return each.path.empty() ? nullptr : &each.path.back().link;
    Found found{&record, anchor.data, {}};
    FirstValid visitor(conditions_, budget, found.path);
    PathSearch search(pool_, conditions_, budget, visitor);
    search.only_anchor(anchor);
    if (record.fault == 0 && record.is_valid_at(conditions_.time))
        search.run(record, false);
    // A signer's key has to be there.
    if (!found.path.empty() && found.path.back().link.key == nullptr)
        found.path.clear();
    const Array<PathStep>& path = found_.add(std::move(found)).path;
    return path.empty() ? nullptr : &path.back().link;
}

const PathLink* CrlSignerPaths::candidate(DerView name, DerView keyIdentifier, const PathLink& anchor,
                                          size_t n, PathBudget& budget) {
    if (!budget.take_name(name.size))
        return nullptr;
    const CertRange range = pool_.of_subject(name_digest(name));
    // Those that are asked for come first.
    for (const bool isAskedFor : {true, false}) {
        for (CertRecord* record : range) {
            const bool matches =
                !keyIdentifier.empty() && record->extensions.subjectKeyIdentifier == keyIdentifier;
            if (matches != isAskedFor || record->isAnchor)
                continue;
            if (!budget.take(1000 + static_cast<int64_t>(found_.size())))
                return nullptr;
            const PathLink* link = link_of(*record, anchor.publicKeyInfo, budget);
            if (link != nullptr && n-- == 0)
                return link;
        }
    }
    return nullptr;
}

} // namespace zul
