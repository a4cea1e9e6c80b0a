#include "asn1/asn_scope.h"

namespace zul {
namespace {

bool is_type(const AsnHeader& header, uint32_t cls, uint32_t tag) {
    return header.hdr[0] == (cls | tag);
}

} // namespace

bool asn_enter_any(ByteStream& stream, AsnScope& scope, uint32_t cls, uint32_t tag) {
    AsnHeader header;
    if (asn_read_header(stream, header) != 1 || !is_type(header, cls, tag))
        return false;
    const size_t offset = stream.offset();
    if (offset > scope.end)
        return false;
    scope.isOpen = header.ndef != 0;
    if (scope.isOpen)
        return (cls & kAsnConstructed) != 0;
    if (header.length > scope.end - offset || header.length > stream.remaining())
        return false;
    scope.end = offset + header.length;
    return true;
}

bool asn_leave_open(ByteStream& stream, const AsnScope& inner) {
    AsnHeader header;
    return asn_read_header(stream, header) == 1 && header.cls == 0 && header.tag == 0 &&
           !header.is_false_marker() && stream.offset() <= inner.end;
}

bool asn_skip_element(ByteStream& stream, size_t limit, AsnHeader& first) {
    size_t open = 0;
    for (bool atFirst = true; atFirst || open > 0; atFirst = false) {
        AsnHeader header;
        if (asn_read_header(stream, header) != 1)
            return false;
        if (atFirst)
            first = header;
        const bool marker = header.cls == 0 && header.tag == 0;
        if (marker && (atFirst || header.is_false_marker()))
            return false;
        if (marker)
            open--;
        else if (header.ndef == 0 ? !stream.skip(header.length) : (header.cls & kAsnConstructed) == 0)
            return false;
        else
            open += header.ndef;
        if (stream.offset() > limit)
            return false;
    }
    return true;
}

bool asn_skip_type(ByteStream& stream, size_t limit, uint32_t cls, uint32_t tag) {
    AsnHeader header;
    return asn_skip_element(stream, limit, header) && is_type(header, cls, tag);
}

bool asn_skip_optional(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag) {
    return !asn_next_is(stream, scope, cls, tag) || asn_skip_type(stream, scope.end, cls, tag);
}

bool asn_skip_rest(ByteStream& stream, const AsnScope& scope) {
    if (!scope.isOpen)
        return stream.seek(scope.end);
    AsnHeader header;
    while (!asn_at_scope_end(stream, scope))
        if (!asn_skip_element(stream, scope.end, header))
            return false;
    return asn_leave(stream, scope);
}

bool asn_read_element(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag, size_t maxSize,
                      AsnList& element, int packLevel) {
    const size_t start = stream.offset();
    AsnScope inner = scope;
    if (!asn_enter(stream, inner, cls, tag))
        return false;
    size_t end = inner.end;
    if (inner.isOpen) { // its length shows only at its end
        if (!stream.seek(start) || !asn_skip_type(stream, scope.end, cls, tag))
            return false;
        end = stream.offset();
    }
    if (end - start > maxSize || !stream.seek(start))
        return false;
    element = asn_Parse(stream, false, true, packLevel);
    return element && stream.offset() == end;
}

bool asn_at_marker(ByteStream& stream) {
    const size_t start = stream.offset();
    const int first = stream.get(), second = stream.get();
    return !stream.seek(start) || (first == 0 && second == 0);
}

} // namespace zul
