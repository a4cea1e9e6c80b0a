#pragma once
#include "cert/fields/crl_view.h"
#include "cert/input/object_list.h"
#include "cert/make/issuer_certificate.h"

namespace zul {

// EarlierCrl is the list that a new one continues.
class EarlierCrl {
  public:
    // open reads the first object of a file or text and checks that the issuer has signed it. 0, or with a
    // text the codes of ObjectList::add, BAD_FORMAT_ERROR (no CRL, or a malformed one), NO_MATCH_ERROR
    // (another issuer), NOT_SUPPORTED_ERROR (an unknown critical extension or signature algorithm),
    // SIGNATURE_ERROR.
    [[nodiscard]] int open(const char* fileOrText, const IssuerCertificate& issuer);

    const CrlView& view() const { return view_; }
    const CrlExtensions& extensions() const { return extensions_; }
    DerView issuing_point() const; // the whole element, empty if there is none

  private:
    [[nodiscard]] int read(const char* fileOrText, const IssuerCertificate& issuer);
    [[nodiscard]] int check_signature(const IssuerCertificate& issuer) const;

    ObjectList list_;
    CrlView view_;
    CrlExtensions extensions_;
};

} // namespace zul
