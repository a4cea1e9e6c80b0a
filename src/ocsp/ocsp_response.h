#pragma once
#include <cstddef>

namespace zul {

// ocsp_report reads an OCSPResponse (asn_read_input) and writes a report. The report of an unsuccessful
// response is its status. Otherwise it has the time of the response and the status and serial number of every
// certificate. A longer report is cut. issuerCert: null or empty, or the certificate argument whose key has
// to verify the signature. 0, or a positive code with a text; then the report is empty.
constexpr size_t kOcspReport = 1024; // with its NUL
[[nodiscard]] int ocsp_report(char report[kOcspReport], const char* responseFile, const char* issuerCert);

} // namespace zul
