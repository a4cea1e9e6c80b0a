// Readers that make no list.
#include "asn1/asn_header.h"
#include "asn1/asn_levels.h"
#include "asn1/asn_parse.h"
#include "asn1/byte_stream.h"

namespace zul {

int asn_LooksLikeDer(ByteStream& stream, size_t size) {
    const size_t start = stream.offset();
    AsnHeader header;
    const int got = asn_read_header(stream, header);
    if (!stream.seek(start) || got != 1)
        return 0;
    const uint32_t cls = header.cls & ~kAsnConstructed;
    return (cls == kAsnUniversal || cls == kAsnContext) && header.tag >= 1 && header.tag <= 49 &&
           size_t{header.hdrsize} + header.length == size;
}

int asn_FindElement(size_t* offset, size_t* size, const void* bytes, size_t n, int tag, int count,
                    int level) {
    ByteStream stream(bytes, n);
    AsnLevels levels;
    AsnHeader header;
    bool inside = false; // of the element found, which has no length of its own
    uint32_t foundLevel = 0;
    size_t start = 0;
    int found = 0;
    while (count > 0 && asn_read_header(stream, header) == 1) {
        const uint32_t depth = levels.depth();
        const bool marker = header.cls == 0 && header.tag == 0;
        const size_t contentStart = stream.offset();
        const auto end = static_cast<int64_t>(contentStart) + header.length;
        if (header.is_false_marker() || !levels.holds(end))
            return 0;
        if (!inside && !marker && (tag < 0 || header.tag == static_cast<uint32_t>(tag)) &&
            (level < 0 || depth == static_cast<uint32_t>(level)) && found++ == count - 1) {
            start = contentStart - header.hdrsize;
            foundLevel = depth;
            inside = header.ndef != 0;
            if (!inside) {
                if (header.length > stream.remaining())
                    return 0;
                *offset = start;
                *size = size_t{header.hdrsize} + header.length;
                return 1;
            }
        }
        if ((header.cls & kAsnConstructed) != 0) {
            if (!levels.enter(header.ndef != 0 ? AsnLevels::kOpen : end))
                return 0;
        } else if (!stream.skip(header.length)) {
            return 0;
        }
        if (levels.leave(static_cast<int64_t>(stream.offset()), marker) != AsnLevels::Step::good)
            return 0;
        if (inside && levels.depth() <= foundLevel) {
            *offset = start;
            *size = stream.offset() - start;
            return 1;
        }
    }
    return 0;
}

// constructed_header reads a header of a constructed element that has a length.
static bool constructed_header(ByteStream& stream, AsnHeader& header) {
    return asn_read_header(stream, header) == 1 && (header.cls & kAsnConstructed) != 0 && header.ndef == 0;
}

int asn_SplitSigned(ByteStream& stream, size_t* tbsOffset, size_t* tbsSize, size_t* algOffset,
                    size_t* sigOffset) {
    AsnHeader header;
    if (!constructed_header(stream, header))
        return -1;
    *tbsOffset = stream.offset();
    if (!constructed_header(stream, header))
        return -1;
    *tbsSize = size_t{header.hdrsize} + header.length;
    if (!stream.skip(header.length))
        return -1;
    *algOffset = stream.offset();
    if (!constructed_header(stream, header) || !stream.skip(header.length))
        return -1;
    *sigOffset = stream.offset();
    if (asn_read_header(stream, header) != 1 || (header.cls & kAsnConstructed) != 0)
        return -1;
    return 0;
}

} // namespace zul
