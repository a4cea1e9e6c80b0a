#pragma once
#include "cert/fields/cert_extensions.h"
#include "cert/path/cert_signature.h"

// Rules of the public web (CA/Browser Forum, Baseline Requirements for TLS server certificates: 6.1.5, 6.3.2,
// 7.1) beyond RFC 5280.
namespace zul {

// check_web_key refuses RSA keys below 2048 bits and DSA keys: 0 or BAD_KEY_LEN_ERROR with a text.
[[nodiscard]] int check_web_key(const SignerKey& key);

// check_web_certificate looks at a certificate that is no anchor: 0, or with a text
// - NOT_SUPPORTED_ERROR: signed with SHA-1;
// - OUT_OF_RANGE_ERROR: a serial number that is not positive or has more than 20 octets.
[[nodiscard]] int check_web_certificate(const CertificateView& certificate);

// check_web_leaf looks at an end entity: 0, or with a text
// - NO_MATCH_ERROR: no dNSName or iPAddress in subjectAltName;
// - OUT_OF_RANGE_ERROR: it is valid for longer than certificates of its date may be.
[[nodiscard]] int check_web_leaf(const CertificateView& certificate, const CertExtensions& extensions);

} // namespace zul
