#pragma once
#include "cert/fields/certificate_view.h"
#include "cert/make/certificate_plan.h"

namespace zul {

// plan_copy_extensions takes the extensions that the plan names over from a request into the plan, as if a
// description had given them: 0, BAD_FORMAT_ERROR (malformed, or not what a description may give) or
// BAD_PARAM_ERROR (given by the description too, or of a type that is not copied), with a text. What the
// request lacks adds nothing.
[[nodiscard]] int plan_copy_extensions(CertificatePlan& plan, const RequestView& request);

} // namespace zul
