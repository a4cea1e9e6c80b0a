#pragma once

namespace zul {

// Digests of a certificate argument's DER and of its IssuerAndSerialNumber (RFC 5652, 10.2.4) in lower-case
// hex: the characters written, as many whole bytes as fit; without output or room those of the whole digest;
// or a negated code. options: the digest algorithm.
[[nodiscard]] int certificate_thumb(char* out, int nChars, const char* certFile, int options);
[[nodiscard]] int issuer_and_serial_digest(char* out, int nChars, const char* certFile, int options);

} // namespace zul
