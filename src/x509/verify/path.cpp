#include "x509/verify/path.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/fields/thumbprint.h"
#include "x509/input/certificate_bundle.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

namespace zul {
namespace {

// Link is one certificate. Its fields point into the list.
struct Link {
    AsnList list;
    CertificateFields fields;

    void take(AsnList certificate) {
        list = std::move(certificate);
        fields = certificate_fields(list.head());
    }
};

bool is_issued_by(const Link& a, const Link& b) {
    return same_name(a.fields.issuer, b.fields.subject);
}
bool is_self_signed(const Link& link) {
    return is_issued_by(link, link);
}
bool is_same(const Link& a, const Link& b) {
    return same_name(a.fields.issuer, b.fields.issuer) && same_name(a.fields.subject, b.fields.subject);
}

// ItemReader splits a text at its ";". Empty items are skipped.
class ItemReader {
  public:
    explicit ItemReader(const char* text) : rest_(text) {}
    // next gives an item as a text with a NUL, empty at the end.
    SecretBuffer next() {
        while (!rest_.empty()) {
            const size_t length = std::min(rest_.find(';'), rest_.size());
            const std::string_view item = trimmed(slice(rest_, 0, length));
            rest_.remove_prefix(std::min(length + 1, rest_.size()));
            if (item.empty())
                continue;
            SecretBuffer text;
            text.append(item.data(), item.size());
            return text;
        }
        return {};
    }

  private:
    std::string_view rest_;
};

// Path holds the certificates of one call.
class Path {
    static_assert(kMaxPathLength <= CertificateBundle::kMaxKept);

  public:
    explicit Path(bool checksDates) : checksDates_(checksDates) {}

    [[nodiscard]] int read_trusted(const char* trustedCert);
    [[nodiscard]] int read_list(const char* certList);
    [[nodiscard]] int order();
    [[nodiscard]] int verify() const;

  private:
    [[nodiscard]] int read_bundle(CertificateBundle& bundle);
    [[nodiscard]] int read_items(const char* certList);
    [[nodiscard]] int read_single(const char* fileOrText);
    [[nodiscard]] int add(AsnList certificate);
    [[nodiscard]] int choose_first();
    template<class Condition>
    bool bring(int position, Condition wanted);
    bool has_trusted() const { return static_cast<bool>(trusted_.list); }

    bool checksDates_;
    Link trusted_;
    Link links_[kMaxPathLength];
    int count_ = 0;
    size_t bytes_ = 0; // of all certificates
};

int Path::read_trusted(const char* trustedCert) {
    AsnList list;
    if (const int error = x509_read_certificate(trustedCert, list))
        return err_fail(error, "Trusted certificate is no good");
    trusted_.take(std::move(list));
    if (!checksDates_)
        return 0;
    const int state = validity_state(trusted_.fields);
    return state == -1 ? err_fail(EXPIRED_ERROR, "Trusted certificate has expired") : state;
}

// add takes the next object of the list. It refuses an empty one and anything but a certificate.
int Path::add(AsnList certificate) {
    // Nodes take some thirty times the memory of the encoding, so all certificates share one limit.
    if (certificate && x509_is_certificate(certificate.head()))
        bytes_ += asn_Encode(certificate).size();
    else
        bytes_ = kMaxX509Object + 1;
    if (bytes_ > kMaxX509Object)
        return err_fail(INVALID_DATA_ERROR, "Certificate [%d] is invalid", count_ + 1);
    Link& link = links_[count_++];
    link.take(std::move(certificate));
    const int state = checksDates_ ? validity_state(link.fields) : 0;
    if (state == -1)
        return err_fail(EXPIRED_ERROR, "Certificate [%d] has expired", count_);
    return state;
}

int Path::read_bundle(CertificateBundle& bundle) {
    if (bundle.count() > kMaxPathLength)
        return err_fail(OUT_OF_RANGE_ERROR, "Too many certificates (max=%d)", kMaxPathLength);
    for (int i = 0; i < bundle.count(); i++)
        if (const int error = add(bundle.certificate(i)))
            return error;
    return 0;
}

int Path::read_items(const char* certList) {
    ItemReader items(certList);
    while (count_ < kMaxPathLength) {
        const SecretBuffer item = items.next();
        if (item.empty())
            break;
        AsnList certificate;
        if (x509_read_certificate(item.text(), certificate) == READ_ERROR)
            return READ_ERROR;
        // After any other error the list is empty, which add refuses.
        if (const int error = add(std::move(certificate)))
            return error;
    }
    return 0;
}

// read_single reads a bundle or one certificate. Anything else adds nothing and is no error, unless the read
// itself fails.
int Path::read_single(const char* fileOrText) {
    DerSource source;
    int error = source.open(fileOrText);
    if (error != 0)
        return error == READ_ERROR ? error : 0;
    if (CertificateBundle bundle; bundle.open(source) == 0)
        return source.read_result(read_bundle(bundle));
    AsnList certificate;
    error = x509_read_certificate(source, certificate);
    if (error != 0)
        return error == READ_ERROR ? error : 0;
    return add(std::move(certificate));
}

int Path::read_list(const char* certList) {
    const int error = strchr(certList, ';') != nullptr ? read_items(certList) : read_single(certList);
    return error == 0 && count_ == 0 ? err_fail(NO_DATA_ERROR, "No certs found") : error;
}

// bring finds the first certificate from a position on that meets a condition, and swaps it into that
// position.
template<class Condition>
bool Path::bring(int position, Condition wanted) {
    Link* at = links_ + position;
    Link* end = links_ + count_;
    Link* found = std::find_if(at, end, wanted);
    if (found == end)
        return false;
    if (found != at)
        std::swap(*at, *found);
    return true;
}

int Path::choose_first() {
    if (!has_trusted())
        return bring(0, is_self_signed) ? 0 : err_fail(ISSUER_ERROR, "Cannot find a self-signed certificate");
    if (is_self_signed(trusted_) && bring(0, [this](const Link& link) { return is_same(link, trusted_); }))
        return 0;
    if (bring(0, [this](const Link& link) { return is_issued_by(link, trusted_); }))
        return 0;
    return err_fail(NO_MATCH_ERROR, "Trusted certificate does not have a match");
}

int Path::order() {
    if (const int error = choose_first())
        return error;
    for (int i = 0; i + 1 < count_; i++) {
        const Link& issuer = links_[i];
        if (bring(i + 1, [&](const Link& link) { return is_issued_by(link, issuer); }))
            continue;
        char thumbprint[kThumbprintText + 1];
        thumbprint_text(issuer.list.head(), kDigestSha1, thumbprint);
        return err_fail(NO_MATCH_ERROR, "Certificate [SHA-1=%s] breaks the chain", thumbprint);
    }
    return 0;
}

int Path::verify() const {
    const Link* issuer = has_trusted() ? &trusted_ : &links_[0];
    for (int i = 0; i < count_; i++) {
        char name[24];
        snprintf(name, sizeof name, "[%d]", i + 1);
        const int result = verify_object(issuer->fields.subjectPublicKeyInfo, links_[i].list.head(), name);
        if (result != 0)
            return result == -1 ? SIGNATURE_ERROR : result;
        issuer = &links_[i];
    }
    return 0;
}

} // namespace

int validate_path(const char* certList, const char* trustedCert, int options) {
    Path path(options == 0);
    int error = 0;
    if (!is_missing(trustedCert))
        error = path.read_trusted(trustedCert);
    if (error == 0)
        error = path.read_list(certList);
    if (error == 0)
        error = path.order();
    return error != 0 ? error : path.verify();
}

} // namespace zul
