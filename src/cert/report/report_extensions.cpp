#include "cert/report/report_extensions.h"

#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

ShowExtension find_show(std::string_view name) {
    for (const auto table :
         {standard_extensions, web_extensions, crl_extensions, qualified_extensions, maker_extensions}) {
        const ExtensionRows all = table();
        for (size_t i = 0; i < all.count; i++)
            if (all.rows[i].name == name)
                return all.rows[i].show;
    }
    return show_value_hex;
}

bool show_extension(ReportWriter& report, const DerElement& element) {
    DerView oid, flag, value;
    bool hasFlag, isCritical = false;
    if (!element.is(kDerSequence))
        return false;
    DerReader fields(element.content);
    if (!fields.take(kDerOid, oid) || !der_is_oid(oid) || !fields.take_optional(kDerBoolean, flag, hasFlag) ||
        (hasFlag && !der_boolean(flag, isCritical)) || !fields.take(kDerOctetString, value) ||
        !fields.at_end())
        return false;
    const std::string_view name = oid_name(oid);
    const ShowExtension show = name.empty() ? show_value_hex : find_show(name);
    report.begin_extension(oid, isCritical);
    show_guarded(report, kExtnValue, value, [&] { return show(report, value); });
    report.end_extension();
    return true;
}

bool single_element(DerView value, DerElement& element) {
    DerReader reader(value);
    return reader.take_any(element) && reader.at_end();
}

} // namespace

void show_extensions(ReportWriter& report, std::string_view key, DerView extensions) {
    DerReader reader(extensions);
    DerElement element;
    report.begin_list(key);
    while (reader.take_any(element))
        show_guarded(report, {}, element.encoding, [&] { return show_extension(report, element); });
    if (!reader.at_end())
        report.malformed({}, reader.rest());
    report.end_list();
}

bool show_value_string(ReportWriter& report, DerView value) {
    DerElement element;
    if (!single_element(value, element) || !string_type_is_known(element.identifier))
        return false;
    report.string(kExtnValue, element);
    return true;
}

bool show_value_octets(ReportWriter& report, DerView value) {
    DerView octets;
    if (!der_single(value, kDerOctetString, octets))
        return false;
    report.bytes(kExtnValue, octets);
    return true;
}

bool show_value_null(ReportWriter& report, DerView value) {
    DerView content;
    if (!der_single(value, kDerNull, content) || !content.empty())
        return false;
    report.null(kExtnValue);
    return true;
}

bool show_value_integer(ReportWriter& report, DerView value) {
    DerView number;
    return der_single(value, kDerInteger, number) && show_integer(report, kExtnValue, number);
}

bool show_value_time(ReportWriter& report, DerView value) {
    DerElement element;
    return single_element(value, element) && show_time(report, kExtnValue, element);
}

bool show_value_oids(ReportWriter& report, DerView value) {
    DerView content, oid;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_words(kExtnValue);
    while (!reader.at_end())
        if (!reader.take(kDerOid, oid) || !show_oid(report, {}, oid))
            return false;
    report.end_words();
    return true;
}

bool show_value_hex(ReportWriter& report, DerView value) {
    report.bytes(kExtnValue, value);
    return true;
}

bool show_value_names(ReportWriter& report, DerView value) {
    DerView names;
    return der_single(value, kDerSequence, names) && show_general_names(report, kExtnValue, names);
}

} // namespace zul
