#pragma once
#include "asn1/der_reader.h"
#include "cert/report/report_writer.h"

// The values of extensions: each function writes one as the field extnValue, and gives false if it is
// malformed.
namespace zul {

using ShowExtension = bool (*)(ReportWriter& report, DerView value);

// One known extension, by its name in the table of object identifiers.
struct ExtensionRow {
    std::string_view name;
    ShowExtension show;
};
struct ExtensionRows {
    const ExtensionRow* rows;
    size_t count;
};

ExtensionRows standard_extensions();  // of certificates (RFC 5280, 4.2)
ExtensionRows crl_extensions();       // of CRLs and their entries (RFC 5280, 5.2 and 5.3)
ExtensionRows maker_extensions();     // of Microsoft, Netscape and others
ExtensionRows qualified_extensions(); // of RFC 3739 and ETSI
ExtensionRows web_extensions();       // Certificate Transparency, TLS, OCSP

constexpr std::string_view kExtnValue = "extnValue";

// show_list writes a SEQUENCE OF as a list: an element by show(element), or as a malformed one where that
// gives false.
template<class Show>
bool show_list(ReportWriter& report, DerView value, Show show) {
    DerView content;
    DerElement element;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_list(kExtnValue);
    while (reader.take_any(element))
        show_guarded(report, {}, element.encoding, [&] { return show(element); });
    report.end_list();
    return reader.at_end();
}

bool show_sct_list(ReportWriter& report, DerView value);
bool show_distribution_points(ReportWriter& report, DerView value);
bool show_policies(ReportWriter& report, DerView value);

// Values of one element.
bool show_value_string(ReportWriter& report, DerView value); // of any string type
bool show_value_octets(ReportWriter& report, DerView value); // OCTET STRING
bool show_value_null(ReportWriter& report, DerView value);
bool show_value_integer(ReportWriter& report, DerView value);
bool show_value_time(ReportWriter& report, DerView value);
bool show_value_oids(ReportWriter& report, DerView value);  // SEQUENCE OF OBJECT IDENTIFIER
bool show_value_hex(ReportWriter& report, DerView value);   // as it is
bool show_value_names(ReportWriter& report, DerView value); // GeneralNames

} // namespace zul
