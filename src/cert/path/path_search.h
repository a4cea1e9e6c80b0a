#pragma once
#include "cert/path/cert_pool.h"
#include "cert/path/path_conditions.h"

namespace zul {

// ChainVisitor takes up what a PathSearch finds. chain begins with the end entity. visit and visit_end tell
// whether the search is over.
class ChainVisitor {
  public:
    virtual bool visit(CertRecord& anchor, const Array<CertRecord*>& chain) = 0;
    // visit_end gets a chain without an anchor to whose last certificate there is no issuer.
    virtual bool visit_end(const Array<CertRecord*>& chain) = 0;

  protected:
    ~ChainVisitor() = default;
};

// PathSearch goes through the chains from a certificate to the anchors of a pool, depth first, likely issuers
// first: those whose subjectKeyIdentifier is asked for and that are valid. No certificate and no pair of name
// and key is twice in one chain.
class PathSearch {
  public:
    PathSearch(const CertPool& pool, const PathConditions& conditions, PathBudget& budget,
               ChainVisitor& visitor)
        : pool_(pool), conditions_(conditions), budget_(budget), visitor_(visitor) {}

    // only_anchor lets chains end at one anchor alone: the one whose key stands in this place of the input.
    void only_anchor(DerView publicKeyInfo) { onlyAnchor_ = publicKeyInfo.data; }

    // run looks for chains in which each certificate may be where it stands, as far as it alone and its
    // signature tell; with isLenient for any others too, so that it can be told what is wrong with them. It
    // ends when the visitor is content or the budget is spent.
    void run(CertRecord& endEntity, bool isLenient);

  private:
    struct Candidate {
        CertRecord* record;
        int likelihood;
        size_t place; // in the order of the pool
    };

    bool extend();
    bool try_candidates(const Array<Candidate>& candidates, bool isSigned, bool& wasExtended);
    void find_candidates(Array<Candidate>& candidates);
    bool may_stand(CertRecord& record) const;
    bool is_in_chain(const CertRecord& record) const;
    int likelihood(const CertRecord& issuer, const CertRecord& subject) const;

    const CertPool& pool_;
    const PathConditions& conditions_;
    PathBudget& budget_;
    ChainVisitor& visitor_;
    const uint8_t* onlyAnchor_ = nullptr;
    bool isLenient_ = false;
    Array<CertRecord*> chain_;
};

} // namespace zul
