#pragma once
#include "asn1/asn_node.h"
#include "cms/message/certificate_arguments.h"
#include "frame/memory.h"
#include "x509/fields/certificate.h"

namespace zul {

// CarriedCertificates are the certificates of a list as a new message carries them: in DER, each read once.
// Entries of the list that are empty are passed over, but for the first of a message with a signer.
class CarriedCertificates {
  public:
    // Both give 0 or a positive code with a text. read_for_signer reads the signer's certificate, the first,
    // even if none are carried.
    [[nodiscard]] int read(const CertificateArguments& list, bool carried);
    [[nodiscard]] int read_for_signer(const CertificateArguments& list, bool carried);

    CertificateFields signer() const { return certificate_fields(signer_.head()); }
    AsnList set() const; // [0] IMPLICIT, or nothing without any

  private:
    [[nodiscard]] int add(const char* argument);

    AsnList signer_;
    SecretBuffer encodings_;
};

} // namespace zul
