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
    void add_hosts_to(CLI::App& command); // hosts and addresses, and the rules for them
    // Mailboxes, purposes and policies; usual is the purpose without an option.
    void add_purpose_to(CLI::App& command, const std::string& usual = "any");
    void add_status_to(CLI::App& command); // CRLs, OCSP responses, the time
    bool has_conditions() const { return has_evidence() || !conditions().empty(); }
    bool has_evidence() const { return !crls.empty() || !responses.empty(); }

    // conditions gives szConditions.
    std::string conditions() const;
};

// What --revocation means, for the end of a command's help.
constexpr const char* kRevocationHelp =
    "--revocation: all (the default with --crl or --ocsp): each certificate of the path has to be good by\n"
    "a list or response; leaf: the certificate itself has to be, and no other may be revoked; known: none\n"
    "may be revoked; none: lists and responses are not looked at.\n";

struct PathAnswer {
    int code;
    std::string report, reason; // reason: the library's text of a failure
};

// PathCheck asks CERT_CheckPath, of as many certificates as wanted; the files are looked at once.
class PathCheck {
  public:
    explicit PathCheck(const PathOptions& options);
    // certificate and others are arguments of the library.
    PathAnswer check(const std::string& certificate, const std::string& others, bool json) const;

  private:
    std::string trusted_, evidence_, conditions_;
    int options_;
};

} // namespace tool
