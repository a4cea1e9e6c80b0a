#include "cert/make/certificate_plan.h"

#include "asn1/asn_build.h"
#include "cert/make/description.h"
#include "cert/make/element_list.h"
#include "cert/make/extension_values.h"
#include "cert/make/name_values.h"
#include "cert/names/name_build.h"
#include "frame/err.h"
#include "x509/fields/hex_value.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

using Plan = CertificatePlan;
using Item = DescriptionItem;

constexpr size_t kMaxSerial = 20; // octets (RFC 5280, 4.1.2.2)

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

[[nodiscard]] int no_place() {
    return bad("A request has no place for it");
}

int take_attribute(Plan& plan, const DescriptionReader& reader, const Item& item) {
    if (!name_is_attribute(item.keyword))
        return reader.unknown();
    if (plan.hasWholeSubject)
        return bad("The subject is given already");
    AsnList relativeName;
    const int error = name_attribute_make(relativeName, item.keyword, item.value);
    plan.subject = asn_Link(std::move(plan.subject), std::move(relativeName));
    return error;
}

int take_subject(Plan& plan, const Item& item) {
    if (plan.subject)
        return bad("The subject is given already");
    plan.hasWholeSubject = true;
    return relative_names_make(plan.subject, item.value.data());
}

template<GeneralForm form>
int take_name(Plan& plan, const Item& item) {
    AsnList name;
    const int error = general_name_make(name, form, item.value);
    if (error == 0)
        list_add(plan.alternativeNames, std::move(name));
    return error;
}

// take_element adds what a function makes of a value to a list of the plan.
template<AsnList Plan::*list, int (*make)(AsnList&, std::string_view)>
int take_element(Plan& plan, const Item& item) {
    AsnList element;
    const int error = make(element, item.value);
    if (error == 0)
        list_add(plan.*list, std::move(element));
    return error;
}

template<int Plan::*number>
int take_number(Plan& plan, const Item& item) {
    return small_number_read(plan.*number, item.value);
}

template<std::optional<bool> Plan::*flag>
int take_flag(Plan& plan, const Item& item) {
    plan.*flag = item.isSet;
    return 0;
}

int take_profile(Plan& plan, const Item& item) {
    constexpr struct {
        const char* name;
        CertificateProfile profile;
    } kProfiles[] = {
        {"server", CertificateProfile::server},
        {"client", CertificateProfile::client},
        {"email", CertificateProfile::email},
        {"code", CertificateProfile::code},
        {"ca", CertificateProfile::ca},
        {"ocsp", CertificateProfile::ocsp},
        {"timestamp", CertificateProfile::timestamp},
    };
    for (const auto& row : kProfiles) {
        if (same_word(item.value, row.name)) {
            plan.profile = row.profile;
            return 0;
        }
    }
    return bad("Not a profile (server, client, email, code, ca, ocsp, timestamp)");
}

int take_usage(Plan& plan, const Item& item) {
    uint32_t bit = 0;
    const int error = key_usage_bit(bit, item.value);
    plan.keyUsage = plan.keyUsage.value_or(0) | bit;
    return error;
}

int take_policy(Plan& plan, const Item& item) {
    AsnList policy;
    if (const int error = policy_make(policy, item.value))
        return error;
    if (list_has_type(plan.policies, policy.head()->next))
        return bad("A policy that is given already");
    plan.policies = asn_Link(std::move(plan.policies), std::move(policy));
    return 0;
}

template<AsnList Plan::*list, bool isExcluded>
int take_constraint(Plan& plan, const Item& item) {
    AsnList base;
    const int error = name_constraint_make(base, item.value, isExcluded);
    if (error == 0)
        list_add(plan.*list, asn_NewSequence(std::move(base)));
    return error;
}

template<bool isOcsp>
int take_access(Plan& plan, const Item& item) {
    AsnList access;
    const int error = access_make(access, isOcsp ? "ocsp" : "caIssuers", item.value);
    if (error == 0)
        list_add(plan.authorityAccess, std::move(access));
    return error;
}

int take_staple(Plan& plan, const Item& item) {
    AsnList feature;
    const int error = tls_feature_make(feature, "status_request");
    if (item.isSet)
        list_add(plan.tlsFeatures, std::move(feature));
    return error;
}

int take_extension(Plan& plan, const Item& item) {
    AsnList extension;
    if (const int error = extension_make_any(extension, item.value))
        return error;
    if (list_has_type(plan.otherExtensions, extension.head()->next))
        return bad("An extension that is given already");
    plan.otherExtensions = asn_Link(std::move(plan.otherExtensions), std::move(extension));
    return 0;
}

int take_not_before(Plan& plan, const Item& item) {
    return plan.kind == PlanKind::request
               ? no_place()
               : time_value_read(plan.notBefore.emplace(), item.value.data(), "00:00:00");
}

// may_end tells whether an end of the validity may be given here.
[[nodiscard]] int may_end(const Plan& plan) {
    if (plan.kind == PlanKind::request)
        return no_place();
    return plan.notAfter || plan.span ? bad("The end of the validity is given already") : 0;
}

int take_not_after(Plan& plan, const Item& item) {
    if (const int error = may_end(plan))
        return error;
    tm& time = plan.notAfter.emplace();
    // RFC 5280, 4.1.2.5: a certificate without a well-defined end.
    return same_word(item.value, "never") ? time_value_read(time, "9999-12-31T23:59:59", nullptr)
                                          : time_value_read(time, item.value.data(), "23:59:59");
}

template<int (*read)(TimeSpan&, std::string_view)>
int take_span(Plan& plan, const Item& item) {
    if (const int error = may_end(plan))
        return error;
    return read(plan.span.emplace(), item.value);
}

int take_serial(Plan& plan, const Item& item) {
    if (plan.kind == PlanKind::request)
        return no_place();
    SecretBuffer bytes;
    if (!hex_value(item.value, bytes))
        return bad("Not hex digits");
    size_t zeros = 0;
    while (zeros < bytes.size() && bytes[zeros] == 0)
        zeros++;
    const size_t size = bytes.size() - zeros;
    if (size == 0 || size > kMaxSerial || (size == kMaxSerial && bytes[zeros] >= 0x80))
        return bad("A serial number is above 0 and has at most 20 bytes, with the sign");
    plan.serial.append(bytes.data() + zeros, size);
    return 0;
}

int take_signature(Plan& plan, const Item& item) {
    plan.signature.append(item.value.data(), item.value.size());
    return 0;
}

int take_copy(Plan& plan, const Item& item) {
    if (plan.kind != PlanKind::issued)
        return bad("Extensions are copied from a request into the certificate that is issued for it");
    SecretBuffer type = extension_type(item.value);
    if (type.empty())
        return bad("Not the name of an extension, or a dotted identifier");
    plan.copied.add(std::move(type));
    return 0;
}

constexpr DescriptionForm kText = DescriptionForm::text, kList = DescriptionForm::list,
                          kFlag = DescriptionForm::flag;

constexpr DescriptionRow<Plan> kRows[] = {
    {{"subject", kText, false}, take_subject},
    {{"dns", kList, true}, take_name<GeneralForm::dns>},
    {{"ip", kList, true}, take_name<GeneralForm::ip>},
    {{"email", kList, true}, take_name<GeneralForm::email>},
    {{"uri", kList, true}, take_name<GeneralForm::uri>},
    {{"rid", kList, true}, take_name<GeneralForm::registeredId>},
    {{"dirName", kText, true}, take_name<GeneralForm::directory>},
    {{"other", kText, true}, take_name<GeneralForm::other>},
    {{"upn", kList, true}, take_name<GeneralForm::principal>},
    {{"profile", kText, false}, take_profile},
    {{"keyUsage", kList, true}, take_usage},
    {{"extKeyUsage", kList, true}, take_element<&Plan::extKeyUsage, key_purpose_make>},
    {{"ca", kFlag, false}, take_flag<&Plan::isCa>},
    {{"pathLength", kText, false}, take_number<&Plan::pathLength>},
    {{"policy", kList, true}, take_policy},
    {{"policyMapping", kList, true}, take_element<&Plan::policyMappings, policy_mapping_make>},
    {{"requireExplicitPolicy", kText, false}, take_number<&Plan::requireExplicitPolicy>},
    {{"inhibitPolicyMapping", kText, false}, take_number<&Plan::inhibitPolicyMapping>},
    {{"inhibitAnyPolicy", kText, false}, take_number<&Plan::inhibitAnyPolicy>},
    {{"permit", kList, true}, take_constraint<&Plan::permitted, false>},
    {{"exclude", kList, true}, take_constraint<&Plan::excluded, true>},
    {{"crl", kList, true}, take_element<&Plan::crlPoints, distribution_point_make>},
    {{"freshestCrl", kList, true}, take_element<&Plan::freshestPoints, distribution_point_make>},
    {{"ocsp", kList, true}, take_access<true>},
    {{"caIssuers", kList, true}, take_access<false>},
    {{"subjectInfoAccess", kList, true}, take_element<&Plan::subjectAccess, subject_access_make>},
    {{"tlsFeature", kList, true}, take_element<&Plan::tlsFeatures, tls_feature_make>},
    {{"mustStaple", kFlag, false}, take_staple},
    {{"noCheck", kFlag, false}, take_flag<&Plan::noCheck>},
    {{"extension", kText, true}, take_extension},
    {{"notBefore", kText, false}, take_not_before},
    {{"notAfter", kText, false}, take_not_after},
    {{"days", kText, false}, take_span<time_days_read>},
    {{"valid", kText, false}, take_span<time_span_read>},
    {{"serial", kText, false}, take_serial},
    {{"signature", kText, false}, take_signature},
    {{"copy", kList, true}, take_copy},
};

} // namespace

int certificate_plan_read(CertificatePlan& plan, const char* description) {
    const int error = description_read(description, kRows, plan, take_attribute);
    plan_drop_repeats(plan);
    return error;
}

void plan_drop_repeats(CertificatePlan& plan) {
    for (AsnList Plan::*list : {&Plan::alternativeNames, &Plan::extKeyUsage, &Plan::policyMappings,
                                &Plan::permitted, &Plan::excluded, &Plan::crlPoints, &Plan::freshestPoints,
                                &Plan::authorityAccess, &Plan::subjectAccess, &Plan::tlsFeatures})
        list_drop_repeats(plan.*list);
}

} // namespace zul
