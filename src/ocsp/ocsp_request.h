#pragma once

namespace zul {

// ocsp_request makes an unsigned OCSPRequest without extensions about one certificate and writes it as base64
// text in one line: its length, also without output or room, or a negated code (-SHORT_BUF_ERROR for a text
// that does not fit). certOrSerial is a certificate argument, or "#x" and a serial number in hex;
// hashAlgorithm names the issuer: SHA-1 to SHA-224.
int ocsp_request(char* out, int nChars, const char* issuerCert, const char* certOrSerial, int hashAlgorithm);

} // namespace zul
