#pragma once
#include <cstddef>

namespace zul {

// A row names an object identifier by its content octets: upper-case hex pairs with one blank between them.
struct OidRow {
    const char* name;
    const char* octets;
};

constexpr size_t kOidRows = 96;
extern const OidRow kOidTable[kOidRows];

} // namespace zul
