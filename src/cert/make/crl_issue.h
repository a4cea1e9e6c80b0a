#pragma once

namespace zul {

// CRLs (RFC 5280, 5), as CERT_IssueCRL makes them: 0 or a code with a text.
[[nodiscard]] int crl_issue(const char* crlFile, const char* issuerCert, const char* issuerKey,
                            const char* earlierCrl, const char* revoked, const char* description,
                            int options);

} // namespace zul
