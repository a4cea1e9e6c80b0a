// The entries of a CRL. Most of a list is never looked at but for its serial numbers, so whatever could hide
// some is refused: an entry longer than its fields, or with another entry in the place of its extensions.
#include <cstring>

#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "x509/crl/crl_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

// Cursor steps over the elements of an entry in memory.
class Cursor {
  public:
    Cursor(uint8_t* bytes, size_t size) : at_(bytes), end_(bytes + size) {}

    bool at_end() const { return at_ == end_; }
    // take steps behind an element of definite length; false if it does not end in time.
    bool take(uint8_t& octet, uint8_t*& content, size_t& length) {
        if (end_ - at_ < 2)
            return false;
        octet = *at_++;
        length = *at_++;
        if (length >= 0x80 && !take_long_length(length))
            return false;
        if (length > static_cast<size_t>(end_ - at_))
            return false;
        content = at_;
        at_ += length;
        return true;
    }

  private:
    bool take_long_length(size_t& length) {
        size_t count = length & 0x7F;
        if (count == 0 || count > 4 || count > static_cast<size_t>(end_ - at_))
            return false;
        for (length = 0; count > 0; count--)
            length = length << 8 | *at_++;
        return true;
    }

    uint8_t *at_, *end_;
};

// without_sign_octets drops the leading octets that an INTEGER does not need.
void without_sign_octets(const uint8_t*& bytes, size_t& length) {
    while (length > 1 && ((bytes[0] == 0x00 && bytes[1] < 0x80) || (bytes[0] == 0xFF && bytes[1] >= 0x80))) {
        bytes++;
        length--;
    }
}

} // namespace

// enter_entry reads the header of an entry: 1, 0 at the end, or -1 for what is not DER.
int CrlReader::enter_entry(size_t& size) {
    const size_t start = stream_->offset();
    if (start >= entriesEnd_)
        return 0;
    const int octet = stream_->get(), length = stream_->get();
    if (octet == kSequenceOctet && length >= 0 && length < 0x80) { // nearly all
        size = static_cast<size_t>(length);
        return stream_->offset() + size <= entriesEnd_ ? 1 : -1;
    }
    Element element;
    if (!stream_->seek(start) || read_header_of(kSequenceOctet, entriesEnd_, element) != 0)
        return -1;
    size = element.end - element.content;
    return 1;
}

bool CrlReader::parse_entry(size_t size, RawEntry& raw) {
    Cursor cursor(buffer_.data(), size);
    uint8_t octet = 0;
    if (!cursor.take(octet, raw.serial, raw.serialLength) || octet != kAsnInteger || raw.serialLength == 0 ||
        !cursor.take(raw.dateOctet, raw.date, raw.dateLength) || !is_time_octet(raw.dateOctet))
        return false;
    if (cursor.at_end())
        return true;
    uint8_t *extensions, *first; // crlEntryExtensions
    size_t length, firstLength;
    if (!cursor.take(octet, extensions, length) || octet != kSequenceOctet || !cursor.at_end())
        return false;
    return length == 0 ||
           (Cursor(extensions, length).take(octet, first, firstLength) && octet == kSequenceOctet);
}

int CrlReader::take_entry(RawEntry& raw) {
    size_t size = 0;
    const int got = enter_entry(size);
    if (got != 1)
        return got;
    if (size > kMaxEntry || stream_->read(buffer_.data(), size) != size || !parse_entry(size, raw))
        return -1;
    entriesRead_++;
    return 1;
}

// convert_at_entry stands before the same entry of the DER form then.
bool CrlReader::convert_at_entry() {
    const size_t count = entriesRead_;
    if (!convert() || read_fields() != 0)
        return false;
    RawEntry raw;
    for (entriesRead_ = 0; entriesRead_ < count;)
        if (take_entry(raw) != 1)
            return false;
    return true;
}

int CrlReader::read_entry(RawEntry& raw) {
    int got = damaged_ ? -1 : take_entry(raw);
    if (got < 0 && !damaged_ && convert_at_entry())
        got = take_entry(raw);
    if (got >= 0)
        return got;
    damaged_ = true;
    err_add_text("Invalid entry in CRL");
    return -INVALID_DATA_ERROR;
}

void CrlReader::show(const RawEntry& raw, CrlEntry& entry) {
    entry.serialNumber = raw.serial;
    entry.serialLength = raw.serialLength;
    time_of(raw.dateOctet, raw.date, raw.dateLength, entry.revocationDate);
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
        if (raw.serial[raw.serialLength - 1] != lastOctet)
            continue;
        const uint8_t* bytes = raw.serial;
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
