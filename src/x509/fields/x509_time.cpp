#include "x509/fields/x509_time.h"

#include <chrono>
#include <string_view>

#include "frame/slice.h"
#include "platform/platform.h"

namespace zul {

namespace {

using namespace std::chrono;

bool exists(const tm& time) {
    const year_month_day date(year(time.tm_year + 1900), month(static_cast<unsigned>(time.tm_mon + 1)),
                              day(static_cast<unsigned>(time.tm_mday)));
    return date.ok() && time.tm_hour < 24 && time.tm_min < 60 && time.tm_sec < 60;
}

// FieldReader reads the decimal fields of a text and what stands between them.
class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }

    // number reads up to max digits; false if there are fewer than min.
    bool number(size_t min, size_t max, int* value) {
        size_t count = 0;
        for (*value = 0; count < max && at_digit(); count++) {
            *value = *value * 10 + (rest_[0] - '0');
            rest_.remove_prefix(1);
        }
        return count >= min;
    }
    bool take(std::string_view oneOf) {
        const bool found = !rest_.empty() && oneOf.find(rest_[0]) != std::string_view::npos;
        rest_.remove_prefix(found);
        return found;
    }

  private:
    bool at_digit() const { return !rest_.empty() && rest_[0] >= '0' && rest_[0] <= '9'; }

    std::string_view rest_;
};

} // namespace

tm utc_now() {
    constexpr sys_days kEpoch = year(1601) / January / 1;
    using Ticks = duration<int64_t, std::ratio<1, 10000000>>;
    const Ticks ticks(static_cast<int64_t>(platform::system_time()));
    const auto wholeDays = floor<days>(ticks);
    const year_month_day date(kEpoch + wholeDays);
    const hh_mm_ss clock(floor<seconds>(ticks - wholeDays));
    tm now = {};
    now.tm_year = static_cast<int>(date.year()) - 1900;
    now.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    now.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    now.tm_hour = static_cast<int>(clock.hours().count());
    now.tm_min = static_cast<int>(clock.minutes().count());
    now.tm_sec = static_cast<int>(clock.seconds().count());
    return now;
}

namespace {

constexpr size_t kMaxDateText = 32;

bool read_clock(FieldReader& fields, tm& time) {
    if (!fields.number(1, 2, &time.tm_hour))
        return false;
    for (int* field : {&time.tm_min, &time.tm_sec})
        if (fields.take(":") && !fields.number(1, 2, field))
            return false;
    return true;
}

// read_date completes a short year: one below 70 becomes 20xx, one below 1900 counts from 1900.
bool read_date(FieldReader& fields, tm& time) {
    int wholeYear;
    if (!fields.number(1, 4, &wholeYear) || wholeYear == 0)
        return false;
    if (wholeYear < 70)
        wholeYear += 2000;
    else if (wholeYear < 1900)
        wholeYear += 1900;
    time.tm_year = wholeYear - 1900;
    time.tm_mon = time.tm_mday = 1;
    for (int* field : {&time.tm_mon, &time.tm_mday})
        if (fields.take("-/") && !fields.number(1, 2, field))
            return false;
    time.tm_mon--;
    return true;
}

} // namespace

bool read_date_text(const char* text, const char* defaultTime, tm* time) {
    const std::string_view whole(text == nullptr ? "" : text);
    if (whole.size() > kMaxDateText)
        return false;
    FieldReader fields(trimmed(whole, " \t"));
    tm read = {};
    if (!read_date(fields, read))
        return false;
    FieldReader clock(defaultTime == nullptr ? "00:00:00" : defaultTime);
    if (!read_clock(fields.take("T") ? fields : clock, read))
        return false;
    fields.take("Z");
    if (!fields.at_end() || !exists(read))
        return false;
    *time = read;
    return true;
}

} // namespace zul
