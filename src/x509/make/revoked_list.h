#pragma once
#include "asn1/asn_node.h"

namespace zul {

// read_revoked_list makes the entries of a CRL (RFC 5280, 5.1.2.6) from a text: 0, or BAD_FORMAT_ERROR with a
// text. Serial numbers and dates alternate, separated by ";", "," or "=". Null or blank text has no entries.
[[nodiscard]] int read_revoked_list(const char* text, AsnList& entries);

} // namespace zul
