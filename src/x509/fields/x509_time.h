#pragma once
#include <ctime>

#include "asn1/asn_value.h"

// Times of certificates: UTC, from year 0 to 9999.
namespace zul {

tm utc_now();
void time_text(const tm& time, char out[kAsnTimeText]); // "yyyy-mm-ddThh:nn:ssZ"

// read_time reads a UTCTime or GeneralizedTime as RFC 5280, 4.1.2.5 has them: false for one without "Z" (its
// zone is unknown), with an offset, or of a date or hour that does not exist. Seconds may be missing; a
// fraction is cut off. read_time_text is empty where read_time is false.
bool read_time(const asn_Node* node, tm* time);
const char* read_time_text(const asn_Node* node, char out[kAsnTimeText]);

// A date text is "yyyy-mm-dd", "/" for "-" if one likes, and after "T" perhaps "hh:nn:ss" and "Z"; at most 32
// characters; month and day may be missing and are 1 then. read_date_text puts defaultTime ("hh:nn:ss") where
// no time is. False if it is no such text or the date does not exist.
bool read_date_text(const char* text, const char* defaultTime, tm* time);

} // namespace zul
