#include "cert/path/crl_check.h"

#include <algorithm>

#include "cert/fields/cert_oids.h"
#include "cert/path/crl_listing.h"
#include "cert/path/crl_scope.h"

namespace zul {

namespace {

// A CRL without nextUpdate, which RFC 5280, 5.1.2.5 demands, would be within its dates for ever.
bool is_current(const CrlView& crl, int64_t time) {
    return crl.thisUpdate <= time && crl.hasNextUpdate && time <= crl.nextUpdate;
}

// number_is_less compares the contents of two INTEGERs that are not negative. A missing one is the least.
bool number_is_less(DerView a, DerView b) {
    return a.size != b.size ? a.size < b.size : a.size != 0 && memcmp(a.data, b.data, a.size) < 0;
}

DerView extension_value(const CrlView& crl, std::string_view oid) {
    ExtensionView extension;
    return find_extension(crl.extensions, oid, extension) ? extension.value : DerView();
}

// is_delta_of: RFC 5280, 5.2.4 and 6.3.3 (c).
bool is_delta_of(const CrlRecord& delta, const CrlRecord& base) {
    const DerView number = base.extensions.number, newNumber = delta.extensions.number;
    return delta.extensions.isDelta && delta.isReadable && number.data != nullptr &&
           newNumber.data != nullptr && !number_is_less(number, delta.extensions.deltaBase) &&
           number_is_less(number, newNumber) &&
           extension_value(base.view, kOidIssuingDistributionPoint) ==
               extension_value(delta.view, kOidIssuingDistributionPoint) &&
           extension_value(base.view, kOidAuthorityKeyIdentifier) ==
               extension_value(delta.view, kOidAuthorityKeyIdentifier);
}

struct Candidate {
    CrlRecord* crl;
    uint32_t reasons;
    bool isCurrent;

    // Complete lists come before deltas, new ones before old ones.
    bool is_before(const Candidate& other) const {
        if (crl->extensions.isDelta != other.crl->extensions.isDelta)
            return other.crl->extensions.isDelta;
        if (crl->view.thisUpdate != other.crl->view.thisUpdate)
            return crl->view.thisUpdate > other.crl->view.thisUpdate;
        return number_is_less(other.crl->extensions.number, crl->extensions.number);
    }
};

class CrlSearch {
  public:
    CrlSearch(const RevocationContext& context, const RevocationProgress& progress,
              RevocationFinding& finding)
        : context_(context), progress_(progress), link_(*progress.link), finding_(finding) {}

    void run() {
        // Without all of its points a certificate may still be found revoked.
        const bool isWhole = scope_.read(*link_.certificate, *link_.extensions, context_.budget);
        for (const NameDigest& issuer : scope_.issuers())
            for (const uint32_t place : context_.evidence.crls_of(issuer))
                add_candidate(context_.evidence.crl(place));
        std::sort(candidates_.begin(), candidates_.end(),
                  [](const Candidate& a, const Candidate& b) { return a.is_before(b); });
        uint32_t covered = 0;
        for (const Candidate& each : candidates_) {
            if (context_.budget.is_spent())
                break;
            look_up(each, covered);
            if (finding_.is_revoked())
                return;
        }
        if (!isWhole)
            finding_.note(RevocationGap::malformed);
        else if (covered == kAllReasons)
            finding_.add_good(false, holdLiftedAt_);
        else if (covered != 0)
            finding_.note(RevocationGap::reasons);
    }

  private:
    void add_candidate(CrlRecord& crl) {
        if (!crl.isReadable)
            return finding_.note(RevocationGap::unknownCritical);
        const uint32_t reasons = scope_.reasons(crl, context_.budget);
        if (reasons == 0)
            return finding_.note(RevocationGap::scope);
        candidates_.add({&crl, reasons, is_current(crl.view, context_.time)});
    }

    bool find(CrlRecord& crl, CrlListing& listing) {
        if (!crl_find(crl, link_.certificate->serialNumber, scope_.certificate_issuer(), listing,
                      context_.budget))
            return false;
        // What a list of a later time says counts if it was so at the time of the check.
        if (crl.view.thisUpdate > context_.time && listing.revokedAt > context_.time)
            listing = {};
        return true;
    }

    // look_up takes a CRL into account. Signatures are verified only where they matter.
    void look_up(const Candidate& candidate, uint32_t& covered) {
        CrlRecord& crl = *candidate.crl;
        CrlListing listing;
        if (!find(crl, listing))
            return;
        const bool addsReasons = (candidate.reasons & ~covered) != 0;
        bool isCurrent = candidate.isCurrent;
        int64_t madeAt = crl.view.thisUpdate;
        const PathLink* signer = nullptr;
        bool signerIsGood = false;
        if (crl.extensions.isDelta) {
            isCurrent = false; // by itself it omits what its base lists
            finding_.note(RevocationGap::scope);
        } else if (const CrlRecord* delta = find_delta(crl, signer, signerIsGood, listing)) {
            isCurrent = isCurrent || is_current(delta->view, context_.time);
            madeAt = std::max(madeAt, delta->view.thisUpdate);
        }

        if (!crl.entriesAreReadable)
            finding_.note(RevocationGap::malformed);
        else if (!crl.entriesAreKnown)
            finding_.note(RevocationGap::unknownCritical);
        else if (!isCurrent && !crl.extensions.isDelta)
            finding_.note(RevocationGap::date);
        // A hold may have ended since.
        const bool holdCounts = addsReasons && crl.view.thisUpdate >= finding_.goodAt;
        const bool provesRevoked = listing.is_revoked() && (holdCounts || !listing.is_on_hold());
        const bool provesGood = !listing.is_revoked() && addsReasons && isCurrent && crl.entriesAreReadable &&
                                crl.entriesAreKnown;
        if ((!provesRevoked && !provesGood) || (signer == nullptr && !find_signer(crl, signer, signerIsGood)))
            return;
        if (provesRevoked)
            finding_.add_revoked(false, listing.reason, listing.revokedAt);
        else if (signerIsGood)
            cover(candidate.reasons, madeAt, covered);
        else
            finding_.note(RevocationGap::signerStatus);
    }

    // cover notes the reasons that a list of a time, which does not name the certificate, speaks for.
    void cover(uint32_t reasons, int64_t madeAt, uint32_t& covered) {
        if ((reasons & ~covered & kHoldReason) != 0)
            holdLiftedAt_ = madeAt;
        covered |= reasons;
    }

    // find_delta gives the newest delta that can be joined with a complete CRL and is signed with the same
    // key, or null. Then signer is that of both, and listing what both together say.
    const CrlRecord* find_delta(CrlRecord& base, const PathLink*& signer, bool& signerIsGood,
                                CrlListing& listing) {
        Array<CrlRecord*> deltas;
        for (const Candidate& each : candidates_)
            if (each.crl->extensions.isDelta && each.crl->issuer == base.issuer &&
                each.crl->view.thisUpdate <= context_.time && context_.budget.take(kDeltaCost) &&
                is_delta_of(*each.crl, base))
                deltas.add(each.crl);
        if (deltas.empty() || !find_signer(base, signer, signerIsGood))
            return nullptr;
        std::sort(deltas.begin(), deltas.end(), [](const CrlRecord* a, const CrlRecord* b) {
            return number_is_less(b->extensions.number, a->extensions.number);
        });
        for (CrlRecord* delta : deltas) {
            CrlListing change;
            if (!delta->signed_by(*signer, context_.budget) || !find(*delta, change) ||
                !delta->entriesAreReadable || !delta->entriesAreKnown)
                continue;
            if (change.isListed)
                listing = change;
            return delta;
        }
        return nullptr;
    }

    // find_signer looks for the certificate whose key has signed a CRL (RFC 5280, 6.3.3 (f), (g)). Of
    // several, one that is itself known to be good is preferred; a revoked one does not count.
    bool find_signer(CrlRecord& crl, const PathLink*& signer, bool& isGood) {
        signer = nullptr;
        for (const PathLink* each = link_.issuer; each != nullptr; each = each->issuer)
            if (is_named(*each, crl) && try_signer(crl, *each, signer, isGood))
                return true;
        const DerView keyIdentifier = crl.extensions.authorityKeyIdentifier.keyIdentifier;
        for (size_t n = 0; context_.budget.take(kDeltaCost); n++) {
            const PathLink* each = context_.signers.candidate(crl.view.issuer, keyIdentifier, link_.anchor(),
                                                              n, context_.budget);
            if (each == nullptr || try_signer(crl, *each, signer, isGood))
                break;
        }
        if (signer == nullptr)
            finding_.note(RevocationGap::noSigner);
        return signer != nullptr;
    }

    bool is_named(const PathLink& link, const CrlRecord& crl) const {
        return link.name == crl.view.issuer ||
               (context_.budget.take_name(link.name.size) && name_digest(link.name) == crl.issuer);
    }

    // try_signer is true if there is no need to look further.
    bool try_signer(CrlRecord& crl, const PathLink& candidate, const PathLink*& signer, bool& isGood) {
        if (candidate.extensions != nullptr && !candidate.extensions->allows(kUsageCrlSign))
            return false;
        if (!crl.signed_by(candidate, context_.budget)) {
            finding_.note(RevocationGap::signature);
            return false;
        }
        const RevocationState state = signer_state(context_, candidate, progress_);
        if (state == RevocationState::revoked) {
            finding_.note(RevocationGap::signerStatus);
            return false;
        }
        signer = &candidate;
        isGood = state == RevocationState::good;
        return isGood;
    }

    static constexpr int64_t kDeltaCost = 300;
    static constexpr uint32_t kHoldReason = 1U << kReasonCertificateHold; // in ReasonFlags

    const RevocationContext& context_;
    const RevocationProgress& progress_;
    const PathLink& link_;
    RevocationFinding& finding_;
    CrlScope scope_;
    int64_t holdLiftedAt_ = INT64_MIN; // when the newest list for this reason was made
    Array<Candidate> candidates_;
};

} // namespace

void crl_check(const RevocationContext& context, const RevocationProgress& progress,
               RevocationFinding& finding) {
    CrlSearch(context, progress, finding).run();
}

} // namespace zul
