#include "cert/path/crl_listing.h"

#include "cert/fields/general_name.h"

namespace zul {

namespace {

// Costs of a byte of entries: when they are read the first time, and when only serial numbers are compared.
constexpr int64_t kReadCost = 5, kSearchCost = 1;

bool names_have(DerView names, const NameDigest& issuer) {
    GeneralNameReader reader(names);
    GeneralNameView name;
    while (reader.next(name))
        if (name.type == GeneralNameType::directoryName && name_digest(name.value) == issuer)
            return true;
    return false;
}

// weight orders the entries of one certificate: a list may put it on hold and later revoke it.
int weight(int reason) {
    return reason == kReasonRemoveFromCrl ? 1 : reason == kReasonCertificateHold ? 2 : 3;
}

// EntrySearch compares the entries of one CRL with a certificate. certificateIssuer holds for the entries
// that follow too (RFC 5280, 5.3.3); without one an entry is about a certificate of the CRL's issuer.
class EntrySearch {
  public:
    EntrySearch(const CrlRecord& crl, DerView serialNumber, const NameDigest& issuer, CrlListing& listing,
                PathBudget& budget)
        : crl_(crl), serialNumber_(serialNumber), issuer_(issuer), listing_(listing), budget_(budget) {}

    void set_issuer(DerView names) {
        if (names.data != nullptr) {
            certificateIssuer_ = names;
            isCompared_ = false;
        }
    }
    void add(const CrlEntryView& entry, const CrlEntryExtensions& extensions) {
        if (!isCompared_) {
            isOfIssuer_ = certificateIssuer_.data != nullptr ? budget_.take_name(certificateIssuer_.size) &&
                                                                   names_have(certificateIssuer_, issuer_)
                                                             : crl_.issuer == issuer_;
            isCompared_ = true;
        }
        const int reason = extensions.hasReason ? extensions.reason : -1;
        if (!isOfIssuer_ || (listing_.isListed && weight(reason) <= weight(listing_.reason)))
            return;
        listing_.isListed = true;
        listing_.reason = reason;
        if (!der_time(entry.dateTime, listing_.revokedAt))
            listing_.revokedAt = 0; // has always been
    }

    // read_all reads every entry with its extensions.
    void read_all(CrlRecord& record) {
        CrlEntryReader reader(crl_.view.revoked);
        CrlEntryView entry;
        record.isRead = record.entriesAreKnown = true;
        while (reader.next(entry)) {
            CrlEntryExtensions extensions;
            const bool isGood = crl_entry_extensions_read(entry, extensions) == 0;
            record.entriesAreKnown =
                record.entriesAreKnown && isGood && extensions.unknownCritical.data == nullptr;
            record.hasCertificateIssuers |= extensions.certificateIssuer.data != nullptr;
            set_issuer(extensions.certificateIssuer);
            if (entry.serialNumber == serialNumber_)
                add(entry, extensions);
        }
        record.entriesAreReadable = reader.at_end();
    }

    // search compares serial numbers, and reads no more of an entry than it has to.
    void search() {
        DerReader reader(crl_.view.revoked);
        DerView content, serialNumber;
        while (reader.take(kDerSequence, content)) {
            DerReader fields(content);
            if (!fields.take(kDerInteger, serialNumber))
                return;
            const bool isMatch = serialNumber == serialNumber_;
            if (isMatch || crl_.hasCertificateIssuers)
                read_one(content, isMatch);
        }
    }

  private:
    void read_one(DerView content, bool isMatch) {
        DerReader fields(content);
        CrlEntryView entry;
        bool found;
        CrlEntryExtensions extensions;
        if (!fields.take(kDerInteger, entry.serialNumber) || !fields.take_any(entry.dateTime) ||
            !fields.take_optional(kDerSequence, entry.extensions, found))
            return;
        // Those that are malformed count as far as they go, as they did the first time.
        (void)crl_entry_extensions_read(entry, extensions);
        set_issuer(extensions.certificateIssuer);
        if (isMatch)
            add(entry, extensions);
    }

    const CrlRecord& crl_;
    DerView serialNumber_;
    const NameDigest& issuer_;
    CrlListing& listing_;
    PathBudget& budget_;
    DerView certificateIssuer_; // names, null data before the first
    bool isCompared_ = false, isOfIssuer_ = false;
};

} // namespace

bool crl_find(CrlRecord& crl, DerView serialNumber, const NameDigest& issuer, CrlListing& listing,
              PathBudget& budget) {
    listing = {};
    const auto size = static_cast<int64_t>(crl.view.revoked.size);
    if (!budget.take(size * (crl.isRead && !crl.hasCertificateIssuers ? kSearchCost : kReadCost)))
        return false;
    EntrySearch search(crl, serialNumber, issuer, listing, budget);
    if (crl.isRead)
        search.search();
    else
        search.read_all(crl);
    return true;
}

} // namespace zul
