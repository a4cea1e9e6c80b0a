#pragma once
#include "cert/fields/signed_view.h"

// Certificates and requests in DER as views into their encoding (RFC 5280, 4.1; RFC 2986, 4).
namespace zul {

struct CertificateView : SignedView {
    int version = 1;
    DerView serialNumber; // content, which should be positive
    AlgorithmView innerAlgorithm;
    DerView issuer, subject; // whole Names
    DerElement notBeforeTime, notAfterTime;
    int64_t notBefore = 0, notAfter = 0; // seconds since 1970
    DerView publicKeyInfo;               // the whole element
    DerView extensions;                  // the content of SEQUENCE OF Extension, empty if there are none

    bool is_self_issued() const { return issuer == subject; }
};

// certificate_view_read reads an encoding that is one certificate and nothing else: 0, or BAD_FORMAT_ERROR
// with a text that names the field.
[[nodiscard]] int certificate_view_read(DerView encoding, CertificateView& certificate);

struct RequestView : SignedView {
    DerView subject, publicKeyInfo, attributes; // attributes: the content of [0]
    DerView extensions;                         // of the attribute extensionRequest (RFC 2985, 5.4.2)
};
[[nodiscard]] int request_view_read(DerView encoding, RequestView& request);

} // namespace zul
