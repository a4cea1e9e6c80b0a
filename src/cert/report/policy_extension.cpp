// certificatePolicies (RFC 5280, 4.2.1.4).
#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

bool show_notice_reference(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerElement organization;
    DerView numbers, number;
    if (!fields.take_any(organization) || !string_type_is_known(organization.identifier) ||
        !fields.take(kDerSequence, numbers) || !fields.at_end())
        return false;
    report.begin_object("noticeRef");
    report.string("organization", organization);
    report.begin_words("noticeNumbers");
    DerReader reader(numbers);
    while (!reader.at_end())
        if (!reader.take(kDerInteger, number) || !show_integer(report, {}, number))
            return false;
    report.end_words();
    report.end_object();
    return true;
}

bool show_user_notice(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerView reference;
    DerElement text;
    bool hasReference;
    if (!fields.take_optional(kDerSequence, reference, hasReference))
        return false;
    report.begin_object("userNotice");
    if (hasReference && !show_notice_reference(report, reference))
        return false;
    if (!fields.at_end()) {
        if (!fields.take_any(text) || !string_type_is_known(text.identifier) || !fields.at_end())
            return false;
        report.string("explicitText", text);
    }
    report.end_object();
    return true;
}

bool show_qualifier(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerView type;
    DerElement qualifier;
    if (!fields.take(kDerOid, type) || !der_is_oid(type) || !fields.take_any(qualifier) || !fields.at_end())
        return false;
    const std::string_view name = oid_name(type);
    report.begin_object({});
    if (name == "cps" && string_type_is_known(qualifier.identifier)) {
        report.string("cPSuri", qualifier);
    } else if (name == "unotice" && qualifier.is(kDerSequence)) {
        if (!show_user_notice(report, qualifier.content))
            return false;
    } else {
        static_cast<void>(show_oid(report, "policyQualifierId", type));
        report.bytes("qualifier", qualifier.encoding);
    }
    report.end_object();
    return true;
}

bool show_policy(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerView policy, qualifiers;
    DerElement qualifier;
    bool hasQualifiers;
    if (!fields.take(kDerOid, policy) || !fields.take_optional(kDerSequence, qualifiers, hasQualifiers) ||
        !fields.at_end())
        return false;
    report.begin_object({});
    if (!show_oid(report, "policyIdentifier", policy))
        return false;
    if (hasQualifiers) {
        DerReader reader(qualifiers);
        report.begin_list("policyQualifiers");
        while (reader.take_any(qualifier))
            show_guarded(report, {}, qualifier.encoding, [&] {
                return qualifier.is(kDerSequence) && show_qualifier(report, qualifier.content);
            });
        report.end_list();
        if (!reader.at_end())
            return false;
    }
    report.end_object();
    return true;
}

} // namespace

bool show_policies(ReportWriter& report, DerView value) {
    return show_list(report, value, [&](const DerElement& element) {
        return element.is(kDerSequence) && show_policy(report, element.content);
    });
}

} // namespace zul
