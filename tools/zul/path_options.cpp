#include "path_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "activity.h"
#include "certificates.h"
#include "object_lists.h"

namespace tool {

namespace {

std::string condition(const char* keyword, const std::string& value) {
    return value.empty() ? "" : std::string(keyword) + "=" + value + ";";
}

} // namespace

void PathOptions::add_trust_to(CLI::App& command, bool isDemanded) {
    CLI::Option* option = command.add_option(
        "--trusted", trusted,
        isDemanded ? "Needed: what you trust: authorities' certificates, or a bundle of them; once "
                     "for each file"
                   : "Demand a valid path from these certificates of authorities; bundles too; "
                     "once for each file");
    option->allow_extra_args(false)->option_text("FILE");
    if (isDemanded)
        option->required();
}

void PathOptions::add_status_to(CLI::App& command) {
    command.add_option("--crl", crls, "Revocation lists; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    command.add_option("--ocsp", responses, "OCSP responses; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    command
        .add_option("--revocation", revocation,
                    "Whose status has to be known: all, leaf, known (nobody's) or none; see below")
        ->option_text("WHOSE");
    command.add_option("--time", time, "Check for this time instead of now, such as 2026-01-31T12:00")
        ->option_text("DATE");
}

void PathOptions::add_hosts_to(CLI::App& command) {
    command.add_option("--host", host, "The host that the certificate has to be for")->option_text("NAME");
    command.add_option("--ip", address, "The address that it has to be for")->option_text("ADDRESS");
    command.add_flag("--subject-name", subjectName,
                     "Names in the subject count too, where subjectAltName has none");
    command.add_flag("--web", web, "Apply the rules of the public web too");
}

void PathOptions::add_purpose_to(CLI::App& command, const std::string& usual) {
    command.add_option("--email", email, "The mailbox that the certificate has to be for")
        ->option_text("ADDRESS");
    command
        .add_option(
            "--purpose", purpose,
            "What it has to be for: server, client, email, code, timestamp, ocsp, any; the default is " +
                usual)
        ->option_text("PURPOSE");
    command.add_option("--policy", policies, "An acceptable policy, dotted; once for each")
        ->allow_extra_args(false)
        ->option_text("OID");
    command.add_flag("--explicit-policy", explicitPolicy, "Demand that a policy is valid for the whole path");
}

std::string PathOptions::conditions() const {
    std::string list;
    for (const std::string& each : policies)
        list += (list.empty() ? "" : ",") + each;
    const std::string& joined = list;
    for (const std::string* value : {&host, &address, &email, &purpose, &revocation, &joined})
        if (value->find(';') != value->npos)
            throw UsageError("a value with ';' is no name, purpose or policy: " + in_quotes(*value));
    return condition("host", host) + condition("ip", address) + condition("email", email) +
           condition("purpose", purpose) + condition("revocation", revocation) + condition("policy", joined) +
           condition("time", time.empty() ? "" : date_text(time, "--time", "T00:00:00")) +
           (explicitPolicy ? "explicitPolicy;" : "");
}

PathCheck::PathCheck(const PathOptions& options)
    : trusted_(object_list(options.trusted)), conditions_(options.conditions()),
      options_((options.web ? ZUL_CERT_WEB : 0) | (options.subjectName ? ZUL_CERT_SUBJECT_NAME : 0)) {
    std::vector<std::string> files = options.crls;
    files.insert(files.end(), options.responses.begin(), options.responses.end());
    evidence_ = object_list(files);
}

PathAnswer PathCheck::check(const std::string& certificate, const std::string& others, bool json) const {
    constexpr size_t kLongestReport = 1 << 20;
    std::string report(kLongestReport, '\0');
    const Activity activity("checking the path");
    const int code =
        CERT_CheckPath(report.data(), static_cast<int>(kLongestReport), certificate.c_str(), others.c_str(),
                       trusted_.c_str(), evidence_.empty() ? nullptr : evidence_.c_str(), conditions_.c_str(),
                       options_ | (json ? ZUL_CERT_JSON : 0));
    const std::string reason = code == 0 ? "" : last_error();
    report.resize(std::min(report.find('\0'), report.size()));
    return {code, report, reason};
}

} // namespace tool
