#include "cert/make/crl_entry_list.h"

#include <algorithm>
#include <cstring>

#include "cert/make/crl_entry_writer.h"
#include "cert/make/crl_reason.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMostShown = 40; // bytes of a serial number

[[nodiscard]] int fail(int code, DerView serialNumber, const char* why) {
    char hex[2 * kMostShown + 1];
    hex_encode(hex, sizeof hex, serialNumber.data, std::min(serialNumber.size, kMostShown));
    return err_fail(code, "The certificate with the serial number %s %s", hex, why);
}

int compare(DerView a, DerView b) {
    if (a.size != b.size)
        return a.size < b.size ? -1 : 1;
    return a.data == b.data || a.size == 0 ? 0 : memcmp(a.data, b.data, a.size);
}

class EntryList {
  public:
    EntryList(SecretBuffer& revoked, RevokedList& list, const RevokedScope& scope,
              const EntryListRules& rules)
        : writer_(revoked, scope.issuerNames), entries_(list.entries), issuers_(list.issuers), scope_(scope),
          rules_(rules) {}

    [[nodiscard]] int sort();
    [[nodiscard]] int pass_kept();
    [[nodiscard]] int write_new();

  private:
    int order(size_t i, DerView serialNumber, DerView issuer) const;
    RevokedEntry* find(const KeptEntry& kept);
    [[nodiscard]] int meet(const KeptEntry& kept, RevokedEntry& entry);
    void put(RevokedEntry& entry);

    EntryWriter writer_;
    Array<RevokedEntry>& entries_;
    const IssuerTable& issuers_;
    const RevokedScope& scope_;
    const EntryListRules& rules_;
    Array<uint32_t> sorted_; // indices of entries_
};

int EntryList::order(size_t i, DerView serialNumber, DerView issuer) const {
    const int first = compare(entries_[i].serialNumber, serialNumber);
    return first != 0 ? first : compare(entries_[i].issuer, issuer);
}

int EntryList::sort() {
    sorted_.reserve(entries_.size());
    for (size_t i = 0; i < entries_.size(); i++)
        sorted_.add(static_cast<uint32_t>(i));
    std::sort(sorted_.begin(), sorted_.end(), [this](uint32_t a, uint32_t b) {
        return order(a, entries_[b].serialNumber, entries_[b].issuer) < 0;
    });
    for (size_t i = 1; i < sorted_.size(); i++) {
        const RevokedEntry& entry = entries_[sorted_[i]];
        if (order(sorted_[i - 1], entry.serialNumber, entry.issuer) == 0)
            return fail(DUP_ERROR, entry.serialNumber, "is given twice");
    }
    return 0;
}

RevokedEntry* EntryList::find(const KeptEntry& kept) {
    const uint32_t* place =
        std::lower_bound(sorted_.begin(), sorted_.end(), kept, [this](uint32_t i, const KeptEntry& sought) {
            return order(i, sought.view.serialNumber, sought.issuer) < 0;
        });
    return place != sorted_.end() && order(*place, kept.view.serialNumber, kept.issuer) == 0
               ? &entries_[*place]
               : nullptr;
}

void EntryList::put(RevokedEntry& entry) {
    if (!entry.hasDate)
        entry.date = scope_.thisUpdate;
    entry.isDone = true;
    writer_.write(entry);
}

// meet settles what becomes of an entry that is new and stands in the earlier list.
int EntryList::meet(const KeptEntry& kept, RevokedEntry& entry) {
    const bool wasHeld = kept.extensions.reason == kReasonCertificateHold,
               wasRemoved = kept.extensions.reason == kReasonRemoveFromCrl,
               isRemoved = entry.reason == kReasonRemoveFromCrl;
    entry.isMet = true;
    // No other revocation can be taken back (RFC 5280, 5.3.1).
    if (isRemoved && !wasHeld && !wasRemoved)
        return fail(NO_MATCH_ERROR, kept.view.serialNumber, "is not on hold");
    if (isRemoved && wasHeld && rules_.earlier == EarlierList::grows) {
        entry.isDone = true;
        return 0;
    }
    const bool isChange = wasHeld ? entry.reason != kReasonCertificateHold : wasRemoved && !isRemoved;
    if (!isChange)
        return fail(DUP_ERROR, kept.view.serialNumber, "is in the earlier list already");
    // A certificate that was on hold is revoked since then (X.509, 9.5.3.1).
    if (wasHeld && !isRemoved && !entry.hasDate) {
        entry.date = kept.date;
        entry.hasDate = true;
    }
    if (rules_.earlier != EarlierList::base && !entry.isDone)
        put(entry);
    return 0;
}

int EntryList::pass_kept() {
    DerReader reader(rules_.kept);
    DerView issuer = scope_.issuerNames, issuerNames = issuer;
    while (!reader.at_end()) {
        KeptEntry kept;
        DerElement element;
        if (!reader.take_any(element))
            return err_fail(BAD_FORMAT_ERROR, "Invalid CRL: revokedCertificates");
        kept.encoding = element.encoding;
        CrlEntryReader one(kept.encoding);
        if (!one.next(kept.view) || !der_time(kept.view.dateTime, kept.date))
            return err_fail(BAD_FORMAT_ERROR, "Invalid CRL: revokedCertificates");
        if (const int error = crl_entry_extensions_read(kept.view, kept.extensions))
            return error;
        if (kept.names_issuer()) {
            issuerNames = kept.extensions.certificateIssuer;
            issuer = issuers_.find(issuerNames);
        }
        kept.issuer = issuer;
        kept.issuerNames = issuerNames;
        if (RevokedEntry* entry = find(kept)) {
            if (const int error = meet(kept, *entry))
                return error;
        } else if (rules_.earlier != EarlierList::base &&
                   (!rules_.dropBefore || kept.date >= *rules_.dropBefore)) {
            writer_.keep(kept);
        }
    }
    return 0;
}

int EntryList::write_new() {
    for (RevokedEntry& entry : entries_) {
        if (entry.isDone)
            continue;
        // The base of an earlier delta list, or of deltaFrom, is not at hand.
        const bool mayLackEarlier = rules_.isDelta && rules_.earlier != EarlierList::base;
        if (entry.reason == kReasonRemoveFromCrl && !entry.isMet && !mayLackEarlier)
            return rules_.earlier == EarlierList::none
                       ? fail(BAD_PARAM_ERROR, entry.serialNumber,
                              "cannot be removed: the list is complete and has no earlier one")
                       : fail(NO_MATCH_ERROR, entry.serialNumber, "is not in the earlier list");
        put(entry);
    }
    return 0;
}

} // namespace

int crl_entry_list(SecretBuffer& revoked, RevokedList& list, const RevokedScope& scope,
                   const EntryListRules& rules) {
    EntryList entries(revoked, list, scope, rules);
    if (const int error = entries.sort())
        return error;
    if (const int error = entries.pass_kept())
        return error;
    return entries.write_new();
}

} // namespace zul
