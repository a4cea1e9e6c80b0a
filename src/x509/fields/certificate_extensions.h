#pragma once
#include "frame/memory.h"
#include "x509/fields/certificate.h"

// The extensions of a certificate (RFC 5280, 4.2). A missing one gives an empty or zero result. Texts end
// with a NUL that size() does not count.
namespace zul {

// find_extension parses the value of the first extension with a name of the OID table, critical or not. The
// list is empty if there is none or it does not parse.
AsnList find_extension(const CertificateFields& certificate, const char* name);

bool is_ca(const CertificateFields& certificate); // basicConstraints holds cA TRUE

constexpr size_t kKeyUsageText = 145;
uint32_t key_usage_flags(const CertificateFields& certificate); // named bit n is 2^n
// key_usage_text joins the names of the bits by "," and gives the length.
size_t key_usage_text(uint32_t flags, char out[kKeyUsageText + 1]);
// extended_key_usage_text joins the names or dotted forms of the purposes by ",". It gives 0, or
// INVALID_DATA_ERROR with a text if one has neither: a text without it would be wrong.
[[nodiscard]] int extended_key_usage_text(const CertificateFields& certificate, SecretBuffer& text);

SecretBuffer subject_key_identifier(const CertificateFields& certificate); // its octets
SecretBuffer authority_key_identifier(const CertificateFields& certificate);

// These give the first entry of their kind as text: 0, or INVALID_DATA_ERROR with a text if it holds a zero
// byte. A caller would read such a text up to that byte and take it for another name.
[[nodiscard]] int rfc822_name(const CertificateFields& certificate, SecretBuffer& text);
[[nodiscard]] int crl_distribution_point_uri(const CertificateFields& certificate, SecretBuffer& text);
[[nodiscard]] int authority_info_access_uri(const CertificateFields& certificate, SecretBuffer& text);

} // namespace zul
