#pragma once
#include <optional>

#include "frame/memory.h"

// Readers of the extension texts of the makers, which are keyword=value pairs: 0, or BAD_PARAM_ERROR with a
// text. Dates are kept as text. Texts end with a NUL that size() does not count.
namespace zul {

struct CertificateText {
    SecretBuffer emailAddress;         // empty if not given, as the next two
    SecretBuffer serialNumber;         // bytes
    SecretBuffer subjectKeyIdentifier; // bytes
    std::optional<SecretBuffer> notBefore, notAfter;
};
[[nodiscard]] int read_certificate_text(const char* text, CertificateText& result); // text may be null

struct CrlText {
    std::optional<SecretBuffer> thisUpdate, nextUpdate;
};
[[nodiscard]] int read_crl_text(const char* text, CrlText& result); // text may be null

} // namespace zul
