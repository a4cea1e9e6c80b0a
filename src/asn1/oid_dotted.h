#pragma once
#include <string_view>

#include "asn1/asn_node.h"

namespace zul {

// oid_is_dotted tells whether a text looks like an object identifier: it begins with a digit and holds digits
// and dots alone.
bool oid_is_dotted(std::string_view text);

// oid_from_dotted makes the OBJECT IDENTIFIER of a dotted text: two arcs at least, numbers without leading
// zeros, the first one 0 to 2, the second below 40 under 0 and 1. At most 32 content octets, as oid_ToDotted
// takes them. An empty list for any other text.
AsnList oid_from_dotted(std::string_view text);

} // namespace zul
