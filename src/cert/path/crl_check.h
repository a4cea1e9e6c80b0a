#pragma once
#include "cert/path/revocation_finding.h"

namespace zul {

// crl_check adds what the CRLs at hand tell of a certificate (RFC 5280, 6.3.3).
void crl_check(const RevocationContext& context, const RevocationProgress& progress,
               RevocationFinding& finding);

} // namespace zul
