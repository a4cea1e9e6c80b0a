#include "cert/path/crl_scope.h"

#include <algorithm>

#include "cert/fields/cert_oids.h"
#include "cert/fields/general_name.h"

namespace zul {

namespace {

// The cost of a digest, beside that of its bytes, and of comparing two.
constexpr int64_t kDigestCost = 300, kComparisonCost = 12;

NameDigest general_name_digest(const GeneralNameView& name) {
    if (name.type == GeneralNameType::directoryName)
        return name_digest(name.value);
    NameDigest digest = {};
    Sha256Context context;
    sha256_init(context);
    sha256_update(context, name.encoding.data, name.encoding.size);
    sha256_final(context, digest.bytes);
    return digest;
}

[[nodiscard]] bool add_general_names(Array<NameDigest>& digests, DerView names, bool onlyDirectoryNames,
                                     PathBudget& budget) {
    GeneralNameReader reader(names);
    GeneralNameView name;
    while (reader.next(name)) {
        if (!budget.take(kDigestCost) || !budget.take_name(name.encoding.size))
            return false;
        if (!onlyDirectoryNames || name.type == GeneralNameType::directoryName)
            digests.add(general_name_digest(name));
    }
    return true;
}

// DigestedBase is the issuer of a CRL as the beginning of full names. Many points may have the same one.
struct DigestedBase {
    DerView name;
    NameDigester digester;
};

// add_point_name adds the full names that a DistributionPointName stands for. base is the issuer of the CRL.
[[nodiscard]] bool add_point_name(Array<NameDigest>& digests, const DistributionPointName& name, DerView base,
                                  DigestedBase& digested, PathBudget& budget) {
    if (!name.relativeName.empty()) {
        if (digested.name.data != base.data) {
            if (!budget.take_name(base.size))
                return false;
            digested = {base, NameDigester()};
            digested.digester.add_name(base);
        }
        if (!budget.take(kDigestCost) || !budget.take_name(name.relativeName.size))
            return false;
        NameDigester digester = digested.digester;
        digester.add_rdn(name.relativeName);
        digests.add(digester.digest());
    }
    return add_general_names(digests, name.fullName, false, budget);
}

bool is_before(const NameDigest& a, const NameDigest& b) {
    return memcmp(a.bytes, b.bytes, sizeof a.bytes) < 0;
}

bool have_common(const Array<NameDigest>& some, const Array<NameDigest>& others, PathBudget& budget) {
    const uint64_t pairs = static_cast<uint64_t>(some.size()) * others.size();
    if (!budget.take(static_cast<int64_t>(pairs) * kComparisonCost))
        return false;
    for (const NameDigest& each : some)
        for (const NameDigest& other : others)
            if (each == other)
                return true;
    return false;
}

} // namespace

bool CrlScope::read(const CertificateView& certificate, const CertExtensions& extensions,
                    PathBudget& budget) {
    isCa_ = extensions.isCa;
    const bool isIssuerPaid = budget.take_name(certificate.issuer.size); // there is always one
    issuers_.add(name_digest(certificate.issuer));
    issuerPoint_.names.add(issuers_[0]);
    if (!isIssuerPaid)
        return false;
    DigestedBase digested;
    ExtensionView altName;
    DerView altNames;
    if (find_extension(certificate.extensions, kOidIssuerAltName, altName) &&
        (!der_single(altName.value, kDerSequence, altNames) ||
         !add_general_names(issuerPoint_.names, altNames, false, budget)))
        return false;

    DistributionPointReader reader(extensions.crlDistributionPoints);
    DistributionPoint view;
    while (reader.next(view)) {
        Point point;
        point.reasons = view.reasons & kAllReasons;
        point.hasCrlIssuer = !view.crlIssuer.empty();
        if (!budget.take(kDigestCost) || !add_general_names(point.crlIssuers, view.crlIssuer, true, budget))
            return false;
        // A relative name goes with the one name of the CRL's issuer (RFC 5280, 4.2.1.13).
        DerView base = certificate.issuer;
        GeneralNameReader crlIssuers(view.crlIssuer);
        GeneralNameView crlIssuer;
        while (crlIssuers.next(crlIssuer))
            if (crlIssuer.type == GeneralNameType::directoryName)
                base = crlIssuer.value;
        if (!add_point_name(point.names, view.name, base, digested, budget))
            return false;
        crlIssuers_ += point.crlIssuers.size();
        for (const NameDigest& each : point.crlIssuers)
            issuers_.add(each);
        points_.add(std::move(point));
    }
    // Each once: many points may name one issuer.
    std::sort(issuers_.begin() + 1, issuers_.end(), is_before);
    issuers_.shrink(static_cast<size_t>(std::unique(issuers_.begin(), issuers_.end()) - issuers_.begin()));
    return reader.at_end();
}

bool CrlScope::point_covers(const Point& point, const CrlRecord& crl, const Array<NameDigest>& crlNames,
                            PathBudget& budget) const {
    if (point.hasCrlIssuer) {
        bool isIssuer = false;
        for (const NameDigest& each : point.crlIssuers)
            isIssuer = isIssuer || each == crl.issuer;
        if (!isIssuer || !crl.extensions.issuingPoint.isIndirect)
            return false;
    } else if (!(crl.issuer == certificate_issuer())) {
        return false;
    }
    if (crlNames.empty())
        return true;
    return have_common(crlNames, point.names.empty() ? point.crlIssuers : point.names, budget);
}

uint32_t CrlScope::reasons(const CrlRecord& crl, PathBudget& budget) const {
    const IssuingPoint& issuing = crl.extensions.issuingPoint;
    if (issuing.onlyAttributeCerts || (issuing.onlyUserCerts && isCa_) || (issuing.onlyCaCerts && !isCa_))
        return 0;
    Array<NameDigest> crlNames;
    DigestedBase digested;
    if (!budget.take(static_cast<int64_t>(points_.size() + crlIssuers_) * kComparisonCost) ||
        !add_point_name(crlNames, issuing.name, crl.view.issuer, digested, budget))
        return 0;
    uint32_t reasons = 0;
    bool isNamed = false;
    for (const Point& point : points_)
        if (point_covers(point, crl, crlNames, budget)) {
            isNamed = true;
            reasons |= point.reasons;
        }
    if (!isNamed && point_covers(issuerPoint_, crl, crlNames, budget))
        reasons = kAllReasons;
    return reasons & issuing.onlySomeReasons;
}

} // namespace zul
