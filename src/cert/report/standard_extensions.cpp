// The extensions of certificates of RFC 5280, 4.2.
#include <iterator>

#include "cert/fields/cert_extensions.h"
#include "cert/fields/crl_view.h"
#include "cert/fields/oid_names.h"
#include "cert/names/name_print.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

constexpr std::string_view kReasonFlags[] = {
    "unused",      "keyCompromise",        "cACompromise",    "affiliationChanged",
    "superseded",  "cessationOfOperation", "certificateHold", "privilegeWithdrawn",
    "aACompromise"};

bool show_basic_constraints(ReportWriter& report, DerView value) {
    DerView content, flag, number;
    bool hasFlag, hasNumber, isCa = false;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_optional(kDerBoolean, flag, hasFlag) || (hasFlag && !der_boolean(flag, isCa)) ||
        !fields.take_optional(kDerInteger, number, hasNumber) || !fields.at_end())
        return false;
    report.begin_object(kExtnValue);
    report.flag("cA", isCa);
    const bool isGood = !hasNumber || show_integer(report, "pathLenConstraint", number);
    report.end_object();
    return isGood;
}

bool show_key_usage(ReportWriter& report, DerView value) {
    DerView bits;
    return der_single(value, kDerBitString, bits) && show_named_bits(report, kExtnValue, bits, kKeyUsageName);
}

bool show_authority_key_id(ReportWriter& report, DerView value) {
    AuthorityKeyId id;
    if (!authority_key_id_read(value, id))
        return false;
    report.begin_object(kExtnValue);
    if (id.keyIdentifier.data != nullptr)
        report.bytes("keyIdentifier", id.keyIdentifier);
    if (id.issuerNames.data != nullptr &&
        (!show_general_names(report, "authorityCertIssuer", id.issuerNames) ||
         !show_hex_integer(report, "authorityCertSerialNumber", id.serialNumber)))
        return false;
    report.end_object();
    return true;
}

bool show_private_key_period(ReportWriter& report, DerView value) {
    DerView content, time;
    bool found;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    report.begin_object(kExtnValue);
    constexpr std::string_view kKeys[] = {"notBefore", "notAfter"};
    for (unsigned i = 0; i <= 1; i++) {
        if (!fields.take_optional(der_context(i), time, found))
            return false;
        DerElement element;
        element.identifier = kDerGeneralizedTime;
        element.content = element.encoding = time;
        if (found && !show_time(report, kKeys[i], element))
            return false;
    }
    report.end_object();
    return fields.at_end();
}

// show_subtree_base writes a name; an iPAddress is an address and a mask there.
void show_subtree_base(ReportWriter& report, const GeneralNameView& name) {
    if (name.type != GeneralNameType::iPAddress) {
        show_general_name(report, "base", name);
        return;
    }
    report.begin_choice("base");
    if (name.value.size == 8 || name.value.size == 32) {
        TextBuffer text;
        put_ip_range(text, name.value);
        report.word("iPAddress", text.text());
    } else {
        report.malformed("iPAddress", name.value);
    }
    report.end_choice();
}

bool show_subtree(ReportWriter& report, DerView content) {
    DerReader fields(content);
    GeneralNameView name;
    DerView minimum, maximum;
    bool hasMinimum, hasMaximum;
    if (!take_general_name(fields, name) || !fields.take_optional(der_context(0), minimum, hasMinimum) ||
        !fields.take_optional(der_context(1), maximum, hasMaximum) || !fields.at_end())
        return false;
    report.begin_object({});
    show_subtree_base(report, name);
    if ((hasMinimum && !show_integer(report, "minimum", minimum)) ||
        (hasMaximum && !show_integer(report, "maximum", maximum)))
        return false;
    report.end_object();
    return true;
}

bool show_subtrees(ReportWriter& report, std::string_view key, DerView subtrees) {
    DerReader reader(subtrees);
    DerElement element;
    report.begin_list(key);
    while (reader.take_any(element))
        show_guarded(report, {}, element.encoding,
                     [&] { return element.is(kDerSequence) && show_subtree(report, element.content); });
    report.end_list();
    return reader.at_end();
}

bool show_name_constraints(ReportWriter& report, DerView value) {
    DerView content, permitted, excluded;
    bool hasPermitted, hasExcluded;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_optional(der_explicit(0), permitted, hasPermitted) ||
        !fields.take_optional(der_explicit(1), excluded, hasExcluded) || !fields.at_end())
        return false;
    report.begin_object(kExtnValue);
    if ((hasPermitted && !show_subtrees(report, "permittedSubtrees", permitted)) ||
        (hasExcluded && !show_subtrees(report, "excludedSubtrees", excluded)))
        return false;
    report.end_object();
    return true;
}

bool show_policy_mappings(ReportWriter& report, DerView value) {
    DerView content, pair, from, to;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_list(kExtnValue);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, pair))
            return false;
        DerReader fields(pair);
        if (!fields.take(kDerOid, from) || !fields.take(kDerOid, to) || !fields.at_end())
            return false;
        report.begin_object({});
        if (!show_oid(report, "issuerDomainPolicy", from) || !show_oid(report, "subjectDomainPolicy", to))
            return false;
        report.end_object();
    }
    report.end_list();
    return true;
}

bool show_policy_constraints(ReportWriter& report, DerView value) {
    constexpr std::string_view kKeys[] = {"requireExplicitPolicy", "inhibitPolicyMapping"};
    DerView content, number;
    bool found;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    report.begin_object(kExtnValue);
    for (unsigned i = 0; i <= 1; i++)
        if (!fields.take_optional(der_context(i), number, found) ||
            (found && !show_integer(report, kKeys[i], number)))
            return false;
    report.end_object();
    return fields.at_end();
}

bool show_point_name(ReportWriter& report, const DistributionPointName& name) {
    if (name.fullName.data == nullptr && name.relativeName.data == nullptr)
        return true;
    report.begin_choice("distributionPoint");
    if (name.relativeName.data != nullptr)
        report.relative_name("nameRelativeToCRLIssuer", name.relativeName);
    else if (!show_general_names(report, "fullName", name.fullName))
        return false;
    report.end_choice();
    return true;
}

// show_point writes a DistributionPoint. Reasons are read here again, since the view has them as a set.
bool show_point(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerView outer, reasons, issuer;
    bool hasName, hasReasons, hasIssuer;
    DistributionPointName name;
    if (!fields.take_optional(der_explicit(0), outer, hasName) ||
        (hasName && !distribution_point_name_read(outer, name)) ||
        !fields.take_optional(der_context(1), reasons, hasReasons) ||
        !fields.take_optional(der_explicit(2), issuer, hasIssuer) || !fields.at_end())
        return false;
    report.begin_object({});
    if (!show_point_name(report, name) ||
        (hasReasons && !show_named_bits(report, "reasons", reasons, kReasonFlags)) ||
        (hasIssuer && !show_general_names(report, "cRLIssuer", issuer)))
        return false;
    report.end_object();
    return true;
}

bool show_issuing_point(ReportWriter& report, DerView value) {
    IssuingPoint point;
    DerView content;
    if (!issuing_point_read(value, point) || !der_single(value, kDerSequence, content))
        return false;
    report.begin_object(kExtnValue);
    if (!show_point_name(report, point.name))
        return false;
    if (point.onlyUserCerts)
        report.flag("onlyContainsUserCerts", true);
    if (point.onlyCaCerts)
        report.flag("onlyContainsCACerts", true);
    DerReader fields(content);
    DerElement element;
    while (point.hasReasons && fields.take_any(element))
        if (element.is(der_context(3)) &&
            !show_named_bits(report, "onlySomeReasons", element.content, kReasonFlags))
            return false;
    if (point.isIndirect)
        report.flag("indirectCRL", true);
    if (point.onlyAttributeCerts)
        report.flag("onlyContainsAttributeCerts", true);
    report.end_object();
    return true;
}

// show_access writes AuthorityInfoAccess and SubjectInfoAccess.
bool show_access(ReportWriter& report, DerView value) {
    DerView content, description, method;
    GeneralNameView location;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_list(kExtnValue);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, description))
            return false;
        DerReader fields(description);
        if (!fields.take(kDerOid, method) || !take_general_name(fields, location) || !fields.at_end())
            return false;
        report.begin_object({});
        if (!show_oid(report, "accessMethod", method))
            return false;
        show_general_name(report, "accessLocation", location);
        report.end_object();
    }
    report.end_list();
    return true;
}

// show_attributes writes SubjectDirectoryAttributes.
bool show_attributes(ReportWriter& report, DerView value) {
    DerView content, attribute, type, values;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_list(kExtnValue);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, attribute))
            return false;
        DerReader fields(attribute);
        if (!fields.take(kDerOid, type) || !fields.take(kDerSet, values) || !fields.at_end())
            return false;
        report.begin_object({});
        if (!show_oid(report, "type", type))
            return false;
        show_attribute_values(report, values);
        report.end_object();
    }
    report.end_list();
    return true;
}

constexpr ExtensionRow kRows[] = {
    {"authorityKeyIdentifier", show_authority_key_id},
    {"subjectKeyIdentifier", show_value_octets},
    {"keyUsage", show_key_usage},
    {"basicConstraints", show_basic_constraints},
    {"extKeyUsage", show_value_oids},
    {"subjectAltName", show_value_names},
    {"certificatePolicies", show_policies},
    {"cRLDistributionPoints", show_distribution_points},
    {"authorityInfoAccess", show_access},
    {"subjectInfoAccess", show_access},
    {"issuerAltName", show_value_names},
    {"nameConstraints", show_name_constraints},
    {"policyMappings", show_policy_mappings},
    {"policyConstraints", show_policy_constraints},
    {"inhibitAnyPolicy", show_value_integer},
    {"freshestCRL", show_distribution_points},
    {"issuingDistributionPoint", show_issuing_point},
    {"subjectDirectoryAttributes", show_attributes},
    {"privateKeyUsagePeriod", show_private_key_period},
};

} // namespace

ExtensionRows standard_extensions() {
    return {kRows, std::size(kRows)};
}

bool show_distribution_points(ReportWriter& report, DerView value) {
    return show_list(report, value, [&](const DerElement& element) {
        return element.is(kDerSequence) && show_point(report, element.content);
    });
}

} // namespace zul
