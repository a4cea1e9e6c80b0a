#pragma once
#include <ctime>

// The present time, and dates that callers give as text. (Times of elements: asn1/asn_value.h.)
namespace zul {

tm utc_now();

// A date text is "yyyy-mm-dd" with "-" or "/", optionally followed by "T" and "hh:nn:ss" and by "Z"; at most
// 32 characters. A missing month or day is 1. read_date_text uses defaultTime ("hh:nn:ss") if the text has no
// time. False for any other text, and for a date that does not exist.
bool read_date_text(const char* text, const char* defaultTime, tm* time);

} // namespace zul
