#include "cms/signer_certificate.h"

#include "asn1/asn_element.h"
#include "cms/certificate_identifier.h"
#include "cms/signed_data.h"
#include "frame/err.h"
#include "x509/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

int64_t node_count(const asn_Node* element) {
    int64_t count = 1;
    const asn_Node* end = element == nullptr ? nullptr : asn_ElementEnd(element);
    for (; element != end; element = element->next)
        count++;
    return count;
}

// SignerSearch compares signers with certificates. Each pair may have to be looked at, names of any length in
// each, so that a hostile message would take for ever: after a second nothing matches any more.
class SignerSearch {
  public:
    explicit SignerSearch(const SignedData& message) : message_(message) {}

    // first_named_by gives the first signer below an end that a certificate names; the end if there is none.
    int first_named_by(const asn_Node* certificate, int end) {
        const CertificateFields fields = certificate_fields(certificate);
        const int64_t nodes = node_count(certificate);
        for (int n = 0; n < end && nodesLeft_ > 0; n++) {
            const asn_Node* identifier = message_.signer(n).identifier;
            nodesLeft_ -= nodes + node_count(identifier);
            if (identifier_names(identifier, fields))
                return n;
        }
        return end;
    }

  private:
    const SignedData& message_;
    int64_t nodesLeft_ = 1 << 22;
};

int no_match() {
    err_add_text("No match found between certificate and signer");
    return NO_MATCH_ERROR;
}

int match_given(const SignedData& message, const char* cert, SignerMatch& match) {
    if (const int error = x509_read_certificate(cert, match.certificate))
        return error;
    const int count = message.signer_count();
    const int found = SignerSearch(message).first_named_by(match.certificate.head(), count);
    if (found == count) {
        err_add_text("WARNING: cert does not match signerInfo");
        return no_match();
    }
    match.signer = message.signer(found);
    return 0;
}

int match_carried(const SignedData& message, SignerMatch& match) {
    const CertificateBundle& bundle = message.certificates();
    SignerSearch search(message);
    int first = message.signer_count();
    for (int i = 0; i < bundle.count() && first > 0; i++) {
        AsnList certificate = bundle.certificate(i);
        if (!x509_is_certificate(certificate.head()))
            continue;
        const int found = search.first_named_by(certificate.head(), first);
        if (found == first)
            continue;
        first = found;
        match.certificate = std::move(certificate);
    }
    if (!match.certificate)
        return no_match();
    match.signer = message.signer(first);
    return 0;
}

} // namespace

int find_signer(const SignedData& message, const char* cert, SignerMatch& match) {
    const bool isGiven = cert != nullptr && *cert != '\0';
    return isGiven ? match_given(message, cert, match) : match_carried(message, match);
}

} // namespace zul
