#pragma once

namespace zul {

// crl_lookup looks a certificate up in a CRL: 0 with the answer in revoked, or a positive code with a text.
// issuerCert and date may be null or empty. The key of issuerCert checks the CRL's signature. A revocation
// after date does not count.
[[nodiscard]] int crl_lookup(const char* certFile, const char* crlFile, const char* issuerCert,
                             const char* date, bool& revoked);

} // namespace zul
