// CRLs in reports (RFC 5280, 5.1).
#include "cert/report/report_fields.h"
#include "cert/report/report_objects.h"

namespace zul {

namespace {

bool show_entry(ReportWriter& report, const DerElement& element) {
    DerView serial, extensions;
    DerElement time;
    bool hasExtensions;
    if (!element.is(kDerSequence))
        return false;
    DerReader fields(element.content);
    if (!fields.take(kDerInteger, serial) || !fields.take_any(time) ||
        !fields.take_optional(kDerSequence, extensions, hasExtensions) || !fields.at_end())
        return false;
    report.begin_object({});
    if (!show_hex_integer(report, "userCertificate", serial) || !show_time(report, "revocationDate", time))
        return false;
    if (hasExtensions)
        show_extensions(report, "crlEntryExtensions", extensions);
    report.end_object();
    return true;
}

bool show_entries(ReportWriter& report, const DerElement& element) {
    DerReader reader(element.content);
    DerElement entry;
    report.begin_list("revokedCertificates");
    while (reader.take_any(entry))
        show_guarded(report, {}, entry.encoding, [&] { return show_entry(report, entry); });
    report.end_list();
    return reader.at_end();
}

void show_crl_fields(ReportWriter& report, FieldWalk& fields) {
    if (!fields.take_if(kDerInteger, "version", [&](const DerElement& e) {
            int version;
            if (!der_small_integer(e.content, version))
                return false;
            report.number("version", int64_t{version} + 1);
            return true;
        }))
        report.number("version", 1);
    fields.take("signature", [&](const DerElement& e) {
        return show_algorithm(report, "signature", "signatureParameters", e);
    });
    fields.take("issuer", [&](const DerElement& e) { return show_name(report, "issuer", e); });
    fields.take("thisUpdate", [&](const DerElement& e) { return show_time(report, "thisUpdate", e); });
    if (fields.next_is(kDerUtcTime) || fields.next_is(kDerGeneralizedTime))
        fields.take("nextUpdate", [&](const DerElement& e) { return show_time(report, "nextUpdate", e); });
    fields.take_if(kDerSequence, "revokedCertificates",
                   [&](const DerElement& e) { return show_entries(report, e); });
    fields.take_if(der_explicit(0), "crlExtensions", [&](const DerElement& e) {
        DerView extensions;
        if (!der_single(e.content, kDerSequence, extensions))
            return false;
        show_extensions(report, "crlExtensions", extensions);
        return true;
    });
    fields.finish("otherFields");
}

} // namespace

void show_crl(ReportWriter& report, DerView encoding) {
    show_signed(report, encoding, "signatureValue", show_crl_fields);
}

} // namespace zul
