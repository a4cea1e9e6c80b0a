#pragma once
#include <cstdint>
#include <string_view>

namespace zul {

// Values of CRLReason (RFC 5280, 5.3.1) that have rules of their own.
constexpr int kReasonUnspecified = 0, kReasonCertificateHold = 6, kReasonRemoveFromCrl = 8;

// crl_reason_read reads the name of a reason, in any case: 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int crl_reason_read(int& reason, std::string_view name);

// crl_reason_flag gives the bit of a reason in ReasonFlags (RFC 5280, 4.2.1.13), as crl_view.h has them; 0
// for unspecified and removeFromCRL, which have none.
uint32_t crl_reason_flag(int reason);

} // namespace zul
