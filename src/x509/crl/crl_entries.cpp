// The entries of a CRL. A look-up compares serial numbers and skips the rest of most entries. So an entry
// that could hide others is refused: one longer than its fields, or with another entry in the place of its
// extensions.
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
    AsnScope serial = {entry.end};
    if (!asn_enter(*stream_, serial, kAsnUniversal, kAsnInteger))
        return false;
    raw.serialLength = serial.end - stream_->offset();
    if (raw.serialLength == 0 || raw.serialLength > kMaxSerial)
        return false;
    if (!entry.isOpen && stream_->holds(entry.end)) {
        raw.serial = stream_->take_view(raw.serialLength);
        return true;
    }
    raw.serial = serial_.data();
    return stream_->read(serial_.data(), raw.serialLength) == raw.serialLength;
}

bool CrlReader::read_date(const AsnScope& entry, RawEntry& raw, bool isWanted) {
    AsnScope date = {entry.end};
    raw.dateTag = stream_->peek() == kAsnGeneralizedTime ? kAsnGeneralizedTime : kAsnUtcTime;
    if (!asn_enter(*stream_, date, kAsnUniversal, raw.dateTag))
        return false;
    raw.dateLength = isWanted ? std::min(date.end - stream_->offset(), kMaxDate) : 0;
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

// take_entry reads the entry that the stream is at, and gives false for anything else. It reads the date only
// if the serial number ends with lastOctet (-1: any octet): that saves much of a look-up's time.
bool CrlReader::take_entry(RawEntry& raw, int lastOctet) {
    // Only the end is copied: loading a whole scope right after it was stored in parts stalls the processor.
    AsnScope entry = {list_.end};
    if (!asn_enter(*stream_, entry, kAsnConstructed, kAsnSequence) || !read_serial(entry, raw))
        return false;
    const bool isWanted = lastOctet < 0 || raw.serial[raw.serialLength - 1] == lastOctet;
    return read_date(entry, raw, isWanted) &&
           (asn_at_scope_end(*stream_, entry) || skip_entry_extensions(entry)) && asn_leave(*stream_, entry);
}

int CrlReader::read_entry(RawEntry& raw, int lastOctet, bool& found) {
    found = false;
    if (!damaged_ && asn_at_scope_end(*stream_, list_))
        return 0;
    if (!damaged_ && take_entry(raw, lastOctet)) {
        found = true;
        return 0;
    }
    damaged_ = true;
    return err_fail(INVALID_DATA_ERROR, "Invalid entry in CRL");
}

void CrlReader::show(const RawEntry& raw, CrlEntry& entry) {
    entry.serialNumber = raw.serial;
    entry.serialLength = raw.serialLength;
    asn_Node date = {};
    date.tag = raw.dateTag;
    date.length = static_cast<uint32_t>(raw.dateLength);
    date.data = raw.dateLength == 0 ? nullptr : date_;
    asn_time_text(&date, entry.revocationDate);
}

int CrlReader::next(CrlEntry& entry, bool& found) {
    RawEntry raw;
    const int error = read_entry(raw, -1, found);
    if (error == 0 && found)
        show(raw, entry);
    return error;
}

int CrlReader::find(const uint8_t* serial, size_t length, CrlEntry& entry, bool& found) {
    found = false;
    if (length == 0)
        return INVALID_DATA_ERROR;
    without_sign_octets(serial, length);
    const uint8_t lastOctet = serial[length - 1];
    RawEntry raw;
    int error;
    bool isEntry; // a local variable stays in a register
    while ((error = read_entry(raw, lastOctet, isEntry)) == 0 && isEntry) {
        if (raw.serial[raw.serialLength - 1] != lastOctet)
            continue;
        const uint8_t* bytes = raw.serial;
        size_t size = raw.serialLength;
        without_sign_octets(bytes, size);
        if (size == length && memcmp(bytes, serial, size) == 0) {
            show(raw, entry);
            found = true;
            break;
        }
    }
    return error;
}

} // namespace zul
