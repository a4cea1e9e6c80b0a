#pragma once

namespace zul {

// certificate_string writes a certificate argument's DER as base64 in one line, and sets *length to its
// length, also without output or room: 0 or a positive code, SHORT_BUF_ERROR if it does not fit.
[[nodiscard]] int certificate_string(char* out, int nChars, const char* certFile, int* length);

// save_certificate_string writes a certificate to a file. The text is PEM, or base64 in any lines: 0 or a
// positive code with a text. options: ZUL_X509_FORMAT_PEM.
[[nodiscard]] int save_certificate_string(const char* path, const char* text, int options);

} // namespace zul
