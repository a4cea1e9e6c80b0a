#pragma once
#include "asn1/asn_node.h"
#include "key/key.h"

// RSASSA-PSS-params (RFC 8017, A.2.3; RFC 4055, 3.1).
namespace zul {

// pss_rules_read reads the parameters of an id-RSASSA-PSS key, null if it has none: 0, BAD_FORMAT_ERROR or
// NOT_SUPPORTED_ERROR, with a text.
[[nodiscard]] int pss_rules_read(PssRules& rules, const asn_Node* parameters);

// pss_rules_list gives the parameters; an empty list if the rules restrict nothing.
AsnList pss_rules_list(const PssRules& rules);

} // namespace zul
