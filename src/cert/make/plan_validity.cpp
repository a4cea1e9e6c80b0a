#include "cert/make/plan_validity.h"

#include <algorithm>

#include "asn1/asn_build.h"
#include "frame/err.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int64_t kMinute = 60;
constexpr TimeSpan kEndEntitySpan{int64_t{90} * 86400, 0}, kAuthoritySpan{0, 120};

// end_of gives the last second of a span: both ends belong to a validity (RFC 5280, 4.1.2.5). The second
// after it may be beyond the year 9999.
[[nodiscard]] int end_of(int64_t& last, int64_t first, TimeSpan span) {
    tm time = time_of_seconds(first);
    span.seconds--;
    if (const int error = time_add(time, span))
        return error;
    last = time_seconds(time);
    return 0;
}

} // namespace

int plan_validity(AsnList& validity, const CertificatePlan& plan, const ValidityBounds* bounds,
                  bool mayExceed) {
    if (mayExceed)
        bounds = nullptr;
    int64_t first = plan.notBefore ? time_seconds(*plan.notBefore) : time_seconds(utc_now()) - kMinute, last;
    if (!plan.notBefore && bounds != nullptr)
        first = std::max(first, bounds->notBefore);
    if (plan.notAfter)
        last = time_seconds(*plan.notAfter);
    else if (const int error = end_of(last, first,
                                      plan.span                   ? *plan.span
                                      : plan.isCa.value_or(false) ? kAuthoritySpan
                                                                  : kEndEntitySpan))
        return error;
    if (!plan.notAfter && !plan.span && bounds != nullptr)
        last = std::min(last, bounds->notAfter);
    if (bounds != nullptr && first > bounds->notAfter)
        return err_fail(BAD_PARAM_ERROR, "The issuer's certificate has expired by then");
    if (bounds != nullptr && (first < bounds->notBefore || last > bounds->notAfter))
        return err_fail(BAD_PARAM_ERROR, "The validity exceeds that of the issuer's certificate");
    if (last < first)
        return err_fail(BAD_PARAM_ERROR, "The validity ends before it begins");
    validity =
        asn_NewSequence(asn_Link(asn_NewTime(time_of_seconds(first)), asn_NewTime(time_of_seconds(last))));
    return 0;
}

} // namespace zul
