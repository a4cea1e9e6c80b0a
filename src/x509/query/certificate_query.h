#pragma once

namespace zul {

// The queries of X509_QueryCert, in the order in which words are matched.
enum class CertificateQuery : int {
    version,
    serialNumber,
    signatureAlgorithm,
    signatureValue,
    sigAlgID,
    keyUsageString,
    keyUsageFlags,
    notBefore,
    notAfter,
    issuerName,
    subjectName,
    subjectPublicKeyAlgorithm,
    subjectKeyIdentifier,
    authorityKeyIdentifier,
    rfc822Name,
    isCA,
    extKeyUsageString,
    cRLDistributionPointsURI,
    authorityInfoAccessURI,
};

// find_query finds the query that a text names: 0 or BAD_QUERY_ERROR.
[[nodiscard]] int find_query(const char* text, CertificateQuery& query);
constexpr int kQueryNumber = 1, kQueryText = 2;
int query_type(CertificateQuery query);

// query_validity is the validity_state of a certificate argument, or a positive code with a text.
[[nodiscard]] int query_validity(const char* certFile);

// query_certificate answers a query of a certificate argument: 0 or a positive code. *result is the number,
// or the length of the text, which is written as exports do. Names take the delimiter and ZUL_X509_LATIN1 as
// name_print does.
[[nodiscard]] int query_certificate(char* out, int nChars, const char* certFile, CertificateQuery query,
                                    int options, const char* delimiter, int* result);

} // namespace zul
