#pragma once

namespace zul {

// crl_lookup looks a certificate up in a CRL: 1 if it is listed, 0 if not, or a negated code with a text.
// issuerCert, with whose key the CRL's signature is checked first, and date, after which a revocation does
// not count, may be null or empty.
int crl_lookup(const char* certFile, const char* crlFile, const char* issuerCert, const char* date);

} // namespace zul
