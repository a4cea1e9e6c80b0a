#pragma once
#include "cert/fields/crl_view.h"
#include "cert/fields/ocsp_view.h"
#include "cert/input/object_list.h"
#include "cert/names/name_match.h"
#include "cert/path/path_link.h"
#include "frame/array.h"

// CRLs and OCSP responses at hand, as views into the list that they come from.
namespace zul {

// SignatureMemo keeps which keys an object has been verified with.
class SignatureMemo {
  public:
    // verified tells whether a signature is by the key of a signer.
    [[nodiscard]] bool verified(DerView bytes, const AlgorithmView& algorithm, DerView signature,
                                const PathLink& signer, PathBudget& budget);

  private:
    struct Tried {
        DerView publicKeyInfo, parameters; // parameters: of a DSA key, which may be its issuer's
        bool isGood;
    };
    Array<Tried> tried_;
};

struct CrlRecord {
    CrlView view;
    CrlExtensions extensions;
    NameDigest issuer;
    bool isReadable = false; // its extensions are well made, and the critical ones known

    // What reading all entries has found.
    bool isRead = false;
    bool entriesAreReadable = false; // each is well made
    bool entriesAreKnown = false;    // and has no critical extension that is not known
    bool hasCertificateIssuers = false;

    SignatureMemo memo;

    // signed_by is false too if the two AlgorithmIdentifiers differ (RFC 5280, 5.1.1.2).
    [[nodiscard]] bool signed_by(const PathLink& signer, PathBudget& budget);
};

struct OcspRecord {
    OcspResponseView view;
    SignatureMemo memo;

    [[nodiscard]] bool signed_by(const PathLink& signer, PathBudget& budget) {
        return memo.verified(view.toBeSigned, view.signatureAlgorithm, view.signature, signer, budget);
    }
};

// CrlRange is the CRLs of one issuer.
struct CrlRange {
    const uint32_t *first = nullptr, *last = nullptr; // places among all

    const uint32_t* begin() const { return first; }
    const uint32_t* end() const { return last; }
};

class Evidence {
  public:
    // read takes the CRLs and OCSP responses of a list, which outlives the evidence; other objects are left
    // out. What cannot be read, or is no successful response, is counted and left out too.
    void read(const ObjectList& list);

    bool empty() const { return crls_.empty() && responses_.empty() && unreadable_ == 0; }
    size_t unreadable() const { return unreadable_; }
    CrlRange crls_of(const NameDigest& issuer) const;
    CrlRecord& crl(uint32_t place) { return crls_[place]; }
    Array<OcspRecord>& responses() { return responses_; }

  private:
    void add_crl(DerView encoding);
    void add_response(DerView encoding);

    Array<CrlRecord> crls_;
    Array<uint32_t> order_; // places of crls_ by issuer
    Array<OcspRecord> responses_;
    size_t unreadable_ = 0;
};

} // namespace zul
