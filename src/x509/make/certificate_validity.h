#pragma once
#include <ctime>

namespace zul {

struct CertificateText;

// certificate_validity gives the validity of a new certificate: 0, or BAD_PARAM_ERROR with a text. Without
// dates in the text it begins a minute ago and lasts yearsValid years.
[[nodiscard]] int certificate_validity(const CertificateText& text, int yearsValid, tm* notBefore,
                                       tm* notAfter);

} // namespace zul
