#pragma once
#include "cert/report/report_writer.h"

namespace zul {

// show_public_key_info writes a SubjectPublicKeyInfo. What the algorithm's parameters or the key's bits hold
// is written in its parts where the algorithm is known, and else in hex.
bool show_public_key_info(ReportWriter& report, std::string_view field, const DerElement& element);

} // namespace zul
