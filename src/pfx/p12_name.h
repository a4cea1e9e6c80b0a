#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

namespace zul {

// p12_name_text adds a Name (RFC 5280, 4.1.2.4) as UTF-8 text, "C=AU;CN=Alice". A type without a keyword is
// its OID, and a value that is no string "#" and the hex of its DER. A value that a ";" or a quote stands in,
// or a blank at an end, is put into single quotes, in which a backslash makes the next character literal.
void p12_name_text(SecretBuffer& out, const asn_Node* name);

} // namespace zul
