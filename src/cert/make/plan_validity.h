#pragma once
#include "cert/make/certificate_plan.h"

namespace zul {

// ValidityBounds is the validity of an issuer, in seconds since 1970.
struct ValidityBounds {
    int64_t notBefore, notAfter;
};

// plan_validity makes the Validity of a plan that is complete. Without a beginning it begins a minute ago, so
// that a system whose clock is slow accepts the certificate at once; without an end it takes 90 days, or ten
// years of an authority. These defaults give way to bounds, which may be null; what was given may exceed them
// only if mayExceed is set. 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int plan_validity(AsnList& validity, const CertificatePlan& plan, const ValidityBounds* bounds,
                                bool mayExceed);

} // namespace zul
