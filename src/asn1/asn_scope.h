#pragma once
#include <cstddef>
#include <cstdint>

#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "asn1/byte_stream.h"

// A walk over elements in a stream, for objects that are too large to be parsed: it reads headers and steps
// over contents. After a failure the position of the stream is undefined. A type is one identifier octet,
// with a tag below 31; the same tag in the form for higher ones is another type.
namespace zul {

// AsnScope is where the content of an element ends: at an offset, or, if it is open, at an end-of-contents
// marker before that.
struct AsnScope {
    size_t end = SIZE_MAX;
    bool isOpen = false;
};

// asn_enter steps into an element of one type inside a scope, which becomes that of its content. An open
// scope inside another is to be left by asn_leave before the outer one is used again.
[[nodiscard]] bool asn_enter_any(ByteStream& stream, AsnScope& scope, uint32_t cls, uint32_t tag);
[[nodiscard]] inline bool asn_enter(ByteStream& stream, AsnScope& scope, uint32_t cls, uint32_t tag) {
    size_t length; // the short form is nearly all of a long list
    if (!stream.take_short_header(static_cast<uint8_t>(cls | tag), length))
        return asn_enter_any(stream, scope, cls, tag);
    const size_t end = stream.offset() + length;
    const bool fits = end <= scope.end;
    scope = {end, false};
    return fits;
}
// asn_leave steps from the end of a scope's last element behind the end-of-contents marker that an open one
// has to have: false if elements are left.
[[nodiscard]] bool asn_leave_open(ByteStream& stream, const AsnScope& inner);
[[nodiscard]] inline bool asn_leave(ByteStream& stream, const AsnScope& inner) {
    return inner.isOpen ? asn_leave_open(stream, inner) : stream.offset() == inner.end;
}

// asn_skip_element goes behind an element that has to end by the limit. Inside one of indefinite length only
// the depth is counted, so no nesting is too deep. An end-of-contents marker is no element.
[[nodiscard]] bool asn_skip_element(ByteStream& stream, size_t limit, AsnHeader& first);
[[nodiscard]] bool asn_skip_type(ByteStream& stream, size_t limit, uint32_t cls, uint32_t tag);
// asn_skip_rest goes from the beginning of an element in a scope to the end of the scope and leaves it.
[[nodiscard]] bool asn_skip_rest(ByteStream& stream, const AsnScope& scope);
// asn_skip_optional is also true if another element or none follows.
[[nodiscard]] bool asn_skip_optional(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag);
// asn_read_element parses an element of one type, of at most maxSize bytes, and goes behind it. It checks the
// size before it takes memory. packLevel: see asn_Parse.
[[nodiscard]] bool asn_read_element(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag,
                                    size_t maxSize, AsnList& element, int packLevel = kAsnPackNone);

// asn_at_scope_end tells whether no element follows; the stream stays where it is.
bool asn_at_marker(ByteStream& stream);
inline bool asn_at_scope_end(ByteStream& stream, const AsnScope& scope) {
    return stream.offset() >= scope.end || (scope.isOpen && asn_at_marker(stream));
}
// asn_next_is tells whether the next element inside a scope has an identifier octet.
inline bool asn_next_is(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag) {
    return stream.offset() < scope.end && stream.peek() == static_cast<int>(cls | tag);
}

} // namespace zul
