#pragma once
#include "cert/path/revocation_finding.h"

namespace zul {

// ocsp_check adds what the OCSP responses at hand tell of a certificate (RFC 6960, 3.2). A nonce is not
// looked at, since no request belongs to them.
void ocsp_check(const RevocationContext& context, const RevocationProgress& progress,
                RevocationFinding& finding);

} // namespace zul
