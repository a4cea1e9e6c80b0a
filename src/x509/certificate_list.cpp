// Of a message only the headers on the way to the certificates are read: the content before them is skipped.
#include "x509/certificate_list.h"

#include <climits>
#include <cstring>

#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "asn1/oid.h"
#include "x509/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

// Scope is where the content of an element ends: at an offset, or, if it is open, at an end-of-contents
// marker before that.
struct Scope {
    size_t end = SIZE_MAX;
    bool isOpen = false;
};

// enter steps into an element of one type inside a scope, which becomes that of its content.
bool enter(ByteStream& stream, Scope& scope, uint32_t cls, uint32_t tag) {
    AsnHeader header;
    if (asn_read_header(stream, header) != 1 || header.cls != cls || header.tag != tag)
        return false;
    scope.isOpen = header.ndef != 0;
    if (scope.isOpen)
        return (cls & kAsnConstructed) != 0;
    const size_t offset = stream.offset();
    if (offset > scope.end || header.length > scope.end - offset || header.length > stream.remaining())
        return false;
    scope.end = offset + header.length;
    return true;
}

// skip_element goes behind an element that ends by the limit. Inside one of indefinite length only the depth
// is counted, so no nesting is too deep. An end-of-contents marker is no element.
bool skip_element(ByteStream& stream, size_t limit, AsnHeader& first) {
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

bool skip_type(ByteStream& stream, size_t limit, uint32_t cls, uint32_t tag) {
    AsnHeader header;
    return skip_element(stream, limit, header) && header.cls == cls && header.tag == tag;
}

// enter_content_info steps into the SignedData of a ContentInfo; false if the stream is at no ContentInfo.
bool enter_content_info(ByteStream& stream, Scope& scope) {
    OidInfo type;
    uint8_t octets[sizeof type.bytes];
    Scope oid = scope;
    if (!enter(stream, oid, kAsnUniversal, kAsnOid))
        return false;
    const size_t length = oid.end - stream.offset();
    return oid_FromName(&type, "signedData") > 0 && length == static_cast<size_t>(type.length) &&
           stream.read(octets, length) == length && memcmp(octets, type.bytes, length) == 0 &&
           enter(stream, scope, kAsnExplicit, 0) && enter(stream, scope, kAsnConstructed, kAsnSequence);
}

// enter_certificates steps over the fields of a SignedData into its certificate set, which is empty if there
// is none.
bool enter_certificates(ByteStream& stream, Scope& scope) {
    if (!skip_type(stream, scope.end, kAsnUniversal, kAsnInteger) ||
        !skip_type(stream, scope.end, kAsnConstructed, kAsnSet) ||
        !skip_type(stream, scope.end, kAsnConstructed, kAsnSequence))
        return false;
    const size_t start = stream.offset();
    const bool isThere = start < scope.end && stream.get() == (kAsnExplicit | 0);
    if (!stream.seek(start))
        return false;
    if (isThere)
        return enter(stream, scope, kAsnExplicit, 0);
    scope = {start, false};
    return true;
}

// at_scope_end tells whether no element follows.
bool at_scope_end(ByteStream& stream, const Scope& scope) {
    const size_t start = stream.offset();
    if (!scope.isOpen || start >= scope.end)
        return start >= scope.end;
    const int first = stream.get(), second = stream.get();
    return !stream.seek(start) || (first == 0 && second == 0);
}

bool is_sequence(const AsnHeader& header) {
    return header.cls == kAsnConstructed && header.tag == kAsnSequence;
}

} // namespace

int CertificateBundle::open(DerSource& source) {
    stream_ = &source.stream();
    ByteStream& stream = *stream_;
    Scope scope;
    if (!stream.seek(0) || !enter(stream, scope, kAsnConstructed, kAsnSequence))
        return BAD_FORMAT_ERROR;
    const size_t inside = stream.offset();
    Scope inner = scope;
    if (enter_content_info(stream, inner))
        scope = inner;
    else if (!stream.seek(inside))
        return BAD_FORMAT_ERROR;
    if (!enter_certificates(stream, scope))
        return BAD_FORMAT_ERROR;

    while (count_ < INT_MAX && !at_scope_end(stream, scope)) {
        const size_t offset = stream.offset();
        AsnHeader header;
        if (!skip_element(stream, scope.end, header))
            return BAD_FORMAT_ERROR;
        if (!is_sequence(header))
            continue;
        if (count_ < kMaxKept)
            kept_[count_] = {offset, stream.offset() - offset};
        count_++;
    }
    return 0;
}

AsnList CertificateBundle::certificate(int n) const {
    if (n < 0 || n >= count_ || n >= kMaxKept || kept_[n].size > kMaxX509Object ||
        !stream_->seek(kept_[n].offset))
        return {};
    return asn_ReadElement(*stream_);
}

} // namespace zul
