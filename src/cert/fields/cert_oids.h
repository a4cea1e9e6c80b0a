#pragma once
#include <string_view>

// Object identifiers of certificates, as content octets (RFC 5280, A; RFC 6960; RFC 6962; RFC 7633).
namespace zul {

using std::string_view_literals::operator""sv;

// Extensions
constexpr std::string_view kOidSubjectDirectoryAttributes = "\x55\x1D\x09"sv;
constexpr std::string_view kOidSubjectKeyIdentifier = "\x55\x1D\x0E"sv;
constexpr std::string_view kOidKeyUsage = "\x55\x1D\x0F"sv;
constexpr std::string_view kOidPrivateKeyUsagePeriod = "\x55\x1D\x10"sv;
constexpr std::string_view kOidSubjectAltName = "\x55\x1D\x11"sv;
constexpr std::string_view kOidIssuerAltName = "\x55\x1D\x12"sv;
constexpr std::string_view kOidBasicConstraints = "\x55\x1D\x13"sv;
constexpr std::string_view kOidCrlNumber = "\x55\x1D\x14"sv;
constexpr std::string_view kOidReasonCode = "\x55\x1D\x15"sv;
constexpr std::string_view kOidInvalidityDate = "\x55\x1D\x18"sv;
constexpr std::string_view kOidDeltaCrlIndicator = "\x55\x1D\x1B"sv;
constexpr std::string_view kOidIssuingDistributionPoint = "\x55\x1D\x1C"sv;
constexpr std::string_view kOidCertificateIssuer = "\x55\x1D\x1D"sv;
constexpr std::string_view kOidNameConstraints = "\x55\x1D\x1E"sv;
constexpr std::string_view kOidCrlDistributionPoints = "\x55\x1D\x1F"sv;
constexpr std::string_view kOidCertificatePolicies = "\x55\x1D\x20"sv;
constexpr std::string_view kOidAnyPolicy = "\x55\x1D\x20\x00"sv;
constexpr std::string_view kOidPolicyMappings = "\x55\x1D\x21"sv;
constexpr std::string_view kOidAuthorityKeyIdentifier = "\x55\x1D\x23"sv;
constexpr std::string_view kOidPolicyConstraints = "\x55\x1D\x24"sv;
constexpr std::string_view kOidExtKeyUsage = "\x55\x1D\x25"sv;
constexpr std::string_view kOidFreshestCrl = "\x55\x1D\x2E"sv;
constexpr std::string_view kOidInhibitAnyPolicy = "\x55\x1D\x36"sv;
constexpr std::string_view kOidAuthorityInfoAccess = "\x2B\x06\x01\x05\x05\x07\x01\x01"sv;
constexpr std::string_view kOidSubjectInfoAccess = "\x2B\x06\x01\x05\x05\x07\x01\x0B"sv;
constexpr std::string_view kOidTlsFeature = "\x2B\x06\x01\x05\x05\x07\x01\x18"sv;
constexpr std::string_view kOidOcspNoCheck = "\x2B\x06\x01\x05\x05\x07\x30\x01\x05"sv;
constexpr std::string_view kOidSctList = "\x2B\x06\x01\x04\x01\xD6\x79\x02\x04\x02"sv;
constexpr std::string_view kOidCtPoison = "\x2B\x06\x01\x04\x01\xD6\x79\x02\x04\x03"sv;

// Purposes (RFC 5280, 4.2.1.12)
constexpr std::string_view kOidAnyExtKeyUsage = "\x55\x1D\x25\x00"sv;
constexpr std::string_view kOidServerAuth = "\x2B\x06\x01\x05\x05\x07\x03\x01"sv;
constexpr std::string_view kOidClientAuth = "\x2B\x06\x01\x05\x05\x07\x03\x02"sv;
constexpr std::string_view kOidCodeSigning = "\x2B\x06\x01\x05\x05\x07\x03\x03"sv;
constexpr std::string_view kOidEmailProtection = "\x2B\x06\x01\x05\x05\x07\x03\x04"sv;
constexpr std::string_view kOidTimeStamping = "\x2B\x06\x01\x05\x05\x07\x03\x08"sv;
constexpr std::string_view kOidOcspSigning = "\x2B\x06\x01\x05\x05\x07\x03\x09"sv;

// Access methods, attributes, other names, contents
constexpr std::string_view kOidOcsp = "\x2B\x06\x01\x05\x05\x07\x30\x01"sv;
constexpr std::string_view kOidCaIssuers = "\x2B\x06\x01\x05\x05\x07\x30\x02"sv;
constexpr std::string_view kOidExtensionRequest = "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x0E"sv;
constexpr std::string_view kOidEmailAddress = "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x01"sv;
constexpr std::string_view kOidCommonName = "\x55\x04\x03"sv;
constexpr std::string_view kOidSmtpUtf8Mailbox = "\x2B\x06\x01\x05\x05\x07\x08\x09"sv; // (RFC 9598)
constexpr std::string_view kOidSignedData = "\x2A\x86\x48\x86\xF7\x0D\x01\x07\x02"sv;

} // namespace zul
