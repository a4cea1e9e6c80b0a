#pragma once

// Makers of signed objects, with the arguments of the exports: 0 or a positive code with a text.
namespace zul {

struct CertificateOrder {
    const char* newFile;
    const char* issuerCert; // null: self-signed
    const char* subjectKey; // a public key, or a request if distName is empty
    const char* issuerKey;  // an encrypted private key
    int certNum;
    int yearsValid;
    const char* distName;
    const char* extensions; // may be null
    int keyUsageFlags;
    const char* password;
    int options;
};
[[nodiscard]] int make_certificate(const CertificateOrder& order);

[[nodiscard]] int make_request(const char* reqFile, const char* privateKey, const char* distName,
                               const char* password, int options);

[[nodiscard]] int make_crl(const char* crlFile, const char* issuerCert, const char* issuerKey,
                           const char* password, const char* certList, const char* extensions, int options);

} // namespace zul
