#pragma once
#include "cert/report/report_writer.h"

// The fields of whole objects. A malformed field is written as such, and the next one follows.
namespace zul {

void show_certificate(ReportWriter& report, DerView encoding);
void show_request(ReportWriter& report, DerView encoding);
void show_crl(ReportWriter& report, DerView encoding);
// show_ocsp_response writes all of a response that can be read, or it whole as malformed.
void show_ocsp_response(ReportWriter& report, DerView encoding);

} // namespace zul
