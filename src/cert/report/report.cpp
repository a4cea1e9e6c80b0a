#include "cert/report/report.h"

#include "cert/report/json_report.h"
#include "cert/report/report_objects.h"
#include "cert/report/text_report.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

std::string_view kind_name(ObjectKind kind) {
    switch (kind) {
    case ObjectKind::certificate:
        return "Certificate";
    case ObjectKind::request:
        return "CertificationRequest";
    case ObjectKind::crl:
        return "CertificateList";
    case ObjectKind::ocspResponse:
        return "OCSPResponse";
    case ObjectKind::other:
        break;
    }
    return "Unknown";
}

void show_object(ReportWriter& report, const ObjectEntry& object) {
    switch (object.kind) {
    case ObjectKind::certificate:
        return show_certificate(report, object.der);
    case ObjectKind::request:
        return show_request(report, object.der);
    case ObjectKind::crl:
        return show_crl(report, object.der);
    case ObjectKind::ocspResponse:
        return show_ocsp_response(report, object.der);
    case ObjectKind::other:
        return report.malformed("encoding", object.der);
    }
}

void show_all(ReportWriter& report, const ObjectList& objects) {
    size_t number = 0;
    for (const ObjectEntry& object : objects) {
        number++;
        report.begin_item(kind_name(object.kind), objects.size() == 1 ? 0 : number);
        show_object(report, object);
        report.end_item();
    }
}

} // namespace

int write_report(TextBuffer& out, const ObjectList& objects, bool isJson) {
    bool isKnown = false;
    for (const ObjectEntry& object : objects)
        isKnown = isKnown || object.kind != ObjectKind::other;
    if (!isKnown)
        return err_fail(BAD_FORMAT_ERROR, "Not a certificate, request, CRL or OCSP response");
    if (isJson) {
        JsonReport report(out);
        show_all(report, objects);
        report.finish();
    } else {
        TextReport report(out);
        show_all(report, objects);
    }
    err_clear(); // the texts of what could not be read and is shown as malformed
    return 0;
}

} // namespace zul
