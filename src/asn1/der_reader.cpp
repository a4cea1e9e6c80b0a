#include "asn1/der_reader.h"

#include <climits>

namespace zul {

namespace {

// read_length reads the length octets (X.690, 8.1.3 and 10.1) of at most four bytes of length.
bool read_length(const uint8_t*& at, const uint8_t* end, size_t& length) {
    if (at == end)
        return false;
    length = *at++;
    if (length < 0x80)
        return true;
    const size_t octets = length & 0x7F;
    if (octets == 0 || octets > 4 || octets > static_cast<size_t>(end - at) || *at == 0)
        return false;
    length = 0;
    for (size_t i = 0; i < octets; i++)
        length = length << 8 | *at++;
    return length >= 0x80;
}

bool two_digits(const uint8_t* at, int least, int most, int& value) {
    const int tens = at[0] - '0', units = at[1] - '0';
    value = 10 * tens + units;
    return tens >= 0 && tens <= 9 && units >= 0 && units <= 9 && value >= least && value <= most;
}

// days_from_civil counts days since 1970-01-01 in the Gregorian calendar.
int64_t days_from_civil(int year, int month, int day) {
    const int64_t y = month <= 2 ? year - 1 : year;
    const int64_t era = (y >= 0 ? y : y - 399) / 400, yearOfEra = y - era * 400;
    const int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

int days_of_month(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[month - 1] + (month == 2 && isLeap ? 1 : 0);
}

} // namespace

bool DerReader::take_any(DerElement& element) {
    const uint8_t* at = next_;
    size_t length;
    if (at == end_ || (*at & 0x1F) == 0x1F)
        return false;
    const uint8_t identifier = *at++;
    if (!read_length(at, end_, length) || length > static_cast<size_t>(end_ - at))
        return false;
    element.identifier = identifier;
    element.content = {at, length};
    element.encoding = {next_, static_cast<size_t>(at + length - next_)};
    next_ = at + length;
    return true;
}

bool DerReader::take(uint8_t identifier, DerView& content) {
    DerElement element;
    if (!next_is(identifier) || !take_any(element))
        return false;
    content = element.content;
    return true;
}

bool DerReader::take_optional(uint8_t identifier, DerView& content, bool& found) {
    found = next_is(identifier);
    return !found || take(identifier, content);
}

bool der_single(DerView bytes, uint8_t identifier, DerView& content) {
    DerReader reader(bytes);
    return reader.take(identifier, content) && reader.at_end();
}

bool der_boolean(DerView content, bool& value) {
    if (content.size != 1 || (content[0] != 0 && content[0] != 0xFF))
        return false;
    value = content[0] != 0;
    return true;
}

bool der_is_integer(DerView content) {
    if (content.size < 2)
        return content.size == 1;
    return !((content[0] == 0 && content[1] < 0x80) || (content[0] == 0xFF && content[1] >= 0x80));
}

bool der_small_integer(DerView content, int& value) {
    if (!der_is_integer(content) || content[0] >= 0x80)
        return false;
    int64_t number = content.size > 5 ? INT_MAX : 0;
    for (size_t i = 0; i < content.size && content.size <= 5; i++)
        number = number << 8 | content[i];
    value = number > INT_MAX ? INT_MAX : static_cast<int>(number);
    return true;
}

bool der_is_oid(DerView content) {
    if (content.empty() || content[content.size - 1] >= 0x80)
        return false;
    bool atStart = true; // of an arc, which begins with no zero digit
    for (const uint8_t octet : content) {
        if (atStart && octet == 0x80)
            return false;
        atStart = octet < 0x80;
    }
    return true;
}

bool der_bits(DerView content, DerView& bytes, unsigned& unused) {
    if (content.empty() || content[0] > 7 || (content.size == 1 && content[0] != 0))
        return false;
    unused = content[0];
    bytes = {content.data + 1, content.size - 1};
    return unused == 0 || (bytes[bytes.size - 1] & ((1U << unused) - 1)) == 0;
}

bool der_flags(DerView content, uint32_t& flags) {
    DerView bytes;
    unsigned unused;
    if (!der_bits(content, bytes, unused))
        return false;
    flags = 0;
    for (size_t bit = 0; bit < 8 * bytes.size && bit < 32; bit++)
        flags |= static_cast<uint32_t>(bytes[bit / 8] >> (7 - bit % 8) & 1) << bit;
    return true;
}

bool der_time(const DerElement& element, int64_t& seconds) {
    const uint8_t* at = element.content.data;
    int century = 0, year, month, day, hour, minute, second;
    if (element.is(kDerGeneralizedTime)) {
        if (element.content.size != 15 || !two_digits(at, 0, 99, century))
            return false;
        at += 2;
    } else if (!element.is(kDerUtcTime) || element.content.size != 13) {
        return false;
    }
    if (!two_digits(at, 0, 99, year) || !two_digits(at + 2, 1, 12, month) ||
        !two_digits(at + 4, 1, 31, day) || !two_digits(at + 6, 0, 23, hour) ||
        !two_digits(at + 8, 0, 59, minute) || !two_digits(at + 10, 0, 59, second) || at[12] != 'Z')
        return false;
    if (element.is(kDerUtcTime))
        century = year < 50 ? 20 : 19;
    year += 100 * century;
    if (day > days_of_month(year, month))
        return false;
    seconds = ((days_from_civil(year, month, day) * 24 + hour) * 60 + minute) * 60 + second;
    return true;
}

} // namespace zul
