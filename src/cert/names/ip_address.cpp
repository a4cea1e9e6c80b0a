#include "cert/names/ip_address.h"

#include <algorithm>
#include <cstring>

#include "frame/slice.h"

namespace zul {
namespace {

constexpr size_t kIpv4 = 4, kIpv6 = 16;
constexpr size_t kNone = std::string_view::npos;

bool read_ipv4(uint8_t out[kIpv4], std::string_view text) {
    for (size_t i = 0; i < kIpv4; i++) {
        const size_t end = i + 1 < kIpv4 ? text.find('.') : text.size();
        const std::string_view digits = slice(text, 0, end);
        if (end == kNone || digits.empty() || digits.size() > 3 || (digits[0] == '0' && digits.size() > 1))
            return false;
        unsigned value = 0;
        for (const char c : digits) {
            if (c < '0' || c > '9')
                return false;
            value = value * 10 + static_cast<unsigned>(c - '0');
        }
        if (value > 0xFF)
            return false;
        out[i] = static_cast<uint8_t>(value);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

bool read_group(uint8_t out[2], std::string_view digits) {
    unsigned value = 0;
    if (digits.empty() || digits.size() > 4)
        return false;
    for (const char c : digits) {
        const char lower = static_cast<char>(c | 0x20);
        if (c >= '0' && c <= '9')
            value = value << 4 | static_cast<unsigned>(c - '0');
        else if (lower >= 'a' && lower <= 'f')
            value = value << 4 | static_cast<unsigned>(lower - 'a' + 10);
        else
            return false;
    }
    out[0] = static_cast<uint8_t>(value >> 8);
    out[1] = static_cast<uint8_t>(value);
    return true;
}

// read_groups reads groups joined by ":", the last one perhaps as IPv4; none of an empty text. False if they
// are malformed or do not fit.
bool read_groups(uint8_t out[kIpv6], size_t& size, std::string_view text, bool mayEndInIpv4) {
    size = 0;
    while (!text.empty()) {
        const size_t colon = text.find(':');
        const std::string_view part = slice(text, 0, colon);
        const bool isIpv4 = colon == kNone && mayEndInIpv4 && part.find('.') != kNone;
        const size_t needed = isIpv4 ? kIpv4 : 2;
        if (kIpv6 - size < needed || !(isIpv4 ? read_ipv4(out + size, part) : read_group(out + size, part)))
            return false;
        size += needed;
        if (colon == kNone)
            return true;
        text.remove_prefix(colon + 1);
        if (text.empty()) // a colon at the end
            return false;
    }
    return true;
}

bool read_ipv6(uint8_t out[kIpv6], std::string_view text) {
    const size_t gap = text.find("::");
    uint8_t head[kIpv6], tail[kIpv6];
    size_t headSize = 0, tailSize = 0;
    if (!read_groups(head, headSize, slice(text, 0, gap), gap == kNone))
        return false;
    if (gap == kNone) {
        memcpy(out, head, headSize);
        return headSize == kIpv6;
    }
    if (!read_groups(tail, tailSize, slice(text, gap + 2), true) || headSize + tailSize + 2 > kIpv6)
        return false;
    memset(out, 0, kIpv6);
    memcpy(out, head, headSize);
    memcpy(out + kIpv6 - tailSize, tail, tailSize);
    return true;
}

} // namespace

bool ip_from_text(IpAddress& address, std::string_view text) {
    const bool isIpv6 = text.find(':') != kNone;
    address.size = isIpv6 ? kIpv6 : kIpv4;
    return isIpv6 ? read_ipv6(address.bytes, text) : read_ipv4(address.bytes, text);
}

void ip_mask(uint8_t* mask, size_t size, unsigned bits) {
    for (size_t i = 0; i < size; i++) {
        const unsigned here = std::min(bits, 8u);
        mask[i] = static_cast<uint8_t>(0xFF00u >> here);
        bits -= here;
    }
}

} // namespace zul
