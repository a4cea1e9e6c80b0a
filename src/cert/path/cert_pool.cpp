#include "cert/path/cert_pool.h"

#include <algorithm>

#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

// is_name tells whether a Name is well made (RFC 5280, 4.1.2.4). One that is not could be read in two ways.
bool is_name(DerView name) {
    DerView content, rdn, attribute, type;
    DerElement value;
    if (!der_single(name, kDerSequence, content))
        return false;
    for (DerReader rdns(content); !rdns.at_end();) {
        if (!rdns.take(kDerSet, rdn) || rdn.empty())
            return false;
        for (DerReader attributes(rdn); !attributes.at_end();) {
            if (!attributes.take(kDerSequence, attribute))
                return false;
            DerReader fields(attribute);
            if (!fields.take(kDerOid, type) || !der_is_oid(type) || !fields.take_any(value) ||
                !fields.at_end())
                return false;
        }
    }
    return true;
}

int compare(const NameDigest& a, const NameDigest& b) {
    return memcmp(a.bytes, b.bytes, sizeof a.bytes);
}

} // namespace

void take_error_text(SecretBuffer& text) {
    text = SecretBuffer();
    text.append(err_text(), strlen(err_text()));
    err_set_text("%s", "");
}

int CertRecord::read(DerView encoding) {
    if (const int error = certificate_view_read(encoding, view))
        return error;
    subject = name_digest(view.subject);
    issuer = view.is_self_issued() ? subject : name_digest(view.issuer);
    Sha256Context context;
    sha256_init(context);
    sha256_update(context, encoding.data, encoding.size);
    sha256_final(context, digest.bytes);
    fault = cert_extensions_read(view, extensions);
    if (fault == 0 && (!is_name(view.subject) || !is_name(view.issuer)))
        fault = err_fail(BAD_FORMAT_ERROR, "Invalid name");
    if (fault != 0)
        take_error_text(faultText);
    return 0;
}

const SignerKey* CertRecord::own_key() {
    if (!isKeyTried_) {
        isKeyTried_ = true;
        if (!key_inherits_parameters(view.publicKeyInfo)) {
            keyCode_ = key_.read(view.publicKeyInfo, nullptr);
            if (keyCode_ != 0)
                take_error_text(keyText_);
        }
    }
    return key_.is_read() ? &key_ : nullptr;
}

int CertRecord::check_signature(const SignerKey& key, DerView publicKeyInfo, PathBudget& budget) {
    for (const Tried& each : tried_) {
        if (!budget.take_comparison(publicKeyInfo.size))
            return err_fail(OUT_OF_RANGE_ERROR, "Too many keys of one issuer");
        if (each.publicKeyInfo == publicKeyInfo && each.parameters == key.dsa_parameters())
            return each.code == 0 ? 0 : err_fail(each.code, "%s", each.text.text());
    }
    Tried tried{publicKeyInfo, key.dsa_parameters(), 0, {}};
    tried.code = key.check_object(view, view.innerAlgorithm, budget);
    if (tried.code != 0) {
        take_error_text(tried.text);
        err_add_text("%s", tried.text.text());
    }
    return tried_.add(std::move(tried)).code;
}

void CertPool::add(const ObjectList& list, size_t from, bool areAnchors) {
    unreadable_ += list.unreadable();
    for (size_t i = from; i < list.size(); i++) {
        unreadable_ += list[i].kind == ObjectKind::other ? 1U : 0U;
        if (list[i].kind != ObjectKind::certificate)
            continue;
        CertRecord& record = records_.add({});
        record.isAnchor = areAnchors;
        if (record.read(list[i].der) == 0)
            continue;
        err_set_text("%s", "");
        records_.shrink(records_.size() - 1);
        unreadable_++;
    }
}

void CertPool::index() {
    bySubject_.reserve(records_.size());
    for (CertRecord& record : records_)
        bySubject_.add(&record);
    std::sort(bySubject_.begin(), bySubject_.end(), [](const CertRecord* a, const CertRecord* b) {
        if (const int order = compare(a->subject, b->subject))
            return order < 0;
        if (const int order = compare(a->digest, b->digest))
            return order < 0;
        return a->isAnchor && !b->isAnchor;
    });
    CertRecord** const end =
        std::unique(bySubject_.begin(), bySubject_.end(),
                    [](const CertRecord* a, const CertRecord* b) { return a->digest == b->digest; });
    bySubject_.shrink(static_cast<size_t>(end - bySubject_.begin()));
    for (CertRecord* record : bySubject_)
        anchors_ += record->isAnchor ? 1 : 0;
}

CertRange CertPool::of_subject(const NameDigest& subject) const {
    CertRecord* const* const first =
        std::lower_bound(bySubject_.begin(), bySubject_.end(), subject,
                         [](const CertRecord* a, const NameDigest& b) { return compare(a->subject, b) < 0; });
    return {first,
            std::upper_bound(first, bySubject_.end(), subject, [](const NameDigest& a, const CertRecord* b) {
                return compare(a, b->subject) < 0;
            })};
}

bool CertPool::has_anchor(const NameDigest& subject) const {
    for (const CertRecord* record : of_subject(subject))
        if (record->isAnchor)
            return true;
    return false;
}

} // namespace zul
