#include "cert/make/time_value.h"

#include <algorithm>
#include <chrono>

#include "cert/make/extension_values.h"
#include "frame/err.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

using namespace std::chrono;

constexpr int kTmYear = 1900, kFirstYear = 1950, kLastYear = 9999;
constexpr int64_t kMinute = 60, kHour = 60 * kMinute, kDay = 24 * kHour;
constexpr int64_t kLastSecond = 253402300799; // of the year 9999
constexpr int64_t kMostNumber = 99999999;

year_month_day date_of(const tm& time) {
    return {year(time.tm_year + kTmYear), month(static_cast<unsigned>(time.tm_mon + 1)),
            day(static_cast<unsigned>(time.tm_mday))};
}

[[nodiscard]] int span_make(TimeSpan& span, int64_t number, std::string_view letter) {
    constexpr struct {
        char letter;
        int64_t seconds;
        int months;
    } kUnits[] = {{'h', kHour, 0}, {'d', kDay, 0}, {'w', 7 * kDay, 0}, {'m', 0, 1}, {'y', 0, 12}};
    for (const auto& unit : kUnits) {
        if (letter.size() != 1 || (letter[0] | 0x20) != unit.letter || number == 0 || number > kMostNumber)
            continue;
        span = {number * unit.seconds, static_cast<int>(number) * unit.months};
        return 0;
    }
    return err_fail(BAD_PARAM_ERROR, "A span is a number and h, d, w, m or y");
}

} // namespace

int64_t time_seconds(const tm& time) {
    return int64_t{sys_days(date_of(time)).time_since_epoch().count()} * kDay + time.tm_hour * kHour +
           time.tm_min * kMinute + time.tm_sec;
}

tm time_of_seconds(int64_t seconds) {
    const auto whole = floor<days>(std::chrono::seconds(seconds));
    const year_month_day date{sys_days(whole)};
    const auto clock = static_cast<int>(seconds - whole.count() * kDay);
    tm time = {};
    time.tm_year = static_cast<int>(date.year()) - kTmYear;
    time.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    time.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    time.tm_hour = clock / 3600;
    time.tm_min = clock / 60 % 60;
    time.tm_sec = clock % 60;
    return time;
}

int time_value_read(tm& time, const char* text, const char* clock) {
    if (!read_date_text(text, clock, &time))
        return err_fail(BAD_PARAM_ERROR, "Not a date");
    // RFC 5280, 4.1.2.5 has no form for earlier ones.
    return time.tm_year + kTmYear >= kFirstYear ? 0 : err_fail(BAD_PARAM_ERROR, "A date before 1950");
}

int time_span_read(TimeSpan& span, std::string_view text) {
    int64_t number = 0;
    for (; !text.empty() && text[0] >= '0' && text[0] <= '9' && number <= kMostNumber; text.remove_prefix(1))
        number = number * 10 + (text[0] - '0');
    return span_make(span, number, text);
}

int time_days_read(TimeSpan& span, std::string_view text) {
    int days = 0;
    if (const int error = small_number_read(days, text))
        return error;
    return span_make(span, days, "d");
}

int time_add(tm& time, const TimeSpan& span) {
    tm sum = time;
    if (span.months != 0) {
        const int64_t month = int64_t{time.tm_year} * 12 + time.tm_mon + span.months;
        sum.tm_mday = 1;
        sum.tm_year = static_cast<int>(std::min<int64_t>(month / 12, kLastYear));
        sum.tm_mon = static_cast<int>(month % 12);
        const year_month_day first = date_of(sum);
        const year_month_day_last last(first.year(), month_day_last(first.month()));
        sum.tm_mday = std::min(time.tm_mday, static_cast<int>(static_cast<unsigned>(last.day())));
    }
    const int64_t seconds = time_seconds(sum) + span.seconds;
    if (seconds > kLastSecond)
        return err_fail(BAD_PARAM_ERROR, "A date beyond the year 9999");
    time = time_of_seconds(seconds);
    return 0;
}

} // namespace zul
