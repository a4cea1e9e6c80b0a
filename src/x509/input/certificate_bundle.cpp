// The reader takes the headers around the certificates of a message and skips its content and signers.
#include "x509/input/certificate_bundle.h"

#include <climits>
#include <cstring>

#include "asn1/asn_parse.h"
#include "asn1/oid.h"
#include "x509/input/x509_input.h"
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

// skip_encapsulated steps over an EncapsulatedContentInfo.
bool skip_encapsulated(ByteStream& stream, const AsnScope& scope) {
    const size_t start = stream.offset();
    AsnScope inner = scope;
    return asn_enter(stream, inner, kAsnConstructed, kAsnSequence) &&
           asn_next_is(stream, inner, kAsnUniversal, kAsnOid) && stream.seek(start) &&
           asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSequence);
}

bool is_sequence(const AsnHeader& header) {
    return header.cls == kAsnConstructed && header.tag == kAsnSequence;
}

} // namespace

bool enter_content_info(ByteStream& stream, ContentInfoScope& scope, const char* type) {
    scope = {};
    if (!asn_enter(stream, scope.structure, kAsnConstructed, kAsnSequence))
        return false;
    scope.isBare = asn_next_is(stream, scope.structure, kAsnUniversal, kAsnInteger);
    if (scope.isBare)
        return true;
    scope.info = scope.wrapper = scope.structure;
    if (!take_type(stream, scope.info, type) || !asn_enter(stream, scope.wrapper, kAsnExplicit, 0))
        return false;
    scope.structure = scope.wrapper;
    return asn_enter(stream, scope.structure, kAsnConstructed, kAsnSequence);
}

bool leave_content_info(ByteStream& stream, const ContentInfoScope& scope) {
    return asn_leave(stream, scope.structure) &&
           (scope.isBare || (asn_leave(stream, scope.wrapper) && asn_leave(stream, scope.info)));
}

int CertificateBundle::open(DerSource& source) {
    ByteStream& stream = source.stream();
    ContentInfoScope scope;
    return stream.seek(0) && enter_content_info(stream, scope, "signedData") &&
                   open_fields(stream, scope.structure) && leave_content_info(stream, scope)
               ? 0
               : BAD_FORMAT_ERROR;
}

// open_fields steps over all fields of a SignedData and takes the set of certificates. A missing set counts
// as empty.
bool CertificateBundle::open_fields(ByteStream& stream, const AsnScope& scope) {
    constexpr uint32_t kCertificates = 0, kRevocationLists = 1;
    if (!asn_skip_type(stream, scope.end, kAsnUniversal, kAsnInteger) ||
        !asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSet) || !skip_encapsulated(stream, scope))
        return false;
    AsnScope set = {stream.offset(), false};
    if (asn_next_is(stream, scope, kAsnExplicit, kCertificates)) {
        set = scope;
        if (!asn_enter(stream, set, kAsnExplicit, kCertificates))
            return false;
    }
    return open_set(stream, set) && asn_leave(stream, set) &&
           asn_skip_optional(stream, scope, kAsnExplicit, kRevocationLists) &&
           asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSet);
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

// find goes on from the certificate of the last call, so a loop over all of them steps over each once.
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
    return asn_Parse(*stream_, false, true, kX509NameLevel);
}

} // namespace zul
