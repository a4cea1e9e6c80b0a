#pragma once
#include "cert/fields/cert_extensions.h"

// Whether a certificate is for a host, an address or a mailbox (RFC 9525; RFC 5280, 7.5; RFC 9598).
namespace zul {

// check_subject_name looks for a name among those of subjectAltName. reference:
// - the name of a host, ASCII or with U-labels, perhaps with a dot behind it: a dNSName has to be equal
//   without regard to case. "*" as its whole left-most label, with two labels behind it, stands for one
//   label;
// - an IPv4 or IPv6 address, perhaps in "[" and "]": an iPAddress has to have its bytes;
// - an e-mail address: an rfc822Name, or an SmtpUTF8Mailbox if its local part is not all ASCII, has to be
//   equal, in the domain without regard to case.
// options: with ZUL_CERT_SUBJECT_NAME the last commonName counts as a dNSName if subjectAltName has neither
// dNSName nor iPAddress nor uniformResourceIdentifier, and an emailAddress of the subject as an rfc822Name if
// it has no mailbox.
// 0, or with a text: NO_MATCH_ERROR, BAD_PARAM_ERROR (the reference is none of the three).
[[nodiscard]] int check_subject_name(const CertificateView& certificate, const CertExtensions& extensions,
                                     std::string_view text, int options);

// ReferenceForm is what a reference stands for. reference_form reads a reference as check_subject_name does:
// 0, or BAD_PARAM_ERROR with a text.
enum class ReferenceForm : uint8_t { host, address, email };
[[nodiscard]] int reference_form(std::string_view text, ReferenceForm& form);

// subject_host gives the last commonName of the subject if it may count as a dNSName with
// ZUL_CERT_SUBJECT_NAME: false if it may not.
[[nodiscard]] bool subject_host(const CertificateView& certificate, const CertExtensions& extensions,
                                DerView& host);

// host_name_matches tells whether the content of a dNSName is for a host, in lower case and without a dot at
// the end. What is not made of labels of letters, digits and hyphens matches nothing.
[[nodiscard]] bool host_name_matches(std::string_view presented, std::string_view host);

} // namespace zul
