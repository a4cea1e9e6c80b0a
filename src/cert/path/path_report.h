#pragma once
#include "cert/path/path_find.h"
#include "cert/report/report_writer.h"

namespace zul {

// show_path writes what path_find has found: the result, the conditions, each certificate from the anchor to
// the end entity with its checks, the valid policies. unreadable counts objects that were left out.
void show_path(ReportWriter& report, const PathSummary& summary, const PathConditions& conditions,
               size_t unreadable);

} // namespace zul
