#pragma once
#include <cstdint>
#include <ctime>
#include <string_view>

namespace zul {

// time_seconds counts the seconds since 1970 of a time in UTC that exists.
int64_t time_seconds(const tm& time);
tm time_of_seconds(int64_t seconds);

// time_value_read reads a date text (x509_time.h) from 1950 on; without a time it has the one of clock,
// "hh:nn:ss". 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int time_value_read(tm& time, const char* text, const char* clock);

struct TimeSpan {
    int64_t seconds = 0;
    int months = 0;
};

// time_span_read reads a number, not 0, and a unit: h (hours), d (days), w (weeks), m (months) or y (years).
// 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int time_span_read(TimeSpan& span, std::string_view text);
[[nodiscard]] int time_days_read(TimeSpan& span, std::string_view text); // a number of days alone

// time_add adds a span. A day that the last month lacks becomes its last one. 0, or BAD_PARAM_ERROR with a
// text beyond the year 9999.
[[nodiscard]] int time_add(tm& time, const TimeSpan& span);

} // namespace zul
