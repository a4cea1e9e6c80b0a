#pragma once

namespace zul {

// crl_lookup looks a certificate up in a CRL: 0 with the answer in revoked, or a positive code with a text.
// issuerCert, with whose key the CRL's signature is checked, and date, after which a revocation does not
// count, may be null or empty.
[[nodiscard]] int crl_lookup(const char* certFile, const char* crlFile, const char* issuerCert,
                             const char* date, bool& revoked);

} // namespace zul
