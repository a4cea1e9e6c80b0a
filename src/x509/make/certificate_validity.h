#pragma once
#include <ctime>

namespace zul {

struct CertificateText;

// certificate_validity gives the period of a new certificate, from the dates of its text or else from a
// minute ago for a number of years: 0, or BAD_PARAM_ERROR with a text.
[[nodiscard]] int certificate_validity(const CertificateText& text, int yearsValid, tm* notBefore,
                                       tm* notAfter);

} // namespace zul
