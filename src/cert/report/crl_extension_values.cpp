// The extensions of CRLs and of their entries (RFC 5280, 5.2 and 5.3).
#include <iterator>

#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

bool show_reason(ReportWriter& report, DerView value) {
    DerView code;
    return der_single(value, kDerEnumerated, code) && show_crl_reason(report, kExtnValue, code);
}

bool show_instruction(ReportWriter& report, DerView value) {
    DerView oid;
    return der_single(value, kDerOid, oid) && show_oid(report, kExtnValue, oid);
}

constexpr ExtensionRow kRows[] = {
    {"cRLReason", show_reason},
    {"cRLNumber", show_value_integer},
    {"deltaCRLIndicator", show_value_integer},
    {"invalidityDate", show_value_time},
    {"certificateIssuer", show_value_names},
    {"holdInstructionCode", show_instruction},
    {"expiredCertsOnCRL", show_value_time},
};

} // namespace

ExtensionRows crl_extensions() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
