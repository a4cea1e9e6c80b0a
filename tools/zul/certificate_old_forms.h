#pragma once
#include "certificates.h"
#include "description_options.h"

// Forms of certificates that are made no more, but by RSA keys for old programs and for tests: version 1,
// chosen or missing key identifiers, no basicConstraints, no keyUsage.
namespace tool {

struct OldForms {
    std::string subjectKeyId;
    bool utf8 = false, version1 = false, noBasic = false, noKeyIds = false;

    void add_to(CLI::App& command);
    bool are_asked() const { return version1 || noBasic || noKeyIds || !subjectKeyId.empty(); }
    void check(const std::string& usage, const DescriptionOptions& contents) const;
};

// OldCertificate has what the X509_ functions make a certificate of.
struct OldCertificate {
    Name subject;
    std::string begin, end, serial, email; // no end: years
    int years = 1, usage = 0;
    bool isAuthority = false;

    void self(const std::string& out, const RsaKey& key, const OldForms& forms, int algorithm) const;
    void issue(const std::string& out, const ObjectArgument& issuer, const RsaKey& issuerKey,
               const RsaKey& certified, const OldForms& forms, int algorithm) const;

  private:
    std::string pairs(const RsaKey& certified, const OldForms& forms) const;
    int options(const OldForms& forms) const;
};

} // namespace tool
