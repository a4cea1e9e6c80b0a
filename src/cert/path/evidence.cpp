#include "cert/path/evidence.h"

#include <algorithm>
#include <numeric>

#include "cert/fields/cert_oids.h"
#include "cert/path/cert_signature.h"
#include "cert/path/error_text_scope.h"
#include "zulcore.h"

namespace zul {

namespace {

bool is_before(const NameDigest& a, const NameDigest& b) {
    return memcmp(a.bytes, b.bytes, sizeof a.bytes) < 0;
}

} // namespace

bool SignatureMemo::verified(DerView bytes, const AlgorithmView& algorithm, DerView signature,
                             const PathLink& signer, PathBudget& budget) {
    if (signer.key == nullptr || !signer.key->is_read())
        return false;
    const DerView parameters = signer.key->dsa_parameters();
    for (const Tried& each : tried_) {
        if (!budget.take_comparison(signer.publicKeyInfo.size))
            return false;
        if (each.publicKeyInfo == signer.publicKeyInfo && each.parameters == parameters)
            return each.isGood;
    }
    const int code = signer.key->check(bytes, algorithm, signature, budget);
    if (code == OUT_OF_RANGE_ERROR)
        return false;
    tried_.add({signer.publicKeyInfo, parameters, code == 0});
    return code == 0;
}

bool CrlRecord::signed_by(const PathLink& signer, PathBudget& budget) {
    return view.unusedBits == 0 && view.signatureAlgorithm.encoding == view.innerAlgorithm.encoding &&
           memo.verified(view.toBeSigned, view.signatureAlgorithm, view.signature, signer, budget);
}

void Evidence::add_crl(DerView encoding) {
    CrlRecord record;
    if (crl_view_read(encoding, record.view) != 0) {
        unreadable_++;
        return;
    }
    record.isReadable = crl_extensions_read(record.view, record.extensions) == 0 &&
                        record.extensions.unknownCritical.data == nullptr;
    record.issuer = name_digest(record.view.issuer);
    crls_.add(std::move(record));
}

void Evidence::add_response(DerView encoding) {
    OcspRecord record;
    if (ocsp_response_view_read(encoding, record.view) != 0 || record.view.responseStatus != 0) {
        unreadable_++;
        return;
    }
    responses_.add(std::move(record));
}

void Evidence::read(const ObjectList& list) {
    const ErrorTextScope scope;
    for (const ObjectEntry& object : list)
        if (object.kind == ObjectKind::crl)
            add_crl(object.der);
        else if (object.kind == ObjectKind::ocspResponse)
            add_response(object.der);
        else if (object.kind == ObjectKind::other)
            unreadable_++;
    unreadable_ += list.unreadable();
    order_.clear();
    order_.reserve(crls_.size());
    for (uint32_t i = 0; i < crls_.size(); i++)
        order_.add(i);
    std::sort(order_.begin(), order_.end(), [this](uint32_t a, uint32_t b) {
        return is_before(crls_[a].issuer, crls_[b].issuer) || (a < b && crls_[a].issuer == crls_[b].issuer);
    });
}

CrlRange Evidence::crls_of(const NameDigest& issuer) const {
    const uint32_t* first = std::lower_bound(
        order_.begin(), order_.end(), issuer,
        [this](uint32_t place, const NameDigest& name) { return is_before(crls_[place].issuer, name); });
    const uint32_t* last = first;
    while (last != order_.end() && crls_[*last].issuer == issuer)
        last++;
    return {first, last};
}

} // namespace zul
