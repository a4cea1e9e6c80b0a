// Which extensions are critical: RFC 5280, 4.2; RFC 3161, 2.3; RFC 6960, 4.2.2.2.1; RFC 7633.
#include "cert/make/plan_extensions.h"

#include "asn1/asn_build.h"
#include "asn1/asn_value.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/extension_values.h"
#include "hash/sha1.h"
#include "key/key_oids.h"

namespace zul {
namespace {

AsnList unsigned_integer(int value) {
    return asn_NewInteger(static_cast<uint32_t>(value));
}

// Context-specific [n] of an INTEGER, as policyConstraints has it.
AsnList tagged_number(uint32_t n, int value) {
    if (value < 0)
        return {};
    const AsnList number = unsigned_integer(value);
    return asn_NewContextPrim(n, number.head()->data, number.head()->length);
}

AsnList key_usage(uint32_t usage) {
    uint8_t bytes[4];
    unsigned unused = 0;
    const size_t size = asn_BitFlagsToBytes(usage, bytes, &unused);
    return asn_NewBitString(unused, bytes, size);
}

AsnList tagged_list(uint32_t n, AsnList list) {
    return list ? asn_NewExplicit(n, std::move(list)) : AsnList();
}

class ExtensionWriter {
  public:
    void add(std::string_view oid, bool isCritical, AsnList value) {
        list_ = asn_Link(std::move(list_), extension_make(oid, isCritical, std::move(value)));
    }
    // add_list adds a SEQUENCE of elements, if there are any.
    void add_list(std::string_view oid, bool isCritical, AsnList elements) {
        if (elements)
            add(oid, isCritical, asn_NewSequence(std::move(elements)));
    }
    void add_extensions(AsnList extensions) { list_ = asn_Link(std::move(list_), std::move(extensions)); }
    AsnList finish() { return list_ ? asn_NewSequence(std::move(list_)) : AsnList(); }

  private:
    AsnList list_;
};

} // namespace

AsnList plan_extensions(CertificatePlan& plan, const SecretBuffer& subjectKeyIdentifier,
                        const SecretBuffer& authorityKeyIdentifier) {
    ExtensionWriter out;
    if (plan.isCa)
        out.add(
            kOidBasicConstraints, true,
            asn_NewSequence(asn_Link(*plan.isCa ? asn_NewBoolean(1) : AsnList(), // FALSE is the default
                                     plan.pathLength >= 0 ? unsigned_integer(plan.pathLength) : AsnList())));
    if (plan.keyUsage)
        out.add(kOidKeyUsage, true, key_usage(*plan.keyUsage));
    const bool isStamping =
        oid_is(plan.extKeyUsage.head(), kOidTimeStamping) && plan.extKeyUsage.head()->next == nullptr;
    out.add_list(kOidExtKeyUsage, isStamping, std::move(plan.extKeyUsage));
    if (!subjectKeyIdentifier.empty())
        out.add(kOidSubjectKeyIdentifier, false,
                asn_NewOctetString(subjectKeyIdentifier.data(), subjectKeyIdentifier.size()));
    if (!authorityKeyIdentifier.empty())
        out.add(kOidAuthorityKeyIdentifier, false,
                asn_NewSequence(
                    asn_NewContextPrim(0, authorityKeyIdentifier.data(), authorityKeyIdentifier.size())));
    out.add_list(kOidSubjectAltName, !plan.subject, std::move(plan.alternativeNames));
    out.add_list(kOidCertificatePolicies, false, std::move(plan.policies));
    out.add_list(kOidPolicyMappings, true, std::move(plan.policyMappings));
    out.add_list(
        kOidPolicyConstraints, true,
        asn_Link(tagged_number(0, plan.requireExplicitPolicy), tagged_number(1, plan.inhibitPolicyMapping)));
    if (plan.inhibitAnyPolicy >= 0)
        out.add(kOidInhibitAnyPolicy, true, unsigned_integer(plan.inhibitAnyPolicy));
    out.add_list(
        kOidNameConstraints, true,
        asn_Link(tagged_list(0, std::move(plan.permitted)), tagged_list(1, std::move(plan.excluded))));
    out.add_list(kOidCrlDistributionPoints, false, std::move(plan.crlPoints));
    out.add_list(kOidFreshestCrl, false, std::move(plan.freshestPoints));
    out.add_list(kOidAuthorityInfoAccess, false, std::move(plan.authorityAccess));
    out.add_list(kOidSubjectInfoAccess, false, std::move(plan.subjectAccess));
    out.add_list(kOidTlsFeature, false, std::move(plan.tlsFeatures));
    if (plan.noCheck.value_or(false))
        out.add(kOidOcspNoCheck, false, asn_NewNull());
    out.add_extensions(std::move(plan.otherExtensions));
    return out.finish();
}

SecretBuffer key_identifier(DerView publicKeyInfo) {
    DerView fields, bits;
    DerElement algorithm;
    if (!der_single(publicKeyInfo, kDerSequence, fields))
        return {};
    DerReader reader(fields);
    if (!reader.take_any(algorithm) || !reader.take(kDerBitString, bits) || bits.empty())
        return {};
    SecretBuffer identifier(kSha1Size);
    Sha1Context context;
    sha1_init(context);
    sha1_update(context, bits.data + 1, bits.size - 1);
    sha1_final(context, identifier.data());
    return identifier;
}

} // namespace zul
