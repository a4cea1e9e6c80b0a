#include <CLI/CLI.hpp>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "json_output.h"
#include "letters.h"
#include "object_lists.h"
#include "object_signature.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

constexpr const char* kQueries[] = {
    "version",
    "serialNumber",
    "signatureAlgorithm",
    "signatureValue",
    "sigAlgID",
    "keyUsageString",
    "keyUsageFlags",
    "notBefore",
    "notAfter",
    "issuerName",
    "subjectName",
    "subjectPublicKeyAlgorithm",
    "subjectKeyIdentifier",
    "authorityKeyIdentifier",
    "rfc822Name",
    "isCA",
    "extKeyUsageString",
    "cRLDistributionPointsURI",
    "authorityInfoAccessURI",
};

// The answers of CERT_Query, but for those of the names above, which of certificates are X509_QueryCert's.
constexpr const char* kMoreQueries[] = {
    "kind",          "issuer",
    "subject",       "daysLeft",
    "thisUpdate",    "nextUpdate",
    "producedAt",    "revokedCount",
    "crlNumber",     "publicKeyAlgorithm",
    "publicKeyBits", "curve",
    "publicKey",     "isSelfIssued",
    "selfSigned",    "sha1",
    "sha256",        "spkiSha256",
    "keyUsage",      "extKeyUsage",
    "pathLength",    "subjectAltName",
    "dns",           "ip",
    "email",         "uri",
    "policies",      "nameConstraints",
    "crl",           "ocsp",
    "caIssuers",     "tlsFeature",
    "sctCount",      "extensions",
};

// The answers that may be several, parted by line ends.
constexpr const char* kListQueries[] = {
    "keyUsage",   "extKeyUsage", "subjectAltName",  "dns", "ip",   "email",
    "uri",        "policies",    "nameConstraints", "crl", "ocsp", "caIssuers",
    "tlsFeature", "extensions"};

struct QueryCommand {
    bool json = false;
    std::string file;
    std::vector<std::string> names;

    // X509_QueryCert takes a longer word for the name that it begins with; here a name is a name.
    template<size_t count>
    static const char* find(const char* const (&list)[count], const std::string& name) {
        for (const char* each : list)
            if (lower_ascii(each) == lower_ascii(name))
                return each;
        return nullptr;
    }

    static const char* find(const std::string& name) {
        const char* found = find(kQueries, name);
        if (found == nullptr)
            found = find(kMoreQueries, name);
        if (found != nullptr)
            return found;
        std::string known;
        for (const char* each : kQueries)
            known += (known.empty() ? "" : ", ") + std::string(each);
        for (const char* each : kMoreQueries)
            known += ", " + std::string(each);
        throw UsageError("unknown query " + in_quotes(name) + "; queries: " + known);
    }

    static std::string old_answer(const ObjectArgument& certificate, const char* name) {
        constexpr int kNumber = 1;
        if (X509_QueryCert(nullptr, 0, nullptr, name, ZUL_QUERY_GETTYPE) != kNumber)
            return query(certificate, name);
        return std::to_string(
            accept_length(X509_QueryCert(nullptr, 0, certificate.text(), name, 0), certificate.name()));
    }

    void run() const {
        std::vector<const char*> wanted;
        for (const std::string& name : names)
            wanted.push_back(find(name));
        const ObjectArgument object(file);
        const std::string argument = object.text();
        // Only CERT_Query knows other objects, and only X509_QueryCert BER.
        char kind[32] = "";
        const bool isOther = CERT_Query(kind, sizeof kind - 1, argument.c_str(), "kind", 0) > 0 &&
                             std::string_view(kind) != "certificate";
        if (names.empty() && !isOther)
            wanted.assign(std::begin(kQueries), std::end(kQueries));
        if (names.empty())
            wanted.insert(wanted.end(), std::begin(kMoreQueries), std::end(kMoreQueries));
        std::string text;
        JsonObject values;
        for (const char* name : wanted) {
            const std::string label = std::string(name) + ":";
            const bool isOld = find(kQueries, name) != nullptr && !isOther;
            std::string value = isOld ? old_answer(object, name) : cert_query(argument, object.name(), name);
            if (value.ends_with('\n'))
                value.pop_back();
            if (!value.empty() || !names.empty())
                add_value(values, name, value);
            if (wanted.size() > 1) {
                if (value.empty() && names.empty() && !isOld)
                    continue;
                for (size_t at = value.find('\n'); at != value.npos; at = value.find('\n', at + 1))
                    value.insert(at + 1, kLabelWidth, ' ');
                text += label + (value.empty() ? "" : std::string(kLabelWidth - label.size(), ' '));
            }
            text += value + "\n";
        }
        print_report(json, JsonObject().add_file("file", file).add("values", values), text);
    }

    static void add_value(JsonObject& values, const char* name, const std::string& value) {
        if (find(kListQueries, name) == nullptr) {
            values.add(name, value);
            return;
        }
        JsonArray items;
        for (size_t at = 0; at < value.size();) {
            const size_t end = std::min(value.find('\n', at), value.size());
            items.add(std::string_view(value).substr(at, end - at));
            at = end + 1;
        }
        values.add(name, items);
    }

    static constexpr size_t kLabelWidth = 27;
};

struct CheckNameCommand {
    std::string file, name;
    bool subjectName = false, json = false;

    void run() const {
        report_verdict(json, [this](JsonObject& about) { return check(about); });
    }

    std::string check(JsonObject& about) const {
        about.add_file("file", file).add("name", name);
        const ObjectArgument certificate(file);
        accept_status(
            CERT_CheckName(certificate.text(), name.c_str(), subjectName ? ZUL_CERT_SUBJECT_NAME : 0),
            certificate.name());
        return certificate.name() + ": " + styled(Style::good, "is for " + shown_name(name), stdout) +
               " (signatures and dates not checked)\n";
    }
};

struct CertVerifyCommand {
    std::string file, issuer;
    bool json = false;

    void verify_with_old_key(const ObjectArgument& signer) const {
        const ObjectArgument object(file);
        const int result = X509_VerifyCert(object.text(), signer.text());
        if (result == -1)
            throw Refused::by_library(SIGNATURE_ERROR, object.name(), not_signed_by(signer));
        accept_status(result, object.name());
    }

    void run() const {
        refuse_shared_input({is_standard_stream(file), is_standard_stream(issuer)});
        report_verdict(json, [this](JsonObject& about) { return check(about); });
    }

    std::string check(JsonObject& about) const {
        about.add_file("file", file).add_file("issuer", issuer);
        const ObjectArgument signer = certificate_object(issuer);
        if (has_new_key(signer))
            verify_with_new_key(der_of(file), shown_name(file), signer);
        else
            verify_with_old_key(signer);
        return shown_name(file) + ": " + styled(Style::good, "good signature", stdout) +
               ", made with the key of " + signer.name() + " (dates, names and revocation not checked)\n";
    }
};

struct ThumbCommand {
    std::string digest = "sha256", file;
    bool json = false;

    void run() const {
        const Digest& algorithm = find_digest(digest);
        const ObjectArgument certificate(file);
        char hash[129] = "";
        accept_length(X509_CertThumb(certificate.text(), hash, sizeof hash - 1, algorithm.option),
                      certificate.name());
        JsonObject object;
        object.add_file("file", file).add("algorithm", algorithm.name).add("thumbprint", hash);
        print_report(json, object, digest_line(hash, file));
    }
};

template<class Command>
CLI::App* add_cert_command(CLI::App& group, const char* name, const char* what,
                           std::shared_ptr<Command> state) {
    CLI::App* command = group.add_subcommand(name, what);
    command->callback([state] { state->run(); });
    return command;
}

} // namespace

void add_cert_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("cert", "Make, show, query and verify X.509 certificates");
    group->require_subcommand(1);
    group->footer(
        "Certificates are read as DER, PEM (of several blocks the first counts) or base64; keys in any\n"
        "form. 'zul cert COMMAND --help' shows a command's options.\n\nExample:\n"
        "  zul cert self -k ca.key -s \"C=AU;O=Example;CN=Example Root\" ca.pem\n"
        "  zul cert show ca.pem");
    add_cert_make_commands(*group);
    add_show_command(*group, "a certificate", "zul cert show alice.pem");

    auto query = std::make_shared<QueryCommand>();
    CLI::App* command =
        add_cert_command(*group, "query", "Print what a certificate says, item by item", query);
    command->add_option("FILE", query->file, "The certificate; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("NAME", query->names, "What to print; all if none is named")->option_text(" ");
    add_json_flag(*command, query->json);
    std::string names;
    for (const char* each : kQueries)
        names += std::string("  ") + each + "\n";
    for (const char* each : kMoreQueries)
        names += std::string("  ") + each + "\n";
    command->footer(
        "Nothing is checked. With one NAME the value stands alone. Requests, revocation lists and\n"
        "OCSP responses answer too, with an empty text for what they do not have. Names:\n" +
        names + "\nExample:\n  zul cert query alice.pem subjectName notAfter");

    auto checkName = std::make_shared<CheckNameCommand>();
    command = add_cert_command(
        *group, "check-name", "Tell whether a certificate is for a host, an address or a mailbox", checkName);
    command->add_option("FILE", checkName->file, "The certificate; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("NAME", checkName->name, "Such as www.example.com, ::1 or alice@example.com")
        ->required()
        ->option_text(" ");
    command->add_flag("--subject-name", checkName->subjectName,
                      "Names in the subject count too, where subjectAltName has none");
    add_json_flag(*command, checkName->json);
    command->footer(
        "The rules are those of RFC 9525. Only names are looked at: 'zul cert path' checks all. Exit\n"
        "status 1, with a list of the certificate's names, if it is for others.\n\n"
        "Example:\n  zul cert check-name server.pem www.example.com");

    auto verify = std::make_shared<CertVerifyCommand>();
    command = add_cert_command(*group, "verify",
                               "Check the signature of a certificate, request or revocation list", verify);
    command->add_option("FILE", verify->file, "What was signed; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("--issuer", verify->issuer, "Needed: the issuer's certificate")
        ->required()
        ->option_text("FILE");
    add_json_flag(*command, verify->json);
    command->footer(
        "The signature alone is checked: 'zul cert path' checks names and dates too. Exit status 1\n"
        "for a signature that is not good.\n\n"
        "Example:\n  zul cert verify --issuer ca.pem alice.pem");

    add_cert_path_command(*group);

    auto thumb = std::make_shared<ThumbCommand>();
    command = add_cert_command(*group, "thumb", "Print the digest of a certificate", thumb);
    command->add_option("FILE", thumb->file, "The certificate; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("-a,-d,--digest", thumb->digest, "Digest (sha256)")->option_text("DIGEST");
    add_json_flag(*command, thumb->json);
    command->footer("Example:\n  zul cert thumb -a sha1 alice.pem");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
