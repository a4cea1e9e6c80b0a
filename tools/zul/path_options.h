#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tool {

// PathOptions are what CERT_CheckPath is asked for, as options of a command.
struct PathOptions {
    std::vector<std::string> trusted, crls, responses, policies;
    std::string host, email, address, purpose, revocation, time;
    bool explicitPolicy = false, web = false, subjectName = false;

    void add_trust_to(CLI::App& command, bool isDemanded);
    void add_status_to(CLI::App& command); // CRLs, OCSP responses, the time
    void add_names_to(CLI::App& command);  // of the certificate, and what it is for
    bool has_status() const {
        return !crls.empty() || !responses.empty() || !revocation.empty() || !time.empty();
    }

    // conditions gives szConditions; evidence gives szEvidence.
    std::string conditions() const;
    std::string evidence() const;
};

struct PathAnswer {
    int code;
    std::string report, reason; // the library's text of a failure
};
// check_certificate_path asks CERT_CheckPath; certificate and others are arguments of the library.
PathAnswer check_certificate_path(const std::string& certificate, const std::string& others,
                                  const PathOptions& options, bool json);

} // namespace tool
