// Of a message only the headers on the way to the certificates are read: the content before them is skipped.
#include "x509/certificate_list.h"

#include <climits>
#include <cstring>

#include "asn1/asn_parse.h"
#include "asn1/oid.h"
#include "x509/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

// take_type steps over the OBJECT IDENTIFIER of a type; false for another.
bool take_type(ByteStream& stream, AsnScope scope, const char* type) {
    OidInfo known;
    uint8_t octets[sizeof known.bytes];
    if (!asn_enter(stream, scope, kAsnUniversal, kAsnOid))
        return false;
    const size_t length = scope.end - stream.offset();
    return oid_FromName(&known, type) > 0 && length == static_cast<size_t>(known.length) &&
           stream.read(octets, length) == length && memcmp(octets, known.bytes, length) == 0;
}

// enter_certificates steps over the fields of a SignedData into its certificate set, which is empty if there
// is none.
bool enter_certificates(ByteStream& stream, AsnScope& scope) {
    if (!asn_skip_type(stream, scope.end, kAsnUniversal, kAsnInteger) ||
        !asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSet) ||
        !asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSequence))
        return false;
    if (asn_next_is(stream, scope, kAsnExplicit, 0))
        return asn_enter(stream, scope, kAsnExplicit, 0);
    scope = {stream.offset(), false};
    return true;
}

bool is_sequence(const AsnHeader& header) {
    return header.cls == kAsnConstructed && header.tag == kAsnSequence;
}

} // namespace

bool enter_content_info(ByteStream& stream, AsnScope& scope, const char* type) {
    if (!asn_enter(stream, scope, kAsnConstructed, kAsnSequence))
        return false;
    return asn_next_is(stream, scope, kAsnUniversal, kAsnInteger) ||
           (take_type(stream, scope, type) && asn_enter(stream, scope, kAsnExplicit, 0) &&
            asn_enter(stream, scope, kAsnConstructed, kAsnSequence));
}

int CertificateBundle::open(DerSource& source) {
    ByteStream& stream = source.stream();
    AsnScope scope;
    return stream.seek(0) && enter_content_info(stream, scope, "signedData") &&
                   enter_certificates(stream, scope) && open_set(stream, scope)
               ? 0
               : BAD_FORMAT_ERROR;
}

bool CertificateBundle::open_set(ByteStream& stream, const AsnScope& scope) {
    stream_ = &stream;
    scope_ = scope;
    count_ = 0;
    while (count_ < INT_MAX && !asn_at_scope_end(stream, scope)) {
        const size_t offset = stream.offset();
        AsnHeader header;
        if (!asn_skip_element(stream, scope.end, header))
            return false;
        if (!is_sequence(header))
            continue;
        if (count_ < kMaxKept)
            kept_[count_] = {offset, stream.offset() - offset};
        count_++;
    }
    nextIndex_ = 0;
    return true;
}

// find steps on from the last certificate that was looked for, so that a walk over all of them steps over
// each once.
bool CertificateBundle::find(int n, Place& place) const {
    if (n < 0 || n >= count_)
        return false;
    if (n < kMaxKept) {
        place = kept_[n];
        return true;
    }
    if (n < nextIndex_ || nextIndex_ < kMaxKept) {
        nextIndex_ = kMaxKept;
        nextOffset_ = kept_[kMaxKept - 1].offset + kept_[kMaxKept - 1].size;
    }
    while (stream_->seek(nextOffset_) && !asn_at_scope_end(*stream_, scope_)) {
        const size_t offset = nextOffset_;
        AsnHeader header;
        if (!asn_skip_element(*stream_, scope_.end, header))
            return false;
        if (is_sequence(header) && nextIndex_ == n) {
            place = {offset, stream_->offset() - offset};
            return true;
        }
        nextOffset_ = stream_->offset();
        nextIndex_ += is_sequence(header);
    }
    return false;
}

AsnList CertificateBundle::certificate(int n) const {
    Place place;
    if (!find(n, place) || place.size > kMaxX509Object || !stream_->seek(place.offset))
        return {};
    return asn_ReadElement(*stream_);
}

} // namespace zul
