#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// The MAC of a PFX with a password (RFC 7292, section 4 and appendix B): HMAC over the encoding of its
// AuthenticatedSafe.
namespace zul {

// pfx_password_fits tells whether a password is short enough to derive a key from.
bool pfx_password_fits(const char* password);

// pfx_mac_data makes MacData with HMAC-SHA-1 and a new salt.
AsnList pfx_mac_data(const SecretBuffer& safe, const char* password);

// pfx_check_mac: 0 or a positive code, with a text: INVALID_DATA_ERROR, NOT_SUPPORTED_ERROR,
// OUT_OF_RANGE_ERROR for an iteration count that would take too long, SIGNATURE_ERROR for a mismatch.
[[nodiscard]] int pfx_check_mac(const asn_Node* macData, const SecretBuffer& safe, const char* password);

} // namespace zul
