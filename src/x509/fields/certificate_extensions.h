#pragma once
#include "frame/memory.h"
#include "x509/fields/certificate.h"

// What the extensions of a certificate say (RFC 5280, 4.2). One that is missing gives an empty or zero
// result. Texts end with a NUL that size() does not count.
namespace zul {

// find_extension parses the value of the first extension of a name of the OID table, critical or not; empty
// if there is none or it does not parse.
AsnList find_extension(const CertificateFields& certificate, const char* name);

bool is_ca(const CertificateFields& certificate); // basicConstraints holds cA TRUE

constexpr size_t kKeyUsageText = 145;
uint32_t key_usage_flags(const CertificateFields& certificate); // named bit n is 2^n
// key_usage_text joins the names of the bits by ",": their length.
size_t key_usage_text(uint32_t flags, char out[kKeyUsageText + 1]);
// extended_key_usage_text joins the names or dotted forms of the purposes by ",": 0, or INVALID_DATA_ERROR
// with a text if one has neither, since the others alone would say something else.
[[nodiscard]] int extended_key_usage_text(const CertificateFields& certificate, SecretBuffer& text);

SecretBuffer subject_key_identifier(const CertificateFields& certificate); // its octets
SecretBuffer authority_key_identifier(const CertificateFields& certificate);

// The first entry of its kind as text: 0, or INVALID_DATA_ERROR with a text if it holds a zero byte, which
// would show a reader another name than the certificate has.
[[nodiscard]] int rfc822_name(const CertificateFields& certificate, SecretBuffer& text);
[[nodiscard]] int crl_distribution_point_uri(const CertificateFields& certificate, SecretBuffer& text);
[[nodiscard]] int authority_info_access_uri(const CertificateFields& certificate, SecretBuffer& text);

} // namespace zul
