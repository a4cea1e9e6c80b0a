#include "certificate_old_forms.h"

#include <CLI/CLI.hpp>

#include "file_digest.h"
#include "hex_text.h"

namespace tool {

namespace {

// key_id is the pair for the identifier of a key: that of RFC 5280, 4.2.1.2 (1), if none is chosen.
std::string key_id(const RsaKey& certified, const OldForms& forms) {
    if (forms.version1 || forms.noKeyIds)
        return {};
    std::string id;
    if (forms.subjectKeyId.empty()) {
        const ScratchFile saved;
        accept_status(RSA_SavePublicKey(saved.path(), certified.text(), 0), "key");
        id = file_digest(saved.path(), find_digest("sha1"));
    } else {
        const SecretBytes hex = hex_line(decode_hex(forms.subjectKeyId, "--subject-key-id"));
        id.assign(hex.begin(), hex.end() - 1);
    }
    return ";subjectKeyIdentifier=" + id;
}

} // namespace

void OldForms::add_to(CLI::App& command) {
    const char* group = "Old forms (RSA keys alone)";
    command.add_option("--subject-key-id", subjectKeyId, "Another subject key identifier than the usual one")
        ->option_text("HEX")
        ->group(group);
    command.add_flag("--no-key-ids", noKeyIds, "Leave out both key identifiers")->group(group);
    command.add_flag("--no-basic", noBasic, "Leave out basicConstraints")->group(group);
    command.add_flag("--version1", version1, "Version 1, which has no extensions")->group(group);
    command.add_flag("--utf8", utf8, "Write the name as UTF8String, as other forms have it")->group(group);
}

void OldForms::check(const std::string& usage, const DescriptionOptions& contents) const {
    if (version1 && !(usage.empty() && !contents.has_names() && subjectKeyId.empty()))
        throw UsageError("a certificate of version 1 has no --usage, no alternative names such as --email "
                         "and no --subject-key-id");
    if (noKeyIds && !subjectKeyId.empty())
        throw UsageError("--no-key-ids and --subject-key-id exclude each other");
    if (contents.email.size() > 1 || !contents.dns.empty() || !contents.ip.empty() || !contents.uri.empty() ||
        !contents.describe.empty())
        throw UsageError("the old forms take one --email, and no other alternative names or --describe");
}

std::string OldCertificate::pairs(const RsaKey& certified, const OldForms& forms) const {
    std::string text = "notBefore=" + begin;
    if (!end.empty())
        text += ";notAfter=" + end;
    text += ";serialNumber=" + serial;
    if (!email.empty())
        text += ";rfc822Name=" + quote_value(email);
    return text + key_id(certified, forms);
}

int OldCertificate::options(const OldForms& forms) const {
    return ZUL_X509_FORMAT_PEM | (forms.utf8 || !subject.isAscii ? ZUL_X509_UTF8 : 0) |
           (forms.noBasic ? ZUL_X509_NO_BASIC : 0) | (forms.version1 ? ZUL_X509_VERSION1 : 0);
}

void OldCertificate::self(const std::string& out, const RsaKey& key, const OldForms& forms,
                          int algorithm) const {
    accept_status(X509_MakeCertSelf(out.c_str(), key.text(), 1, years, subject.text.c_str(),
                                    pairs(key, forms).c_str(), usage, kNoPassword,
                                    algorithm | options(forms)),
                  "certificate");
}

void OldCertificate::issue(const std::string& out, const ObjectArgument& issuer, const RsaKey& issuerKey,
                           const RsaKey& certified, const OldForms& forms, int algorithm) const {
    const bool hasKeyId =
        !forms.version1 && !forms.noKeyIds && !query(issuer, "subjectKeyIdentifier").empty();
    const int choice = algorithm | options(forms) | (isAuthority ? ZUL_X509_SET_CA : 0) |
                       (hasKeyId ? ZUL_X509_AUTHKEYID : 0);
    accept_status(X509_MakeCert(out.c_str(), issuer.text(), certified.text(), issuerKey.text(), 1, years,
                                subject.text.c_str(), pairs(certified, forms).c_str(), usage, kNoPassword,
                                choice),
                  "certificate");
}

} // namespace tool
