// Times of elements.
#include <string_view>

#include "asn1/asn_value.h"
#include "frame/thread_record.h"

namespace zul {

namespace {

// Digits reads decimal fields of a bounded text, one after the other.
class Digits {
  public:
    Digits(const uint8_t* bytes, size_t n) : next_(bytes), end_(bytes + n) {}

    // field reads at most width digits. Once there is none, this field and all that follow are 0, and not
    // counted.
    [[nodiscard]] int field(int width) {
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
    // Later fields may be missing.
    return digits.fields() < 3 ? 1 : 0;
}

// snprintf would take longer than everything else on an entry of a CRL.
void asn_format_time(const tm& time, char out[kAsnTimeText]) {
    constexpr std::string_view kMarks = "--T::Z";
    const int fields[] = {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday,
                          time.tm_hour,        time.tm_min,     time.tm_sec};
    for (size_t i = 0; i < kMarks.size(); i++) {
        const size_t digits = i == 0 ? 4 : 2;
        auto rest = static_cast<unsigned>(fields[i]);
        for (size_t place = digits; place-- > 0; rest /= 10)
            out[place] = static_cast<char>('0' + rest % 10);
        out += digits;
        *out++ = kMarks[i];
    }
    *out = '\0';
}

const char* asn_time_text(const asn_Node* node, char out[kAsnTimeText]) {
    tm time;
    *out = '\0';
    if (asn_GetTime(node, &time) == 0)
        asn_format_time(time, out);
    return out;
}

const char* asn_TimeString(const asn_Node* node) {
    static_assert(kAsnTimeText == kTimeTextSize);
    return asn_time_text(node, thread_record(RecordPath::error)->timeText);
}

} // namespace zul
