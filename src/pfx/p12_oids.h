#pragma once
#include "key/key_oids.h"

// Object identifiers of PKCS #12 (RFC 7292, appendix D) as content octets.
namespace zul {

constexpr std::string_view kOidKeyBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x01"sv;
constexpr std::string_view kOidShroudedKeyBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x02"sv;
constexpr std::string_view kOidCertBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x03"sv;
constexpr std::string_view kOidCrlBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x04"sv;
constexpr std::string_view kOidSecretBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x05"sv;
constexpr std::string_view kOidSafeContentsBag = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x0A\x01\x06"sv;
constexpr std::string_view kOidX509Certificate = "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x16\x01"sv;
constexpr std::string_view kOidX509Crl = "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x17\x01"sv;

// The attribute by which Java marks a certificate as trusted, 2.16.840.1.113894.746875.1.1. Its value lists
// purposes; anyExtendedKeyUsage (2.5.29.37.0) is for all.
constexpr std::string_view kOidTrustedKeyUsage = "\x60\x86\x48\x01\x86\xF9\x66\xAD\xCA\x7B\x01\x01"sv;
constexpr std::string_view kOidAnyKeyUsage = "\x55\x1D\x25\x00"sv;

} // namespace zul
