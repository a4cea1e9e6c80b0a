// qcStatements (RFC 3739, 3.2.6; ETSI EN 319 412-5; ETSI TS 119 495).
#include <iterator>

#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

constexpr std::string_view kInfo = "statementInfo";

bool show_limit(ReportWriter& report, const DerElement& info) {
    DerReader fields(info.content);
    DerElement currency;
    DerView amount, exponent;
    if (!info.is(kDerSequence) || !fields.take_any(currency) || !fields.take(kDerInteger, amount) ||
        !fields.take(kDerInteger, exponent) || !fields.at_end())
        return false;
    report.begin_object(kInfo);
    if (currency.is(kDerInteger) && !show_integer(report, "currency", currency.content))
        return false;
    if (!currency.is(kDerInteger))
        report.string("currency", currency);
    if (!show_integer(report, "amount", amount) || !show_integer(report, "exponent", exponent))
        return false;
    report.end_object();
    return true;
}

bool show_number(ReportWriter& report, const DerElement& info) {
    return info.is(kDerInteger) && show_integer(report, kInfo, info.content);
}

// show_locations writes QcEuPDS.
bool show_locations(ReportWriter& report, const DerElement& info) {
    DerReader reader(info.content);
    DerView location;
    if (!info.is(kDerSequence))
        return false;
    report.begin_list(kInfo);
    while (!reader.at_end()) {
        DerElement url, language;
        if (!reader.take(kDerSequence, location))
            return false;
        DerReader fields(location);
        if (!fields.take_any(url) || !fields.take_any(language) || !fields.at_end())
            return false;
        report.begin_object({});
        report.string("url", url);
        report.string("language", language);
        report.end_object();
    }
    report.end_list();
    return true;
}

bool show_types(ReportWriter& report, const DerElement& info) {
    DerReader reader(info.content);
    DerView oid;
    if (!info.is(kDerSequence))
        return false;
    report.begin_words(kInfo);
    while (!reader.at_end())
        if (!reader.take(kDerOid, oid) || !show_oid(report, {}, oid))
            return false;
    report.end_words();
    return true;
}

bool show_countries(ReportWriter& report, const DerElement& info) {
    DerReader reader(info.content);
    DerElement country;
    if (!info.is(kDerSequence))
        return false;
    report.begin_list(kInfo);
    while (reader.take_any(country))
        report.string({}, country);
    report.end_list();
    return reader.at_end();
}

// show_payment writes PSD2QcType: roles, and the authority's name and identifier.
bool show_payment(ReportWriter& report, const DerElement& info) {
    DerReader fields(info.content);
    DerView roles, role, oid;
    DerElement name, authority, identifier;
    if (!info.is(kDerSequence) || !fields.take(kDerSequence, roles) || !fields.take_any(authority) ||
        !fields.take_any(identifier) || !fields.at_end())
        return false;
    report.begin_object(kInfo);
    report.begin_list("rolesOfPSP");
    DerReader reader(roles);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, role))
            return false;
        DerReader parts(role);
        if (!parts.take(kDerOid, oid) || !parts.take_any(name) || !parts.at_end())
            return false;
        report.begin_object({});
        if (!show_oid(report, "roleOfPspOid", oid))
            return false;
        report.string("roleOfPspName", name);
        report.end_object();
    }
    report.end_list();
    report.string("nCAName", authority);
    report.string("nCAId", identifier);
    report.end_object();
    return true;
}

// show_semantics writes SemanticsInformation (RFC 3739, 3.2.6.1).
bool show_semantics(ReportWriter& report, const DerElement& info) {
    DerReader fields(info.content);
    DerView oid, names;
    bool hasOid, hasNames;
    if (!info.is(kDerSequence) || !fields.take_optional(kDerOid, oid, hasOid) ||
        !fields.take_optional(kDerSequence, names, hasNames) || !fields.at_end())
        return false;
    report.begin_object(kInfo);
    if (hasOid && !show_oid(report, "semanticsIdentifier", oid))
        return false;
    if (hasNames && !show_general_names(report, "nameRegistrationAuthorities", names))
        return false;
    report.end_object();
    return true;
}

struct StatementRow {
    std::string_view name;
    bool (*show)(ReportWriter& report, const DerElement& info);
};
constexpr StatementRow kStatements[] = {
    {"qcs-QcLimitValue", show_limit},        {"qcs-QcRetentionPeriod", show_number},
    {"qcs-QcPDS", show_locations},           {"qcs-QcType", show_types},
    {"qcs-QcCClegislation", show_countries}, {"psd2-qcStatement", show_payment},
    {"qcs-pkixQCSyntax-v2", show_semantics}, {"qcs-pkixQCSyntax-v1", show_semantics},
};

bool show_info(ReportWriter& report, std::string_view statement, const DerElement& info) {
    for (const StatementRow& row : kStatements)
        if (row.name == statement)
            return row.show(report, info);
    report.bytes(kInfo, info.encoding);
    return true;
}

bool show_statement(ReportWriter& report, DerView content) {
    DerReader fields(content);
    DerView oid;
    DerElement info;
    if (!fields.take(kDerOid, oid) || !der_is_oid(oid))
        return false;
    report.begin_object({});
    static_cast<void>(show_oid(report, "statementId", oid));
    if (!fields.at_end()) {
        if (!fields.take_any(info) || !fields.at_end())
            return false;
        show_guarded(report, kInfo, info.encoding, [&] { return show_info(report, oid_name(oid), info); });
    }
    report.end_object();
    return true;
}

bool show_statements(ReportWriter& report, DerView value) {
    return show_list(report, value, [&](const DerElement& element) {
        return element.is(kDerSequence) && show_statement(report, element.content);
    });
}

constexpr ExtensionRow kRows[] = {{"qcStatements", show_statements}};

} // namespace

ExtensionRows qualified_extensions() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
