// The entries of a CRL. Most of a list is never looked at but for its serial numbers, so whatever could hide
// some is refused: an entry longer than its fields, or with another entry in the place of its extensions.
#include <algorithm>
#include <cstring>

#include "frame/err.h"
#include "x509/crl/crl_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

// without_sign_octets drops the leading octets that an INTEGER does not need.
void without_sign_octets(const uint8_t*& bytes, size_t& length) {
    while (length > 1 && ((bytes[0] == 0x00 && bytes[1] < 0x80) || (bytes[0] == 0xFF && bytes[1] >= 0x80))) {
        bytes++;
        length--;
    }
}

} // namespace

bool CrlReader::read_serial(const AsnScope& entry, RawEntry& raw) {
    AsnScope serial = entry;
    if (!asn_enter(*stream_, serial, kAsnUniversal, kAsnInteger))
        return false;
    raw.serialLength = serial.end - stream_->offset();
    return raw.serialLength != 0 && raw.serialLength <= kMaxSerial &&
           stream_->read(serial_.data(), raw.serialLength) == raw.serialLength;
}

bool CrlReader::read_date(const AsnScope& entry, RawEntry& raw) {
    AsnScope date = entry;
    raw.dateTag =
        asn_next_is(*stream_, entry, kAsnUniversal, kAsnUtcTime) ? kAsnUtcTime : kAsnGeneralizedTime;
    if (!asn_enter(*stream_, date, kAsnUniversal, raw.dateTag))
        return false;
    raw.dateLength = std::min(date.end - stream_->offset(), kMaxDate);
    return stream_->read(date_, raw.dateLength) == raw.dateLength && stream_->seek(date.end);
}

// skip_entry_extensions steps over a SEQUENCE that is empty or begins with a SEQUENCE.
bool CrlReader::skip_entry_extensions(const AsnScope& entry) {
    AsnScope list = entry;
    return asn_enter(*stream_, list, kAsnConstructed, kAsnSequence) &&
           (asn_at_scope_end(*stream_, list) ||
            asn_skip_type(*stream_, list.end, kAsnConstructed, kAsnSequence)) &&
           asn_skip_rest(*stream_, list);
}

// take_entry: 1, 0 at the end, or -1 for anything but an entry.
int CrlReader::take_entry(RawEntry& raw) {
    if (asn_at_scope_end(*stream_, list_))
        return 0;
    AsnScope entry = list_;
    return asn_enter(*stream_, entry, kAsnConstructed, kAsnSequence) && read_serial(entry, raw) &&
                   read_date(entry, raw) &&
                   (asn_at_scope_end(*stream_, entry) || skip_entry_extensions(entry)) &&
                   asn_leave(*stream_, entry)
               ? 1
               : -1;
}

int CrlReader::read_entry(RawEntry& raw) {
    const int got = damaged_ ? -1 : take_entry(raw);
    if (got >= 0)
        return got;
    damaged_ = true;
    return -err_fail(INVALID_DATA_ERROR, "Invalid entry in CRL");
}

void CrlReader::show(const RawEntry& raw, CrlEntry& entry) {
    entry.serialNumber = serial_.data();
    entry.serialLength = raw.serialLength;
    asn_Node date = {};
    date.tag = raw.dateTag;
    date.length = static_cast<uint32_t>(raw.dateLength);
    date.data = raw.dateLength == 0 ? nullptr : date_;
    asn_time_text(&date, entry.revocationDate);
}

int CrlReader::next(CrlEntry& entry) {
    RawEntry raw;
    const int got = read_entry(raw);
    if (got == 1)
        show(raw, entry);
    return got;
}

int CrlReader::find(const uint8_t* serial, size_t length, CrlEntry& entry) {
    if (length == 0)
        return -INVALID_DATA_ERROR;
    without_sign_octets(serial, length);
    const uint8_t lastOctet = serial[length - 1];
    RawEntry raw;
    int got;
    while ((got = read_entry(raw)) == 1) {
        if (serial_[raw.serialLength - 1] != lastOctet)
            continue;
        const uint8_t* bytes = serial_.data();
        size_t size = raw.serialLength;
        without_sign_octets(bytes, size);
        if (size == length && memcmp(bytes, serial, size) == 0) {
            show(raw, entry);
            return 1;
        }
    }
    return got;
}

} // namespace zul
