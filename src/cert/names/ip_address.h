#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zul {

// An IP address, 4 or 16 bytes in network order; size 0: none.
struct IpAddress {
    uint8_t bytes[16] = {};
    size_t size = 0;
};

// ip_from_text reads four decimal numbers without leading zeros (RFC 6943, 3.1.1), or any form of RFC
// 4291, 2.2: groups of one to four hex digits, "::" once for one group at least, the last four bytes as IPv4.
// False for anything else; zones are not part of an address.
bool ip_from_text(IpAddress& address, std::string_view text);

// ip_mask sets the first bits of a mask of size bytes.
void ip_mask(uint8_t* mask, size_t size, unsigned bits);

} // namespace zul
