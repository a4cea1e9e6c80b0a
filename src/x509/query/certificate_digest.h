#pragma once

namespace zul {

// Digests of a certificate argument's DER and of its IssuerAndSerialNumber (RFC 5652, 10.2.4), written in
// lower-case hex, as many whole bytes as fit: 0 or a positive code. *length is the number of characters
// written, or that of the whole digest if there is no output or room. options: the digest algorithm.
[[nodiscard]] int certificate_thumb(char* out, int nChars, const char* certFile, int options, int* length);
[[nodiscard]] int issuer_and_serial_digest(char* out, int nChars, const char* certFile, int options,
                                           int* length);

} // namespace zul
