// Extensions that makers of software have defined for themselves: Netscape, Microsoft, RSA.
#include <iterator>

#include "cert/fields/general_name.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

bool show_netscape_type(ReportWriter& report, DerView value) {
    constexpr std::string_view kTypes[] = {"sslClient", "sslServer", "smime",   "objectSigning",
                                           "reserved",  "sslCA",     "smimeCA", "objectSigningCA"};
    DerView bits;
    return der_single(value, kDerBitString, bits) && show_named_bits(report, kExtnValue, bits, kTypes);
}

// show_template writes CertificateTemplate: its identifier and version.
bool show_template(ReportWriter& report, DerView value) {
    DerView content, oid, number;
    bool found;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take(kDerOid, oid))
        return false;
    report.begin_object(kExtnValue);
    if (!show_oid(report, "templateID", oid))
        return false;
    for (const std::string_view key : {"templateMajorVersion", "templateMinorVersion"})
        if (!fields.take_optional(kDerInteger, number, found) ||
            (found && !show_integer(report, key, number)))
            return false;
    report.end_object();
    return fields.at_end();
}

// show_ca_version writes the indexes of the CA's certificate and key, 16 bits each.
bool show_ca_version(ReportWriter& report, DerView value) {
    DerView number;
    int version;
    if (!der_single(value, kDerInteger, number) || number.size > 4 || !der_small_integer(number, version))
        return false;
    report.begin_object(kExtnValue);
    report.number("certificateIndex", version & 0xFFFF);
    report.number("keyIndex", version >> 16);
    report.end_object();
    return true;
}

bool show_capabilities(ReportWriter& report, DerView value) {
    return show_list(report, value, [&](const DerElement& element) {
        report.begin_object({});
        const bool isGood = show_algorithm(report, "capabilityID", "parameters", element);
        report.end_object();
        return isGood;
    });
}

// show_entrust_version writes EntrustVersInfo, a version and flags.
bool show_entrust_version(ReportWriter& report, DerView value) {
    DerView content;
    DerElement version;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_any(version))
        return false;
    report.begin_object(kExtnValue);
    report.string("entrustVers", version);
    if (!fields.at_end())
        report.bytes("entrustInfoFlags", fields.rest());
    report.end_object();
    return true;
}

constexpr ExtensionRow kRows[] = {
    {"netscapeCertType", show_netscape_type},
    {"netscapeComment", show_value_string},
    {"netscapeBaseUrl", show_value_string},
    {"netscapeRevocationUrl", show_value_string},
    {"netscapeCaRevocationUrl", show_value_string},
    {"netscapeCertRenewalUrl", show_value_string},
    {"netscapeCaPolicyUrl", show_value_string},
    {"netscapeSslServerName", show_value_string},
    {"enrollCerttypeExtension", show_value_string},
    {"certificateTemplate", show_template},
    {"caVersion", show_ca_version},
    {"previousCertHash", show_value_octets},
    {"crlVirtualBase", show_value_integer},
    {"crlNextPublish", show_value_time},
    {"applicationCertPolicies", show_policies},
    {"ntdsCaSecurityExt", show_value_names},
    {"smimeCapabilities", show_capabilities},
    {"entrustVersInfo", show_entrust_version},
};

} // namespace

ExtensionRows maker_extensions() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
