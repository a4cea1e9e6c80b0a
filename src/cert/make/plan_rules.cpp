#include "cert/make/plan_rules.h"

#include "asn1/asn_build.h"
#include "asn1/asn_element.h"
#include "cert/fields/cert_extensions.h"
#include "cert/fields/cert_oids.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "key/key_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr uint32_t kSigning =
    kUsageDigitalSignature | kUsageNonRepudiation | kUsageKeyCertSign | kUsageCrlSign;
constexpr uint32_t kAgreeing = kUsageKeyAgreement | kUsageEncipherOnly | kUsageDecipherOnly;

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

// possible_usage gives the bits that a kind of key may have.
uint32_t possible_usage(KeyKind kind) {
    switch (kind) {
    case KeyKind::rsa:
        return kSigning | kUsageKeyEncipherment | kUsageDataEncipherment;
    case KeyKind::p256:
    case KeyKind::p384:
    case KeyKind::p521:
        return kSigning | kAgreeing;
    case KeyKind::rsaPss:
    case KeyKind::ed25519:
        return kSigning;
    case KeyKind::x25519:
        break;
    }
    return kAgreeing;
}

uint32_t default_usage(CertificateProfile profile, bool isCa, const Key& key) {
    if (isCa)
        return kUsageKeyCertSign | kUsageCrlSign;
    if (key.kind == KeyKind::x25519)
        return kUsageKeyAgreement;
    uint32_t usage = kUsageDigitalSignature;
    switch (profile) {
    case CertificateProfile::none:
    case CertificateProfile::server:
        if (key.kind == KeyKind::rsa) // TLS up to 1.2 may encrypt its secret to the key
            usage |= kUsageKeyEncipherment;
        break;
    case CertificateProfile::email:
        usage |= key.kind == KeyKind::rsa ? kUsageKeyEncipherment : key.is_ec() ? kUsageKeyAgreement : 0;
        break;
    default:
        break;
    }
    return usage;
}

std::string_view default_purpose(CertificateProfile profile) {
    switch (profile) {
    case CertificateProfile::server:
        return kOidServerAuth;
    case CertificateProfile::client:
        return kOidClientAuth;
    case CertificateProfile::email:
        return kOidEmailProtection;
    case CertificateProfile::code:
        return kOidCodeSigning;
    case CertificateProfile::ocsp:
        return kOidOcspSigning;
    case CertificateProfile::timestamp:
        return kOidTimeStamping;
    case CertificateProfile::none:
    case CertificateProfile::ca:
        break;
    }
    return {};
}

void put_defaults(CertificatePlan& plan, const Key& key) {
    if (plan.kind == PlanKind::request && plan.profile == CertificateProfile::none)
        return;
    if (!plan.isCa)
        plan.isCa = plan.profile == CertificateProfile::ca;
    if (!plan.keyUsage)
        plan.keyUsage = default_usage(plan.profile, *plan.isCa, key);
    if (const std::string_view purpose = default_purpose(plan.profile); !plan.extKeyUsage && !purpose.empty())
        plan.extKeyUsage = oid_node(purpose);
    if (!plan.noCheck && plan.profile == CertificateProfile::ocsp)
        plan.noCheck = true; // who could tell whether the responder's own certificate is revoked?
}

bool has_name(const CertificatePlan& plan, uint32_t tag) {
    for (const asn_Node* node = plan.alternativeNames.head(); node != nullptr; node = node->next)
        if (node->level == 0 && asn_is(node, kAsnContext, tag))
            return true;
    return false;
}

// An address that is not ASCII is an otherName.
bool has_address(const CertificatePlan& plan) {
    constexpr std::string_view kMailbox = "\x06\x08\x2B\x06\x01\x05\x05\x07\x08\x09"sv;
    for (const asn_Node* node = plan.alternativeNames.head(); node != nullptr; node = asn_ElementEnd(node)) {
        const SecretBuffer name = asn_EncodeElement(node);
        const std::string_view content = slice({name.text(), name.size()}, node->hdrsize);
        if (asn_is(node, kAsnContext, 1) || (asn_is(node, kAsnExplicit, 0) && content.starts_with(kMailbox)))
            return true;
    }
    return false;
}

[[nodiscard]] int check_names(const CertificatePlan& plan, bool isCa) {
    if ((isCa || plan.kind == PlanKind::selfSigned) && !plan.subject)
        return bad("An issuer of certificates, of its own too, has a subject");
    if (!plan.subject && !plan.alternativeNames)
        return bad("Neither a subject nor an alternative name is given");
    if (plan.profile == CertificateProfile::server && !has_name(plan, 2) && !has_name(plan, 7))
        return bad("A server has a name in dns= or an address in ip=");
    if (plan.profile == CertificateProfile::email && !has_address(plan))
        return bad("The profile email needs an address in email=");
    return 0;
}

[[nodiscard]] int check_usage(uint32_t usage, const Key& key, bool isCa) {
    if ((usage & ~possible_usage(key.kind)) != 0)
        return err_fail(BAD_PARAM_ERROR, "Keys of %s do not have this key usage",
                        key_kind_info(key.kind).name);
    if ((usage & (kUsageEncipherOnly | kUsageDecipherOnly)) != 0 && (usage & kUsageKeyAgreement) == 0)
        return bad("encipherOnly and decipherOnly go with keyAgreement");
    return (usage & kUsageKeyCertSign) != 0 && !isCa ? bad("The key usage keyCertSign goes with ca") : 0;
}

} // namespace

int plan_complete(CertificatePlan& plan, const Key& subjectKey) {
    if (plan.profile == CertificateProfile::ca && plan.isCa == false)
        return bad("The profile ca contradicts ca=false");
    // Such a key has no usage that agrees with the purpose (RFC 5280, 4.2.1.12); TLS has no use for it
    // either.
    if (subjectKey.kind == KeyKind::x25519 && plan.profile != CertificateProfile::none &&
        plan.profile != CertificateProfile::email)
        return bad("An X25519 key does not sign: of the profiles email alone is for it");
    put_defaults(plan, subjectKey);
    const bool isCa = plan.isCa.value_or(false);
    if (const int error = check_names(plan, isCa))
        return error;
    if (plan.keyUsage)
        if (const int error = check_usage(*plan.keyUsage, subjectKey, isCa))
            return error;
    if (plan.pathLength >= 0 && (!isCa || (plan.keyUsage && (*plan.keyUsage & kUsageKeyCertSign) == 0)))
        return bad("A pathLength goes with ca and the key usage keyCertSign");
    if (!isCa && (plan.permitted || plan.excluded))
        return bad("Constraints of names (permit, exclude) go with ca");
    if (!isCa && (plan.policyMappings || plan.requireExplicitPolicy >= 0 || plan.inhibitPolicyMapping >= 0 ||
                  plan.inhibitAnyPolicy >= 0))
        return bad(
            "policyMapping, requireExplicitPolicy, inhibitPolicyMapping and inhibitAnyPolicy go with ca");
    return 0;
}

} // namespace zul
