// RFC 5280, 5.2.
#include "cert/make/crl_extension_list.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/extension_values.h"
#include "cert/make/issuer_certificate.h"

namespace zul {
namespace {

constexpr uint8_t kTrue = 0xFF;

AsnList flag(uint32_t n, bool isSet) {
    return isSet ? asn_NewContextPrim(n, &kTrue, 1) : AsnList();
}

// reason_flags makes [3] of ReasonFlags without zero bits at the end (X.690, 11.2.2).
AsnList reason_flags(uint32_t reasons) {
    uint8_t content[3] = {};
    size_t last = 0;
    for (size_t bit = 0; bit < 16; bit++) {
        if ((reasons >> bit & 1) == 0)
            continue;
        content[1 + bit / 8] |= static_cast<uint8_t>(0x80 >> bit % 8);
        last = bit;
    }
    content[0] = static_cast<uint8_t>(7 - last % 8);
    return reasons != 0 ? asn_NewContextPrim(3, content, 2 + last / 8) : AsnList();
}

AsnList extension_of(std::string_view oid, bool isCritical, AsnList content) {
    return content ? extension_make(oid, isCritical, asn_NewSequence(std::move(content))) : AsnList();
}

} // namespace

SecretBuffer issuing_point_encode(const CrlPlan& plan) {
    AsnList name;
    if (plan.pointNames)
        name = asn_NewExplicit(0, asn_NewExplicit(0, asn_CopyList(plan.pointNames.head())));
    return asn_Encode(asn_NewSequence(asn_LinkList(std::move(name), flag(1, plan.onlyUser),
                                                   flag(2, plan.onlyCa), reason_flags(plan.onlyReasons),
                                                   flag(4, plan.isIndirect), flag(5, plan.onlyAttribute))));
}

AsnList crl_extension_list(CrlPlan& plan, const CrlSettled& settled) {
    const SecretBuffer& identifier = settled.authorityKeyIdentifier;
    AsnList delta, point, expired;
    if (settled.deltaBase)
        delta = extension_make(kOidDeltaCrlIndicator, true, settled.deltaBase->integer());
    if (!settled.issuingPoint.empty())
        point = extension_make(kOidIssuingDistributionPoint, true,
                               elements_of({settled.issuingPoint.data(), settled.issuingPoint.size()}));
    if (plan.expiredSince)
        expired = extension_make(kOidExpiredCertsOnCrl, false, asn_NewGeneralizedTime(*plan.expiredSince));
    return asn_NewSequence(
        asn_LinkList(extension_of(kOidAuthorityKeyIdentifier, false,
                                  asn_NewContextPrim(0, identifier.data(), identifier.size())),
                     extension_make(kOidCrlNumber, false, settled.number.integer()), std::move(delta),
                     std::move(point), extension_of(kOidFreshestCrl, false, std::move(plan.freshestPoints)),
                     extension_of(kOidAuthorityInfoAccess, false, std::move(plan.issuerAccess)),
                     std::move(expired), std::move(plan.otherExtensions)));
}

} // namespace zul
