#include "cert/path/path_report.h"

#include "cert/fields/oid_names.h"
#include "cert/make/time_value.h"
#include "cert/report/report_fields.h"
#include "frame/error_table.h"

namespace zul {

namespace {

// The checks in the order in which they are written.
struct CheckName {
    PathCheck check;
    std::string_view name;
};
constexpr CheckName kChecks[] = {
    {PathCheck::structure, "structure"},
    {PathCheck::issuer, "issuer"},
    {PathCheck::signature, "signature"},
    {PathCheck::validity, "validity"},
    {PathCheck::criticalExtensions, "criticalExtensions"},
    {PathCheck::basicConstraints, "basicConstraints"},
    {PathCheck::pathLength, "pathLength"},
    {PathCheck::keyUsage, "keyUsage"},
    {PathCheck::purpose, "purpose"},
    {PathCheck::webRules, "webRules"},
    {PathCheck::nameConstraints, "nameConstraints"},
    {PathCheck::policies, "policies"},
    {PathCheck::subjectName, "subjectName"},
    {PathCheck::revocation, "revocation"},
};

void put_two(TextBuffer& out, int number) {
    if (number < 10)
        out.put('0');
    out.put_number(number);
}

void put_seconds(TextBuffer& out, int64_t seconds) {
    const tm time = time_of_seconds(seconds);
    out.put_number(time.tm_year + 1900);
    out.put('-');
    put_two(out, time.tm_mon + 1);
    out.put('-');
    put_two(out, time.tm_mday);
    out.put('T');
    put_two(out, time.tm_hour);
    out.put(':');
    put_two(out, time.tm_min);
    out.put(':');
    put_two(out, time.tm_sec);
    out.put('Z');
}

// show_text writes a text that may hold names.
void show_text(ReportWriter& report, std::string_view key, const SecretBuffer& text) {
    DerElement element;
    element.identifier = kDerUtf8String;
    element.content = element.encoding = {text.data(), text.size()};
    report.string(key, element);
}

void put_signature(TextBuffer& out, const CertRecord& record) {
    const AlgorithmView& algorithm = record.view.signatureAlgorithm;
    out.put(", ");
    put_oid(out, algorithm.oid);
    if (signature_uses_sha1(algorithm))
        out.put("; SHA-1 is weak");
}

void put_status(TextBuffer& out, const RevocationAnswer& status) {
    switch (status.state) {
    case RevocationState::good:
        out.put(status.isByOcsp ? "good, by OCSP" : "good, by CRL");
        return;
    case RevocationState::unknown:
        out.put("unknown: ");
        out.put(status.text);
        return;
    case RevocationState::revoked:
        break;
    }
    out.put("revoked since ");
    put_seconds(out, status.revokedAt);
    out.put(status.isByOcsp ? ", by OCSP" : ", by CRL");
    if (const std::string_view reason = crl_reason_name(status.reason); !reason.empty()) {
        out.put(", ");
        out.put(reason);
    }
}

void show_check(ReportWriter& report, const PathOutcome& path, size_t i, const CheckName& check) {
    const StepOutcome& step = path.steps[i];
    const bool hasFailed = path.code != 0 && path.failedStep == i && path.failedCheck == check.check;
    if (!hasFailed && !step.has_passed(check.check))
        return;
    TextBuffer text;
    if (check.check == PathCheck::revocation && step.hasStatus)
        put_status(text, step.status);
    else
        text.put(hasFailed ? "refused" : "good");
    if (check.check == PathCheck::signature && !hasFailed)
        put_signature(text, *path.records[i]);
    report.word(check.name, text.text());
}

std::string_view role_of(const PathOutcome& path, size_t i) {
    if (i + 1 == path.records.size())
        return "endEntity";
    return i == 0 && path.hasAnchor ? "trustAnchor" : "authority";
}

void show_certificate_checks(ReportWriter& report, const PathOutcome& path, size_t i) {
    const CertRecord& record = *path.records[i];
    report.begin_object({});
    report.word("role", role_of(path, i));
    report.name("subject", record.view.subject);
    report.name("issuer", record.view.issuer);
    show_hex_integer(report, "serialNumber", record.view.serialNumber);
    show_time(report, "notBefore", record.view.notBeforeTime);
    show_time(report, "notAfter", record.view.notAfterTime);
    report.begin_object("checks");
    for (const CheckName& check : kChecks)
        show_check(report, path, i, check);
    report.end_object();
    if (path.code != 0 && path.failedStep == i)
        show_text(report, "reason", path.text);
    report.end_object();
}

void show_result(ReportWriter& report, const PathSummary& summary) {
    const int code = summary.code;
    report.word("result", code == 0 ? "valid" : "refused");
    report.number("code", code);
    if (code == 0)
        return;
    if (const ErrorRow* row = error_lookup(code))
        report.word("codeName", row->name);
    if (!summary.best.records.empty())
        show_text(report, "reason", summary.best.text);
}

void show_conditions(ReportWriter& report, const PathConditions& conditions) {
    TextBuffer time;
    put_seconds(time, conditions.time);
    report.word("time", time.text());
    report.word("purpose", purpose_name(conditions.purpose));
    report.word("revocation", demand_name(conditions.revocation));
    if (!conditions.host.empty())
        show_text(report, "host", conditions.host);
    if (!conditions.email.empty())
        show_text(report, "email", conditions.email);
    if (!conditions.ip.empty())
        show_text(report, "ip", conditions.ip);
}

void show_policies(ReportWriter& report, const PathOutcome& path) {
    report.begin_words("validPolicies");
    for (const DerView policy : path.policies) {
        TextBuffer dotted;
        put_oid_dotted(dotted, policy);
        report.word({}, dotted.text());
    }
    report.end_words();
}

} // namespace

void show_path(ReportWriter& report, const PathSummary& summary, const PathConditions& conditions,
               size_t unreadable) {
    const PathOutcome& path = summary.best;
    report.begin_item("CertificationPath", 0);
    show_result(report, summary);
    show_conditions(report, conditions);
    report.number("pathsTried", summary.tried);
    report.number("signaturesVerified", summary.signatures);
    if (summary.isCutShort)
        report.flag("isCutShort", true);
    if (unreadable > 0)
        report.number("unreadableObjects", static_cast<int64_t>(unreadable));
    if (path.hasPolicies)
        show_policies(report, path);
    report.begin_list("certificates");
    for (size_t i = 0; i < path.records.size(); i++)
        show_certificate_checks(report, path, i);
    report.end_list();
    report.end_item();
}

} // namespace zul
