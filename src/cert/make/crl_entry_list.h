#pragma once
#include <optional>

#include "cert/make/crl_revoked.h"

namespace zul {

// What the earlier list is to the new one.
enum class EarlierList {
    none,
    grows, // complete, and so is the new one
    base,  // complete; the new one has what changed since then
    delta, // to the same base as the new one
};

struct EntryListRules {
    EarlierList earlier = EarlierList::none;
    DerView kept; // content of the earlier list's revokedCertificates
    bool isDelta = false;
    std::optional<int64_t> dropBefore; // entries with an earlier revocation date are left out
};

// crl_entry_list makes the content of revokedCertificates: entries kept from the earlier list byte for byte,
// then the new ones. In an indirect list a kept entry may need a certificateIssuer that it had inherited.
// 0, or with a text that names the serial number:
// - DUP_ERROR: a certificate that stands twice in the new entries, or in the earlier list, and not on hold;
// - BAD_PARAM_ERROR: removeFromCRL in a complete list without an earlier one;
// - NO_MATCH_ERROR: removeFromCRL of a certificate that the earlier list has, but not on hold, or that it
//   lacks, unless it is a delta list;
// - BAD_FORMAT_ERROR: a malformed entry in the earlier list.
[[nodiscard]] int crl_entry_list(SecretBuffer& revoked, RevokedList& list, const RevokedScope& scope,
                                 const EntryListRules& rules);

} // namespace zul
