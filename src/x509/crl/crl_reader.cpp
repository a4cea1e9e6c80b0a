// The fields of a CRL before and after its entries. What could hide entries from a look-up is refused: an
// unknown field, or a list of another type.
#include "x509/crl/crl_reader.h"

#include "asn1/asn_element.h"
#include "frame/err.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {

int CrlReader::open(DerSource& source) {
    constexpr size_t kMaxName = 1 << 20; // bytes
    stream_ = &source.stream();
    object_ = {};
    if (!stream_->seek(0) || !asn_enter(*stream_, object_, kAsnConstructed, kAsnSequence))
        return BAD_FORMAT_ERROR;
    serial_ = SecretBuffer(kMaxSerial);
    toBeSigned_ = object_;
    const bool read =
        asn_enter(*stream_, toBeSigned_, kAsnConstructed, kAsnSequence) && read_version() &&
        asn_skip_type(*stream_, toBeSigned_.end, kAsnConstructed, kAsnSequence) && // the algorithm
        asn_read_element(*stream_, toBeSigned_, kAsnConstructed, kAsnSequence, kMaxName, issuer_, 0);
    return read ? read_times() : BAD_FORMAT_ERROR;
}

bool CrlReader::read_version() {
    if (!asn_next_is(*stream_, toBeSigned_, kAsnUniversal, kAsnInteger))
        return true;
    AsnScope number = toBeSigned_;
    if (!asn_enter(*stream_, number, kAsnUniversal, kAsnInteger) || number.end != stream_->offset() + 1)
        return false;
    const int octet = stream_->get();
    version_ = octet + 1;
    return octet >= 0 && octet <= 0x7F;
}

bool CrlReader::at_time() const {
    return asn_next_is(*stream_, toBeSigned_, kAsnUniversal, kAsnUtcTime) ||
           asn_next_is(*stream_, toBeSigned_, kAsnUniversal, kAsnGeneralizedTime);
}

int CrlReader::read_time_field(char out[kAsnTimeText]) {
    const auto tag = static_cast<uint32_t>(stream_->peek());
    AsnList time;
    if (!asn_read_element(*stream_, toBeSigned_, kAsnUniversal, tag, kMaxDate, time))
        return BAD_FORMAT_ERROR;
    return *asn_time_text(time.head(), out) != '\0' ? 0 : err_fail(INVALID_DATA_ERROR, "Invalid time in CRL");
}

// read_times reads thisUpdate and, if it is there, nextUpdate.
int CrlReader::read_times() {
    if (!at_time())
        return BAD_FORMAT_ERROR;
    int error = read_time_field(thisUpdate_);
    if (error == 0 && at_time())
        error = read_time_field(nextUpdate_);
    return error != 0 ? error : enter_list() ? 0 : BAD_FORMAT_ERROR;
}

// enter_list goes to the first entry, or makes an empty scope if there is no list.
bool CrlReader::enter_list() {
    list_ = toBeSigned_;
    if (asn_next_is(*stream_, toBeSigned_, kAsnConstructed, kAsnSequence))
        return asn_enter(*stream_, list_, kAsnConstructed, kAsnSequence);
    list_ = {stream_->offset(), false};
    return asn_at_scope_end(*stream_, toBeSigned_) || asn_next_is(*stream_, toBeSigned_, kAsnExplicit, 0);
}

int CrlReader::finish() {
    return !damaged_ && read_end() ? 0 : INVALID_DATA_ERROR;
}

bool CrlReader::read_end() {
    if (!asn_skip_rest(*stream_, list_))
        return false;
    if (asn_next_is(*stream_, toBeSigned_, kAsnExplicit, 0) && !skip_extensions())
        return false;
    if (!asn_leave(*stream_, toBeSigned_) ||
        !x509_read_signature(*stream_, object_, signatureAlgorithm_, signatureValue_))
        return false;
    signatureValue_ = asn_ToDer(std::move(signatureValue_));
    return static_cast<bool>(signatureValue_);
}

// skip_extensions steps over crlExtensions: a SEQUENCE that is empty or begins with a SEQUENCE.
bool CrlReader::skip_extensions() {
    AsnScope wrapper = toBeSigned_;
    if (!asn_enter(*stream_, wrapper, kAsnExplicit, 0))
        return false;
    AsnScope list = wrapper;
    return asn_enter(*stream_, list, kAsnConstructed, kAsnSequence) &&
           (asn_at_scope_end(*stream_, list) ||
            asn_skip_type(*stream_, list.end, kAsnConstructed, kAsnSequence)) &&
           asn_skip_rest(*stream_, list) && asn_leave(*stream_, wrapper);
}

} // namespace zul
