// Texts and times of elements.
#include <cstdio>
#include <cstring>

#include "asn1/asn_value.h"
#include "encode/utf8.h"
#include "frame/text.h"
#include "frame/thread_record.h"

namespace zul {

namespace {

bool is_plain_text(uint32_t tag) {
    switch (tag) {
    case kAsnNumericString:
    case kAsnPrintableString:
    case kAsnTeletexString:
    case kAsnIa5String:
    case kAsnUtcTime:
    case kAsnGeneralizedTime:
    case kAsnVisibleString:
        return true;
    default:
        return false;
    }
}

// from_wide takes the lowest byte of each character, false if one does not fit in it.
bool from_wide(SecretBuffer& text, const uint8_t* bytes, size_t n, size_t width) {
    if (n % width != 0)
        return false;
    for (size_t i = 0; i < n; i++)
        if (i % width == width - 1)
            text[i / width] = bytes[i];
        else if (bytes[i] != 0)
            return false;
    text.shrink(n / width);
    return true;
}

bool to_latin1(SecretBuffer& text, uint32_t tag, const uint8_t* bytes, size_t n) {
    Conversion converted;
    switch (tag) {
    case kAsnUtf8String:
        if (latin1_from_utf8(text.data(), n, bytes, n, &converted) != 0)
            return false;
        text[converted.stored] = 0;
        text.shrink(converted.stored);
        return true;
    case kAsnBmpString:
        return from_wide(text, bytes, n, 2);
    case kAsnUniversalString:
        return from_wide(text, bytes, n, 4);
    default:
        return false;
    }
}

SecretBuffer hex_text(const uint8_t* bytes, size_t n) {
    static const char kDigits[] = "0123456789ABCDEF";
    SecretBuffer text(3 * n + 1);
    char* end = text.text();
    for (size_t i = 0; i < n; i++) {
        *end++ = kDigits[bytes[i] >> 4];
        *end++ = kDigits[bytes[i] & 0xF];
        *end++ = ' ';
    }
    if (n != 0)
        end[-1] = '\0';
    text.shrink(n == 0 ? 0 : 3 * n - 1);
    return text;
}

} // namespace

SecretBuffer asn_GetText(const asn_Node* node, bool convert) {
    const size_t n = node == nullptr || node->data == nullptr ? 0 : node->length;
    if (n == 0 || n > kMaxAllocation / 3 - 1)
        return hex_text(nullptr, 0);
    const bool isUniversal = (node->cls & ~kAsnConstructed) == kAsnUniversal;
    SecretBuffer text(n + 1);
    text.shrink(n);
    if (isUniversal && is_plain_text(node->tag)) {
        memcpy(text.data(), node->data, n);
        return text;
    }
    if (isUniversal && convert && to_latin1(text, node->tag, node->data, n))
        return text;
    return hex_text(node->data, n);
}

namespace {

// Digits reads decimal fields of a bounded text, one after the other.
class Digits {
  public:
    Digits(const uint8_t* bytes, size_t n) : next_(bytes), end_(bytes + n) {}

    // field reads at most width digits. Once there is none, this field and all that follow are 0, and not
    // counted.
    int field(int width) {
        int value = 0, count = 0;
        for (; count < width && next_ != end_ && *next_ >= '0' && *next_ <= '9'; count++)
            value = value * 10 + (*next_++ - '0');
        if (count == 0)
            end_ = next_;
        else
            fields_++;
        return value;
    }
    int fields() const { return fields_; }

  private:
    const uint8_t* next_;
    const uint8_t* end_;
    int fields_ = 0;
};

} // namespace

int asn_GetTime(const asn_Node* node, tm* time) {
    if (node == nullptr)
        return -1;
    const bool isUtc = asn_is(node, kAsnUniversal, kAsnUtcTime);
    if (!isUtc && !asn_is(node, kAsnUniversal, kAsnGeneralizedTime))
        return 1;
    Digits digits(node->data, node->data == nullptr ? 0 : node->length);
    *time = {};
    const int year = digits.field(isUtc ? 2 : 4);
    if (isUtc)
        time->tm_year = year < 50 ? year + 100 : year;
    else
        time->tm_year = year - 1900;
    time->tm_mon = digits.field(2) - 1;
    time->tm_mday = digits.field(2);
    time->tm_hour = digits.field(2);
    time->tm_min = digits.field(2);
    time->tm_sec = digits.field(2);
    // What holds no date is no time; later fields may be missing. The caller judges whether the date exists.
    return digits.fields() < 3 ? 1 : 0;
}

const char* asn_time_text(const asn_Node* node, char out[kAsnTimeText]) {
    char text[80] = ""; // of any six numbers
    tm time;
    if (asn_GetTime(node, &time) == 0)
        snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02dZ", time.tm_year + 1900, time.tm_mon + 1,
                 time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    str_copy(out, text, kAsnTimeText);
    return out;
}

const char* asn_TimeString(const asn_Node* node) {
    static_assert(kAsnTimeText == kTimeTextSize);
    return asn_time_text(node, thread_record(RecordPath::error)->timeText);
}

} // namespace zul
