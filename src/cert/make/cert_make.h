#pragma once

// Certificates (RFC 5280) and certificate requests (RFC 2986) from descriptions, as CERT_SelfSign, CERT_Issue
// and CERT_Request make them: 0 or a code with a text.
namespace zul {

[[nodiscard]] int cert_self_sign(const char* certFile, const char* privateKey, const char* description,
                                 int options);
[[nodiscard]] int cert_issue(const char* certFile, const char* issuerCert, const char* issuerKey,
                             const char* subject, const char* description, int options);
[[nodiscard]] int cert_request(const char* requestFile, const char* privateKey, const char* description,
                               int options);

} // namespace zul
