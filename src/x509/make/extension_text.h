#pragma once
#include <optional>

#include "frame/memory.h"

// What the extension texts of the makers ask for: keyword=value pairs. The readers give 0, or
// BAD_PARAM_ERROR with a text; dates are kept as they stand, for the step that needs them. Texts end with a
// NUL that size() does not count.
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
