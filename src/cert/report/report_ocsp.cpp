// OCSP responses in reports (RFC 6960, 4.2.1).
#include <iterator>

#include "cert/fields/ocsp_view.h"
#include "cert/report/report_fields.h"
#include "cert/report/report_objects.h"

namespace zul {

namespace {

bool show_cert_id(ReportWriter& report, const CertId& id) {
    DerReader algorithm(id.hashAlgorithm.encoding);
    DerElement element;
    report.begin_object("certID");
    if (!algorithm.take_any(element) || !show_algorithm(report, "hashAlgorithm", "hashParameters", element))
        return false;
    report.bytes("issuerNameHash", id.issuerNameHash);
    report.bytes("issuerKeyHash", id.issuerKeyHash);
    const bool isGood = show_hex_integer(report, "serialNumber", id.serialNumber);
    report.end_object();
    return isGood;
}

bool show_status(ReportWriter& report, const OcspSingleView& single) {
    constexpr std::string_view kStatus[] = {"good", "revoked", "unknown"};
    report.word("certStatus", kStatus[static_cast<size_t>(single.status)]);
    if (single.status != OcspCertStatus::revoked)
        return true;
    if (!show_time(report, "revocationTime", single.revocationTimeElement))
        return false;
    if (single.reason < 0)
        return true;
    if (const std::string_view name = crl_reason_name(single.reason); !name.empty())
        report.word("revocationReason", name);
    else
        report.number("revocationReason", single.reason);
    return true;
}

bool show_single(ReportWriter& report, const OcspSingleView& single) {
    report.begin_object({});
    if (!show_cert_id(report, single.id) || !show_status(report, single) ||
        !show_time(report, "thisUpdate", single.thisUpdateTime) ||
        (single.hasNextUpdate && !show_time(report, "nextUpdate", single.nextUpdateTime)))
        return false;
    if (!single.extensions.empty())
        show_extensions(report, "singleExtensions", single.extensions);
    report.end_object();
    return true;
}

void show_responses(ReportWriter& report, DerView responses) {
    DerReader reader(responses);
    DerElement element;
    report.begin_list("responses");
    while (reader.take_any(element))
        show_guarded(report, {}, element.encoding, [&] {
            OcspSingleReader one(element.encoding);
            OcspSingleView single;
            return one.next(single) && show_single(report, single);
        });
    if (!reader.at_end())
        report.malformed({}, reader.rest());
    report.end_list();
}

void show_certificates(ReportWriter& report, DerView certificates) {
    DerReader reader(certificates);
    DerElement element;
    report.begin_list("certs");
    while (reader.take_any(element)) {
        report.begin_object({});
        show_certificate(report, element.encoding);
        report.end_object();
    }
    if (!reader.at_end())
        report.malformed({}, reader.rest());
    report.end_list();
}

void show_basic(ReportWriter& report, const OcspResponseView& response) {
    report.begin_choice("responderID");
    if (!response.responderName.empty())
        report.name("byName", response.responderName);
    else
        report.bytes("byKey", response.responderKeyHash);
    report.end_choice();
    static_cast<void>(show_time(report, "producedAt", response.producedAtTime));
    show_responses(report, response.responses);
    if (!response.extensions.empty())
        show_extensions(report, "responseExtensions", response.extensions);
    DerReader algorithm(response.signatureAlgorithm.encoding);
    DerElement element;
    if (algorithm.take_any(element))
        static_cast<void>(
            show_algorithm(report, "signatureAlgorithm", "signatureAlgorithmParameters", element));
    report.bytes("signature", response.signature);
    if (!response.certificates.empty())
        show_certificates(report, response.certificates);
}

} // namespace

void show_ocsp_response(ReportWriter& report, DerView encoding) {
    constexpr std::string_view kStatus[] = {"successful", "malformedRequest", "internalError", "tryLater",
                                            {},           "sigRequired",      "unauthorized"};
    OcspResponseView response;
    if (ocsp_response_view_read(encoding, response) != 0)
        return report.malformed("response", encoding);
    const int status = response.responseStatus;
    if (status < static_cast<int>(std::size(kStatus)) && !kStatus[status].empty())
        report.word("responseStatus", kStatus[status]);
    else
        report.number("responseStatus", status);
    if (status == 0)
        show_basic(report, response);
    show_fingerprints(report, encoding);
}

} // namespace zul
