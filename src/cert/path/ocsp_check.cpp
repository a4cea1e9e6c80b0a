#include "cert/path/ocsp_check.h"

#include <algorithm>
#include <iterator>

#include "cert/fields/cert_oids.h"
#include "cert/path/cert_signature.h"
#include "cert/path/crl_listing.h"
#include "cert/path/evidence.h"
#include "hash/digest.h"

namespace zul {

namespace {

// A responder without nextUpdate has newer information all the time (RFC 6960, 4.2.2.1): what it said serves
// for a day.
constexpr int64_t kLongestWithoutUpdate = int64_t{24} * 60 * 60;

constexpr std::string_view kOidOcspNonce = "\x2B\x06\x01\x05\x05\x07\x30\x01\x02"sv;

struct CertIdHash {
    std::string_view oid;
    int algorithm;
};
constexpr CertIdHash kHashes[] = {
    {"\x2B\x0E\x03\x02\x1A"sv, kDigestSha1},
    {"\x60\x86\x48\x01\x65\x03\x04\x02\x01"sv, kDigestSha256},
    {"\x60\x86\x48\x01\x65\x03\x04\x02\x02"sv, kDigestSha384},
    {"\x60\x86\x48\x01\x65\x03\x04\x02\x03"sv, kDigestSha512},
};

bool is_digest_of(DerView digest, DerView bytes, int algorithm) {
    if (digest.size != digest_length(algorithm))
        return false;
    uint8_t computed[kMaxDigestSize];
    DigestContext context;
    digest_init(context, algorithm);
    digest_update(context, bytes.data, bytes.size);
    digest_final(context, computed);
    return memcmp(digest.data, computed, digest.size) == 0;
}

// key_bits gives the subjectPublicKey of a SubjectPublicKeyInfo, which a CertID digests.
DerView key_bits(DerView publicKeyInfo) {
    DerView content, bits, bytes;
    unsigned unused;
    if (!der_single(publicKeyInfo, kDerSequence, content))
        return {};
    DerReader fields(content);
    return fields.skip(kDerSequence) && fields.take(kDerBitString, bits) && der_bits(bits, bytes, unused)
               ? bytes
               : DerView();
}

bool has_unknown_critical(DerView extensions) {
    ExtensionReader reader(extensions);
    ExtensionView extension;
    while (reader.next(extension))
        if (extension.isCritical && !extension.is(kOidOcspNonce))
            return true;
    return false;
}

struct Statement {
    OcspRecord* response;
    OcspSingleView single;
    bool isCurrent, isKnown; // isKnown: without unknown critical extensions
};

class OcspSearch {
  public:
    OcspSearch(const RevocationContext& context, const RevocationProgress& progress,
               RevocationFinding& finding)
        : context_(context), progress_(progress), link_(*progress.link), issuer_(*link_.issuer),
          issuerBits_(key_bits(issuer_.publicKeyInfo)), finding_(finding) {}

    void run() {
        for (OcspRecord& response : context_.evidence.responses())
            if (!add_statements(response))
                return;
        std::sort(statements_.begin(), statements_.end(), [](const Statement& a, const Statement& b) {
            return a.single.thisUpdate > b.single.thisUpdate; // new ones before old ones
        });
        for (const Statement& each : statements_) {
            take(each);
            if (finding_.is_revoked())
                return;
        }
    }

  private:
    bool add_statements(OcspRecord& response) {
        const OcspResponseView& view = response.view;
        if (!context_.budget.take(static_cast<int64_t>(view.responses.size)))
            return false;
        OcspSingleReader reader(view.responses);
        OcspSingleView single;
        const bool isKnown = !has_unknown_critical(view.extensions);
        while (reader.next(single)) {
            if (!(single.id.serialNumber == link_.certificate->serialNumber))
                continue;
            if (!context_.budget.take(kIdCost +
                                      kHashCost * static_cast<int64_t>(issuer_.publicKeyInfo.size +
                                                                       issuer_.name.size +
                                                                       link_.certificate->issuer.size)))
                return false;
            if (is_asked_for(single.id))
                statements_.add({&response, single, is_current(view, single),
                                 isKnown && !has_unknown_critical(single.extensions)});
        }
        if (!reader.at_end())
            finding_.note(RevocationGap::malformed);
        return true;
    }

    bool is_asked_for(const CertId& id) const {
        const auto* hash = std::find_if(std::begin(kHashes), std::end(kHashes), [&](const CertIdHash& each) {
            return id.hashAlgorithm.oid.text() == each.oid;
        });
        if (hash == std::end(kHashes) || !is_digest_of(id.issuerKeyHash, issuerBits_, hash->algorithm))
            return false;
        // Two encodings of one name have different digests.
        return is_digest_of(id.issuerNameHash, link_.certificate->issuer, hash->algorithm) ||
               is_digest_of(id.issuerNameHash, issuer_.name, hash->algorithm);
    }

    bool is_current(const OcspResponseView& view, const OcspSingleView& single) const {
        const int64_t last =
            single.hasNextUpdate ? single.nextUpdate : single.thisUpdate + kLongestWithoutUpdate;
        return view.producedAt <= context_.time && single.thisUpdate <= context_.time &&
               context_.time <= last;
    }

    void take(const Statement& statement) {
        const OcspSingleView& single = statement.single;
        if (!statement.isKnown)
            return finding_.note(RevocationGap::unknownCritical);
        if (single.status == OcspCertStatus::revoked) {
            // What a response of a later time says counts if it was so at the time of the check. A hold may
            // have ended since.
            if ((single.thisUpdate > context_.time && single.revocationTime > context_.time) ||
                (single.reason == kReasonCertificateHold && single.thisUpdate < finding_.goodAt))
                return;
            if (!is_by_responder(*statement.response))
                return;
            if (single.reason == kReasonCertificateHold)
                finding_.add_hold(single.thisUpdate, single.revocationTime);
            else
                finding_.add_revoked(true, single.reason, single.revocationTime);
            return;
        }
        if (!statement.isCurrent)
            return finding_.note(RevocationGap::date);
        if (finding_.is_good() || !is_by_responder(*statement.response))
            return;
        if (single.status == OcspCertStatus::good)
            finding_.add_good(true, single.thisUpdate);
        else
            finding_.note(RevocationGap::status);
    }

    // is_by_responder: RFC 6960, 4.2.2.2. The issuer's own key signs, or that of a certificate in the
    // response that the issuer has given this purpose.
    bool is_by_responder(OcspRecord& response) {
        const OcspResponseView& view = response.view;
        if (is_named(view, issuer_.name, issuerBits_)) {
            if (response.signed_by(issuer_, context_.budget))
                return true;
            finding_.note(RevocationGap::signature);
        }
        DerReader reader(view.certificates);
        DerElement element;
        while (reader.next_is(kDerSequence) && reader.take_any(element)) {
            if (!context_.budget.take(kIdCost + 2 * static_cast<int64_t>(element.encoding.size)))
                return false;
            if (is_by_delegate(response, element.encoding))
                return true;
        }
        finding_.note(RevocationGap::noSigner);
        return false;
    }

    bool is_named(const OcspResponseView& view, DerView name, DerView bits) {
        return view.responderName.empty() ? is_digest_of(view.responderKeyHash, bits, kDigestSha1)
                                          : are_same(view.responderName, name);
    }

    bool are_same(DerView a, DerView b) {
        return a == b || (context_.budget.take_name(a.size + b.size) && names_match(a, b));
    }

    bool is_by_delegate(OcspRecord& response, DerView encoding) {
        CertificateView certificate;
        CertExtensions extensions;
        if (certificate_view_read(encoding, certificate) != 0 ||
            !is_named(response.view, certificate.subject, key_bits(certificate.publicKeyInfo)) ||
            cert_extensions_read(certificate, extensions) != 0 ||
            extensions.unknownCritical.data != nullptr ||
            !oid_list_has(extensions.extKeyUsage, kOidOcspSigning) ||
            !extensions.allows(kUsageDigitalSignature | kUsageNonRepudiation) ||
            context_.time < certificate.notBefore || context_.time > certificate.notAfter ||
            !are_same(certificate.issuer, issuer_.name))
            return false;
        SignerKey key;
        if (issuer_.key == nullptr ||
            issuer_.key->check_object(certificate, certificate.innerAlgorithm, context_.budget) != 0 ||
            key.read(certificate.publicKeyInfo, issuer_.key) != 0)
            return false;
        const PathLink responder = {&certificate, &extensions, certificate.subject, certificate.publicKeyInfo,
                                    &key,         &issuer_};
        if (!response.signed_by(responder, context_.budget)) {
            finding_.note(RevocationGap::signature);
            return false;
        }
        // No evidence of a responder's own status is common: its certificate is of short life.
        if (!extensions.ocspNoCheck &&
            signer_state(context_, responder, progress_) == RevocationState::revoked) {
            finding_.note(RevocationGap::signerStatus);
            return false;
        }
        return true;
    }

    static constexpr int64_t kIdCost = 1000, kHashCost = 3;

    const RevocationContext& context_;
    const RevocationProgress& progress_;
    const PathLink& link_;
    const PathLink& issuer_;
    DerView issuerBits_;
    RevocationFinding& finding_;
    Array<Statement> statements_;
};

} // namespace

void ocsp_check(const RevocationContext& context, const RevocationProgress& progress,
                RevocationFinding& finding) {
    OcspSearch(context, progress, finding).run();
}

} // namespace zul
