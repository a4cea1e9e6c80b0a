#include <cstdlib>
#include <cstring>
#include <string>

#include "encode/base64.h"
#include "ocsp/ocsp_request.h"
#include "ocsp/ocsp_response.h"

// Every report has the lines that programs parse, and a signature that verifies does not change them. A
// request is made for any certificate that is accepted as an issuer.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

// The certificate of the signer of some of the seeds.
static const char kIssuer[] = "-----BEGIN CERTIFICATE-----\n"
                              "MIICNDCCAZ2gAwIBAgIUHu9lwEDUcizDtgEQmENSdtxkNpEwDQYJKoZIhvcNAQEL\n"
                              "BQAwLDELMAkGA1UEBhMCQVUxEDAOBgNVBAoMB0V4YW1wbGUxCzAJBgNVBAMMAkNB\n"
                              "MB4XDTI2MTEyMTE0NTAwM1oXDTQ2MDEyMDE0NTAwM1owLDELMAkGA1UEBhMCQVUx\n"
                              "EDAOBgNVBAoMB0V4YW1wbGUxCzAJBgNVBAMMAkNBMIGfMA0GCSqGSIb3DQEBAQUA\n"
                              "A4GNADCBiQKBgQDAKcCozoakBH/iUgy5/t0crx0ybRR+ruoLdJ0tr6QcIStF/vcf\n"
                              "HN/LsiG8mllmnxDNi0HNNHVyNS4CXfKPOAzWiJKRXXCPf7xkpKJfO8q5KHxZCKMV\n"
                              "3FDh4c3ip7qDNycXAJ66bEN+Yywy8qDEoFqS8CpkSVlfdm65uLwj1OE7rQIDAQAB\n"
                              "o1MwUTAdBgNVHQ4EFgQUYX9WXwitE16bsjXD2CRvjVVFiUowHwYDVR0jBBgwFoAU\n"
                              "YX9WXwitE16bsjXD2CRvjVVFiUowDwYDVR0TAQH/BAUwAwEB/zANBgkqhkiG9w0B\n"
                              "AQsFAAOBgQBQF6R6+hPVqpAAOgv6UbZgczC9DdBX57+3auLzNLc1tixi2mVdHGx3\n"
                              "MFBpcnhyxcTLqfdBTrW45B6cLrmYi1fEUZO/snXFs2urNHpsl9H8NrvJQc05HG9g\n"
                              "CietpQf5cG6B0YCw9uDJKcFuBk0R5Cd9t7jXKiXRXiUQ+D6tK4lCCQ==\n"
                              "-----END CERTIFICATE-----\n";

static bool has_known_form(const std::string& report) {
    if (!report.starts_with("Successful response:\n Produced at "))
        return report.ends_with(".") && report.find('\n') == std::string::npos;
    size_t lines = 1;
    for (size_t at = 0; (at = report.find('\n', at)) != std::string::npos; at++, lines++) {
        const std::string line = report.substr(at, 12);
        require(report.size() + 1 == kOcspReport || line == "\n Produced a" || line == "\n CertStatus" ||
                line == "\n SerialNumb");
    }
    return lines >= 2;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(b64_encoded_length(size) + 1, '\0');
    text.resize(b64_encode(text.data(), text.size(), data, size));
    text = "-----BEGIN DATA-----\n" + text + "\n-----END DATA-----\n";

    char report[kOcspReport], verified[kOcspReport];
    const int error = ocsp_report(report, text.c_str(), nullptr);
    require(strlen(report) < kOcspReport && (error == 0 ? has_known_form(report) : *report == '\0'));
    const int withIssuer = ocsp_report(verified, text.c_str(), kIssuer);
    require(withIssuer == 0 ? error == 0 && strcmp(report, verified) == 0 : *verified == '\0');

    SecretBuffer request;
    const int made = ocsp_request(text.c_str(), "#x0A", 0, request);
    require(made != 0 || (!request.empty() && request.size() % 4 == 0));
    return 0;
}
