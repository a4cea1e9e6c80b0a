#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "certificate_path.h"
#include "commands.h"
#include "streams.h"

namespace tool {

namespace {

struct PathCommand {
    std::vector<std::string> files;
    std::string trusted;
    bool ignoreDates = false;

    void check_arguments() const {
        const auto standard = std::count(files.begin(), files.end(), "-");
        if (standard + (is_standard_stream(trusted) ? 1 : 0) > 1)
            throw UsageError("only one thing can come from standard input");
        if (files.size() > kLongestPath)
            too_many(files.size());
    }
    [[noreturn]] static void too_many(size_t count) {
        throw UsageError("a path has at most 20 certificates; here are " + std::to_string(count));
    }

    void run() const {
        check_arguments();
        std::vector<Certificate> certificates;
        for (const std::string& file : files)
            add_certificates(certificates, file);
        if (certificates.size() > kLongestPath)
            too_many(certificates.size());
        std::vector<Certificate> anchor; // one or none
        if (!trusted.empty())
            anchor.push_back(read_certificate(trusted));
        check_path(certificates, trusted.empty() ? nullptr : &anchor.front(), ignoreDates);
        Output("-").write(std::string("valid path, from ") +
                          (trusted.empty() ? "a self-signed certificate of its own, which is for you to trust"
                                           : "the trusted " + anchor.front().name()) +
                          " (not checked: " + (ignoreDates ? "dates, " : "") +
                          "revocation, path lengths, what else extensions say)\n");
    }
};

} // namespace

void add_cert_path_command(CLI::App& group) {
    auto path = std::make_shared<PathCommand>();
    CLI::App* command = group.add_subcommand("path", "Order certificates into a path and check it");
    command->callback([path] { path->run(); });
    command
        ->add_option("FILE", path->files,
                     "Certificates in any order, a PKCS #7 bundle, or PEM with several certificates")
        ->required()
        ->option_text(" ");
    command
        ->add_option("--trusted", path->trusted, "The certificate, or its issuer, that the path begins with")
        ->option_text("FILE");
    command->add_flag("--ignore-dates", path->ignoreDates, "Accept what has expired or is not valid yet");
    command->footer(
        "Checked: signatures, names, dates, whether issuers are authorities (CA) and their keys for signing\n"
        "certificates (keyCertSign). Not checked: revocation, path lengths, name constraints and all other\n"
        "extensions. An issuer of version 1 or 2, which knows no authorities, must be the path's first\n"
        "certificate, self-signed or --trusted. Exit status 1 for a path that is not valid.\n\n"
        "Example:\n  zul cert path --trusted root.pem alice.pem intermediate.pem");
}

} // namespace tool
