// The text form of IP addresses (RFC 5952) and of ranges of name constraints (RFC 5280, 4.2.1.10).
#include <algorithm>

#include "cert/names/name_print.h"

namespace zul {

namespace {

constexpr size_t kIpv4 = 4, kIpv6 = 16, kGroups = 8;

void put_ipv4(TextBuffer& out, const uint8_t* bytes) {
    for (size_t i = 0; i < kIpv4; i++) {
        if (i > 0)
            out.put('.');
        out.put_number(bytes[i]);
    }
}

void put_group(TextBuffer& out, unsigned group) {
    constexpr char kDigits[] = "0123456789abcdef";
    int shift = 12;
    while (shift > 0 && group >> shift == 0)
        shift -= 4;
    for (; shift >= 0; shift -= 4)
        out.put(kDigits[group >> shift & 15]);
}

// put_ipv6 shortens the longest run of two zero groups or more, the first one of several.
void put_ipv6(TextBuffer& out, const uint8_t* bytes) {
    unsigned groups[kGroups];
    size_t gap = kGroups, gapSize = 1;
    for (size_t i = 0; i < kGroups; i++)
        groups[i] = static_cast<unsigned>(bytes[2 * i] << 8 | bytes[2 * i + 1]);
    for (size_t i = 0; i < kGroups; i++) {
        size_t size = 0;
        while (i + size < kGroups && groups[i + size] == 0)
            size++;
        if (size > gapSize) {
            gap = i;
            gapSize = size;
        }
    }
    for (size_t i = 0; i < kGroups; i++) {
        if (i == gap) {
            out.put("::");
            i += gapSize - 1;
            continue;
        }
        if (i > 0 && i != gap + gapSize)
            out.put(':');
        put_group(out, groups[i]);
    }
}

// prefix_length gives the bits of a mask, -1 if they are not all in front.
int prefix_length(const uint8_t* mask, size_t size) {
    int bits = 0;
    for (size_t i = 0; i < 8 * size; i++) {
        if ((mask[i / 8] >> (7 - i % 8) & 1) == 0)
            continue;
        if (bits++ != static_cast<int>(i))
            return -1;
    }
    return bits;
}

} // namespace

void put_ip_address(TextBuffer& out, DerView address) {
    if (address.size == kIpv4) {
        put_ipv4(out, address.data);
    } else if (address.size == kIpv6) {
        put_ipv6(out, address.data);
    } else {
        out.put('#');
        out.put_hex(address.data, address.size);
    }
}

void put_ip_range(TextBuffer& out, DerView range) {
    const size_t half = range.size / 2;
    if (range.size != 2 * kIpv4 && range.size != 2 * kIpv6) {
        out.put('#');
        out.put_hex(range.data, range.size);
        return;
    }
    put_ip_address(out, {range.data, half});
    out.put('/');
    const int bits = prefix_length(range.data + half, half);
    if (bits >= 0)
        out.put_number(bits);
    else
        put_ip_address(out, {range.data + half, half});
}

} // namespace zul
