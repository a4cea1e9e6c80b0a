#pragma once
#include "asn1/asn_node.h"

namespace zul {

// content_info wraps a SignedData or EnvelopedData (RFC 5652, 3); contentType is a name of the OID table.
AsnList content_info(const char* contentType, AsnList content);

} // namespace zul
