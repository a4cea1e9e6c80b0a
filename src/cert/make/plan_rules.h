#pragma once
#include "cert/make/certificate_plan.h"
#include "key/key.h"

namespace zul {

// plan_complete puts in what the profile and the kind of the subject's key have as defaults, and checks that
// all parts go together (RFC 5280, 4.2; RFC 3279, 2.3; RFC 5480, 3; RFC 8410, 5): 0 or BAD_PARAM_ERROR with a
// text. A request without a profile gets no defaults.
[[nodiscard]] int plan_complete(CertificatePlan& plan, const Key& subjectKey);

} // namespace zul
