#pragma once
#include "frame/memory.h"

namespace zul {

// ocsp_request makes an unsigned OCSPRequest without extensions about one certificate, as base64 text in one
// line: 0 or a positive code with a text. certOrSerial is a certificate argument, or "#x" and a serial number
// in hex. The digest of hashAlgorithm (SHA-1 to SHA-224) identifies the issuer.
[[nodiscard]] int ocsp_request(const char* issuerCert, const char* certOrSerial, int hashAlgorithm,
                               SecretBuffer& text);

} // namespace zul
