#pragma once
#include "asn1/asn_node.h"
#include "pfx/p12_entry.h"

namespace zul {

// p12_read_bags adds the entries of SafeContents (RFC 7292, 4.2), those of bags in it too: 0 or a positive
// code with a text: BAD_FORMAT_ERROR, or OUT_OF_RANGE_ERROR for too many entries or levels.
[[nodiscard]] int p12_read_bags(P12Entries& entries, const asn_Node* safeContents, size_t safe);

} // namespace zul
