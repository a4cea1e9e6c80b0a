#pragma once
#include "cert/path/path_conditions.h"
#include "cert/path/path_outcome.h"

namespace zul {

class Evidence;

// PathSummary tells what path_find has found: the outcome of the valid path, or of the one that got furthest.
struct PathSummary {
    PathOutcome best;
    int code = 0;
    int tried = 0;           // paths that were validated
    bool isCutShort = false; // the budget was spent before all were
    int signatures = 0;      // that were verified
};

// path_find looks for a valid path from an end entity to an anchor of a pool that has been indexed. evidence
// may be null.
void path_find(PathSummary& summary, CertPool& pool, CertRecord& endEntity, Evidence* evidence,
               const PathConditions& conditions);

} // namespace zul
