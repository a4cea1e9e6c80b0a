#include "cms/signed/signer_certificate.h"

#include <algorithm>

#include "cms/message/certificate_identifier.h"
#include "cms/signed/signed_data.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

// SignerIndex finds signers by the identifiers of a certificate. A message may have a million of both, so
// comparing every pair would take too long.
class SignerIndex {
  public:
    explicit SignerIndex(const SignedData& message)
        : entries_(static_cast<Entry*>(ecalloc(static_cast<size_t>(message.signer_count()), sizeof(Entry)))) {
        for (int n = 0; n < message.signer_count(); n++)
            if (const IdentifierDigest digest = identifier_digest(message.signer(n).identifier))
                entries_[count_++] = {digest, n};
        std::sort(entries_, entries_ + count_);
    }
    SignerIndex(const SignerIndex&) = delete;
    SignerIndex& operator=(const SignerIndex&) = delete;
    ~SignerIndex() { efree(entries_); }

    // first_named_by gives the first signer below an end that a certificate names; the end if there is none.
    [[nodiscard]] int first_named_by(const CertificateIdentifiers& certificate, int end) const {
        return std::min({end, find(certificate.issuerAndSerial, end), find(certificate.subjectKey, end)});
    }

  private:
    struct Entry {
        IdentifierDigest digest;
        int signer;
        // NOLINTNEXTLINE(modernize-use-nullptr): means the zero that results are compared with
        auto operator<=>(const Entry&) const = default;
    };

    [[nodiscard]] int find(const IdentifierDigest& digest, int end) const {
        const Entry *begin = entries_, *last = begin + count_;
        const Entry* found = std::lower_bound(begin, last, Entry{digest, 0});
        return found != last && found->digest == digest ? found->signer : end;
    }

    Entry* entries_;
    size_t count_ = 0;
};

[[nodiscard]] int no_match() {
    return err_fail(NO_MATCH_ERROR, "No match found between certificate and signer");
}

[[nodiscard]] int match_given(const SignedData& message, const char* cert, SignerMatch& match) {
    if (const int error = x509_read_certificate(cert, match.certificate))
        return error;
    const CertificateIdentifiers identifiers(certificate_fields(match.certificate.head()));
    for (int n = 0; n < message.signer_count(); n++) {
        match.signer = message.signer(n);
        if (identifiers.include(identifier_digest(match.signer.identifier)))
            return 0;
    }
    err_add_text("WARNING: cert does not match signerInfo");
    return no_match();
}

[[nodiscard]] int match_carried(const SignedData& message, SignerMatch& match) {
    const CertificateBundle& bundle = message.certificates();
    const SignerIndex signers(message);
    int first = message.signer_count();
    for (int i = 0; i < bundle.count() && first > 0; i++) {
        AsnList certificate = bundle.certificate(i);
        if (!x509_is_certificate(certificate.head()))
            continue;
        const CertificateIdentifiers identifiers(certificate_fields(certificate.head()));
        const int found = signers.first_named_by(identifiers, first);
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
    return is_missing(cert) ? match_carried(message, match) : match_given(message, cert, match);
}

} // namespace zul
