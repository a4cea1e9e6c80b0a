#include "x509/make/certificate_validity.h"

#include "frame/err.h"
#include "platform/platform.h"
#include "x509/fields/x509_time.h"
#include "x509/make/extension_text.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kTmYear = 1900, kLastYear = 9999;
constexpr int kFebruary = 1;

bool read_date(const SecretBuffer& text, const char* defaultTime, tm* time) {
    return read_date_text(text.empty() ? "" : text.text(), defaultTime, time);
}

// A validity begins a minute ago so that a system whose clock is slow accepts the certificate at once. UTC is
// normalised as local time, so the result is off by the zone's offset. Callers rely on that.
tm a_minute_ago() {
    const tm now = utc_now();
    tm time = now;
    time.tm_min -= 1;
    time.tm_sec = 1;
    time.tm_isdst = 0;
    return platform::local_time_normalise(&time) ? time : now;
}

bool is_leap_year(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// add_years changes the year alone, but makes 29 February 28 February in a common year.
bool add_years(tm* time, int years) {
    const int year = time->tm_year + kTmYear;
    if (years > kLastYear - year)
        return false;
    time->tm_year += years;
    if (time->tm_mon == kFebruary && time->tm_mday == 29 && !is_leap_year(year + years))
        time->tm_mday = 28;
    return true;
}

} // namespace

int certificate_validity(const CertificateText& text, int yearsValid, tm* notBefore, tm* notAfter) {
    if (!text.notBefore)
        *notBefore = a_minute_ago();
    else if (!read_date(*text.notBefore, "00:00:01", notBefore))
        return err_fail(BAD_PARAM_ERROR, "notBefore time is invalid");

    if (text.notAfter)
        return read_date(*text.notAfter, "23:59:59", notAfter)
                   ? 0
                   : err_fail(BAD_PARAM_ERROR, "notAfter time is invalid");
    if (yearsValid < 1)
        return err_fail(BAD_PARAM_ERROR, "Invalid yearsValid value");
    *notAfter = *notBefore;
    return add_years(notAfter, yearsValid) ? 0 : err_fail(BAD_PARAM_ERROR, "notAfter time is invalid");
}

} // namespace zul
