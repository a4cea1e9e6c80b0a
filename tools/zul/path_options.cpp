#include "path_options.h"

#include <CLI/CLI.hpp>
#include <zulcore.h>

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
        .add_option(
            "--revocation", revocation,
            "Whose status has to be known: all (with --crl or --ocsp), leaf, known (none has to), none")
        ->option_text("WHOSE");
    command.add_option("--time", time, "Check for this time instead of now, such as 2026-01-31T12:00")
        ->option_text("DATE");
}

void PathOptions::add_names_to(CLI::App& command) {
    command.add_option("--host", host, "The host that the certificate has to be for")->option_text("NAME");
    command.add_option("--ip", address, "The address that it has to be for")->option_text("ADDRESS");
    command.add_option("--email", email, "The mailbox that it has to be for")->option_text("ADDRESS");
    command
        .add_option("--purpose", purpose,
                    "What it has to be for: server, client, email, code, timestamp, ocsp, any")
        ->option_text("PURPOSE");
    command.add_option("--policy", policies, "An acceptable policy, dotted; once for each")
        ->allow_extra_args(false)
        ->option_text("OID");
    command.add_flag("--explicit-policy", explicitPolicy, "Demand that a policy is valid for the whole path");
    command.add_flag("--web", web, "Apply the rules of the public web too");
}

std::string PathOptions::conditions() const {
    std::string joined;
    for (const std::string& each : policies)
        joined += (joined.empty() ? "" : ",") + each;
    for (const std::string* value :
         std::initializer_list<const std::string*>{&host, &address, &email, &purpose, &revocation, &joined})
        if (value->find(';') != value->npos)
            throw UsageError("a value with ';' is no name, purpose or policy: " + in_quotes(*value));
    return condition("host", host) + condition("ip", address) + condition("email", email) +
           condition("purpose", purpose) + condition("revocation", revocation) + condition("policy", joined) +
           condition("time", time.empty() ? "" : date_text(time, "--time", "T00:00:00")) +
           (explicitPolicy ? "explicitPolicy;" : "");
}

std::string PathOptions::evidence() const {
    std::vector<std::string> files = crls;
    files.insert(files.end(), responses.begin(), responses.end());
    return object_list(files);
}

PathAnswer check_certificate_path(const std::string& certificate, const std::string& others,
                                  const PathOptions& options, bool json) {
    const std::string trusted = object_list(options.trusted), evidence = options.evidence(),
                      conditions = options.conditions();
    const int flags = (json ? ZUL_CERT_JSON : 0) | (options.web ? ZUL_CERT_WEB : 0);
    constexpr size_t kLongestReport = 1 << 20;
    std::string report(kLongestReport, '\0');
    const int code = CERT_CheckPath(report.data(), static_cast<int>(kLongestReport), certificate.c_str(),
                                    others.c_str(), trusted.c_str(),
                                    evidence.empty() ? nullptr : evidence.c_str(), conditions.c_str(), flags);
    report.resize(report.find('\0') == report.npos ? report.size() : report.find('\0'));
    return {code, report, code == 0 ? "" : last_error()};
}

} // namespace tool
