#pragma once
#include <cstdint>

namespace zul {

// oid_octets_from_hex reads a row's octets, "2A 86 48": their number, at most 31, or 0 with a text if the row
// is not well made.
int32_t oid_octets_from_hex(uint8_t out[32], const char* text);

} // namespace zul
