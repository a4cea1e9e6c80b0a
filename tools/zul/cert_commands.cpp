#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "streams.h"

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

struct QueryCommand {
    std::string file;
    std::vector<std::string> names;

    // The library takes a longer word for the name that it begins with; here a name is a name.
    static const char* find(const std::string& name) {
        for (const char* each : kQueries)
            if (CLI::detail::to_lower(each) == CLI::detail::to_lower(name))
                return each;
        std::string known;
        for (const char* each : kQueries)
            known += (known.empty() ? "" : ", ") + std::string(each);
        throw UsageError("unknown query " + in_quotes(name) + "; queries: " + known);
    }

    static std::string answer(const ObjectArgument& certificate, const char* name) {
        constexpr int kNumber = 1;
        if (X509_QueryCert(nullptr, 0, nullptr, name, ZUL_QUERY_GETTYPE) != kNumber)
            return query(certificate, name);
        return std::to_string(
            accept_length(X509_QueryCert(nullptr, 0, certificate.text(), name, 0), certificate.name()));
    }

    void run() const {
        std::vector<const char*> wanted;
        std::transform(names.begin(), names.end(), std::back_inserter(wanted), find);
        if (names.empty())
            wanted.assign(std::begin(kQueries), std::end(kQueries));
        const ObjectArgument certificate(file);
        std::string text;
        for (const char* name : wanted) {
            const std::string label = std::string(name) + ":";
            const std::string value = answer(certificate, name);
            if (wanted.size() > 1)
                text += label + (value.empty() ? "" : std::string(27 - label.size(), ' '));
            text += value + "\n";
        }
        Output("-").write(text);
    }
};

struct CertVerifyCommand {
    std::string file, issuer;

    void run() const {
        refuse_shared_input({is_standard_stream(file), is_standard_stream(issuer)});
        const ObjectArgument object(file), signer = certificate_object(issuer);
        const int result = X509_VerifyCert(object.text(), signer.text());
        if (result == -1)
            throw Refused::by_library(SIGNATURE_ERROR, object.name(),
                                      "It was not signed with the key of " + signer.name() +
                                          ", or it was changed.");
        accept_status(result, object.name());
        Output("-").write(object.name() + ": good signature, made with the key of " + signer.name() +
                          " (dates, names and revocation not checked)\n");
    }
};

struct ThumbCommand {
    std::string digest = "sha256", file;

    void run() const {
        const Digest& algorithm = find_digest(digest);
        const ObjectArgument certificate(file);
        char hash[129] = "";
        accept_length(X509_CertThumb(certificate.text(), hash, sizeof hash - 1, algorithm.option),
                      certificate.name());
        Output("-").write(digest_line(hash, file));
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
    std::string names;
    for (const char* each : kQueries)
        names += std::string("  ") + each + "\n";
    command->footer("Nothing is checked. With one NAME the value stands alone. Names:\n" + names +
                    "\nExample:\n  zul cert query alice.pem subjectName notAfter");

    auto verify = std::make_shared<CertVerifyCommand>();
    command = add_cert_command(*group, "verify",
                               "Check the signature of a certificate, request or revocation list", verify);
    command->add_option("FILE", verify->file, "What was signed; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("--issuer", verify->issuer, "Needed: the issuer's certificate")
        ->required()
        ->option_text("FILE");
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
    command->footer("Example:\n  zul cert thumb -a sha1 alice.pem");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
