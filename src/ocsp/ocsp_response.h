#pragma once
#include <cstddef>

namespace zul {

// ocsp_report reads an OCSPResponse (asn_read_input) and writes what it says: the status of an unsuccessful
// one, or when it was made and, of every certificate, its status and serial number. A longer report is cut.
// issuerCert: null or empty, or the certificate argument whose key has to verify the signature.
// 0, or a positive code with a text; then the report is empty.
constexpr size_t kOcspReport = 1024; // with its NUL
[[nodiscard]] int ocsp_report(char report[kOcspReport], const char* responseFile, const char* issuerCert);

} // namespace zul
