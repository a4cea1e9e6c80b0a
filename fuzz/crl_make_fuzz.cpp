#include <cstdlib>
#include <cstring>
#include <string>

#include "cert/make/crl_entry_list.h"
#include "cert/make/crl_extension_list.h"
#include "zulcore.h"

// The input is a description, the text of revoked certificates and the entries of an earlier list, each but
// the last ended by NUL. A list that is made of them reads back, has no certificate of the text twice, and
// grown by nothing keeps every byte.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static DerView view_of(const SecretBuffer& bytes) {
    return {bytes.data(), bytes.size()};
}

// read_entries counts entries; -1 if the list is malformed.
static long read_entries(DerView revoked) {
    CrlEntryReader reader(revoked);
    CrlEntryView entry;
    long count = 0;
    for (; reader.next(entry); count++) {
        CrlEntryExtensions extensions;
        if (crl_entry_extensions_read(entry, extensions) != 0)
            return -1;
    }
    return reader.at_end() ? count : -1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string description = input.c_str();
    const std::string rest = description.size() < size ? input.substr(description.size() + 1) : "";
    const std::string text = rest.c_str(),
                      kept = text.size() < rest.size() ? rest.substr(text.size() + 1) : "";
    CrlPlan plan;
    if (crl_plan_read(plan, description.c_str()) != 0)
        return 0;
    RevokedScope scope;
    scope.issuerName = {"\x30\x0C\x31\x0A\x30\x08\x06\x03\x55\x04\x03\x0C\x01X", 14};
    scope.issuerNames = {"\xA4\x0E\x30\x0C\x31\x0A\x30\x08\x06\x03\x55\x04\x03\x0C\x01X", 16};
    scope.thisUpdate = 1767225600;
    if (plan.has_scope()) {
        const SecretBuffer point = issuing_point_encode(plan);
        require(issuing_point_read(view_of(point), scope.point));
        require(scope.point.isIndirect == plan.isIndirect &&
                scope.point.hasReasons == (plan.onlyReasons != 0));
    }
    EntryListRules rules;
    rules.isDelta = plan.isDelta;
    rules.earlier = plan.isDelta ? EarlierList::delta : EarlierList::grows;
    rules.kept = {kept.data(), kept.size()};
    RevokedList list;
    SecretBuffer revoked;
    if (revoked_text_read(list, text.c_str(), scope) != 0 || crl_entry_list(revoked, list, scope, rules) != 0)
        return 0;
    const long count = read_entries(view_of(revoked));
    require(count >= 0 && count <= read_entries(rules.kept) + static_cast<long>(list.entries.size()));
    RevokedList nothing;
    SecretBuffer again;
    rules.kept = view_of(revoked);
    require(revoked_text_read(nothing, "", scope) == 0 && crl_entry_list(again, nothing, scope, rules) == 0);
    require(view_of(again) == view_of(revoked));
    // What was added is there now. A second time it is refused.
    bool isRefused = false;
    for (const RevokedEntry& entry : list.entries)
        isRefused = isRefused || (entry.reason != 6 && entry.reason != 8);
    RevokedList same;
    SecretBuffer twice;
    require(revoked_text_read(same, text.c_str(), scope) == 0);
    require(!isRefused || crl_entry_list(twice, same, scope, rules) == DUP_ERROR);
    return 0;
}
