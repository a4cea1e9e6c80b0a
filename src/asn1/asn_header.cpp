#include "asn1/asn_header.h"

#include <cstring>

#include "asn1/byte_stream.h"

namespace zul {

namespace {

constexpr uint32_t kLowTag = 0x1F;
constexpr int kEnd = -1, kFull = -2;

[[nodiscard]] int take(ByteStream& stream, AsnHeader& header) {
    if (header.hdrsize == sizeof header.hdr)
        return kFull;
    const int octet = stream.get();
    if (octet >= 0)
        header.hdr[header.hdrsize++] = static_cast<uint8_t>(octet);
    return octet;
}

[[nodiscard]] int no_header(int taken) {
    return taken == kEnd ? 0 : -1;
}

} // namespace

int asn_read_header(ByteStream& stream, AsnHeader& header) {
    header = {};
    int octet = take(stream, header);
    if (octet < 0)
        return no_header(octet);
    header.cls = static_cast<uint32_t>(octet) & 0xE0;
    header.tag = static_cast<uint32_t>(octet) & kLowTag;
    if (header.tag == kLowTag) {
        header.tag = 0;
        do {
            octet = take(stream, header);
            if (octet < 0)
                return no_header(octet);
            if (header.tag > UINT32_MAX >> 7)
                return -1;
            header.tag = header.tag << 7 | (static_cast<uint32_t>(octet) & 0x7F);
        } while ((octet & 0x80) != 0);
    }

    octet = take(stream, header);
    if (octet < 0)
        return no_header(octet);
    if (octet < 0x80) {
        header.length = static_cast<uint32_t>(octet);
        return 1;
    }
    int count = octet & 0x7F;
    if (count > 4)
        return -1;
    header.ndef = count == 0;
    for (; count > 0; count--) {
        octet = take(stream, header);
        if (octet < 0)
            return no_header(octet);
        header.length = header.length << 8 | static_cast<uint32_t>(octet);
    }
    return 1;
}

size_t asn_header_octets(const asn_Node* node, uint8_t out[8]) {
    if (node->hdrsize != 0) {
        memcpy(out, node->hdr, sizeof node->hdr);
        return node->hdrsize;
    }
    if (node->length == kAsnLengthUnset || node->tag >= kLowTag)
        return 0;
    size_t size = 0;
    out[size++] = static_cast<uint8_t>(node->cls | node->tag);
    if (node->length < 0x80) {
        out[size++] = static_cast<uint8_t>(node->length);
        return size;
    }
    unsigned count = 1;
    while (count < 4 && node->length >> (8 * count) != 0)
        count++;
    out[size++] = static_cast<uint8_t>(0x80 | count);
    while (count-- > 0)
        out[size++] = static_cast<uint8_t>(node->length >> (8 * count));
    return size;
}

} // namespace zul
