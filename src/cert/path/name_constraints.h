#pragma once
#include "cert/fields/cert_extensions.h"
#include "cert/fields/general_name.h"
#include "cert/names/name_match.h"
#include "cert/path/path_budget.h"
#include "frame/array.h"

// Name constraints (RFC 5280, 4.2.1.10): directoryName, rfc822Name (for an SmtpUTF8Mailbox too: RFC 9598, 6),
// dNSName, uniformResourceIdentifier and iPAddress.
namespace zul {

// ConstrainedName is a name of a certificate in the form in which it is compared.
struct ConstrainedName {
    GeneralNameType type = GeneralNameType::otherName; // rfc822Name for an SmtpUTF8Mailbox
    DerView value;                                     // of a uniformResourceIdentifier its host
    bool isComparable = false;
    Array<NameDigest> prefixes; // of a directoryName: of its first RDN, of its first two, ...
};

// CertificateNames gathers the names of a certificate that constraints are about: subject (if it is not
// empty), subjectAltName, and the e-mail addresses of the subject if subjectAltName has none.
class CertificateNames {
  public:
    // read: 0, or with a text BAD_FORMAT_ERROR or OUT_OF_RANGE_ERROR (the budget is spent).
    [[nodiscard]] int read(const CertificateView& certificate, const CertExtensions& extensions,
                           PathBudget& budget);
    // add_host adds the subject's commonName as a dNSName where it may count as one (subject_host).
    void add_host(const CertificateView& certificate, const CertExtensions& extensions);
    const ConstrainedName* begin() const { return names_.begin(); }
    const ConstrainedName* end() const { return names_.end(); }

  private:
    void add(GeneralNameType type, DerView value);
    void add_directory(DerView name);
    void add_alternative(const GeneralNameView& name);
    void add_addresses(DerView subject);

    Array<ConstrainedName> names_;
};

// NameConstraints are those of one certificate.
class NameConstraints {
  public:
    // read: 0, or with a text BAD_FORMAT_ERROR, NOT_SUPPORTED_ERROR (minimum or maximum, which RFC 5280 does
    // not use) or OUT_OF_RANGE_ERROR.
    [[nodiscard]] int read(const CertExtensions& extensions, PathBudget& budget);

    // check: 0, or with a text
    // - ISSUER_ERROR: a name is excluded, or not permitted;
    // - NOT_SUPPORTED_ERROR: there is a constraint for the form of a name that is not known here, or the name
    //   cannot be compared;
    // - OUT_OF_RANGE_ERROR: the budget is spent.
    [[nodiscard]] int check(const CertificateNames& names, PathBudget& budget) const;

  private:
    struct Subtree {
        GeneralNameType type;
        DerView base;
        size_t depth; // of a directoryName
        NameDigest digest;
    };

    [[nodiscard]] int read_subtrees(Array<Subtree>& subtrees, DerView content, PathBudget& budget);
    [[nodiscard]] int check_name(const ConstrainedName& name, PathBudget& budget) const;
    static bool is_within(const ConstrainedName& name, const Subtree& subtree, bool isExcluded);

    Array<Subtree> permitted_, excluded_;
};

} // namespace zul
