#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "json_output.h"
#include "object_lists.h"
#include "path_options.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

struct PathCommand {
    std::string file;
    std::vector<std::string> others;
    PathOptions options;
    bool json = false;

    void run() const {
        const std::vector<std::string> first{file};
        refuse_second_standard_input({&first, &others, &options.trusted, &options.crls, &options.responses});
        if (json)
            report_verdict(true, [&](JsonObject& about) {
                const PathAnswer answer = check(first);
                about.join_text(answer.report);
                accept(answer);
                return "";
            });
        else
            print_text(check(first));
    }

    PathAnswer check(const std::vector<std::string>& first) const {
        return PathCheck(options).check(object_list(first), object_list(others), json);
    }
    void accept(const PathAnswer& answer) const {
        if (answer.code != 0)
            throw Refused::by_system(answer.code, file, answer.reason);
    }
    void print_text(const PathAnswer& answer) const {
        // The report's first line is a title, its second one tells the result.
        const size_t line = answer.report.find('\n') + 1,
                     end = std::min(answer.report.find('\n', line), answer.report.size());
        const size_t begin = answer.report.rfind(' ', end) + 1;
        const Style style = answer.code == 0 ? Style::good : Style::bad;
        Output("-").write(answer.report.substr(0, begin) +
                          styled(style, std::string_view(answer.report).substr(begin, end - begin), stdout) +
                          answer.report.substr(end));
        accept(answer);
    }
};

} // namespace

void add_cert_path_command(CLI::App& group) {
    auto path = std::make_shared<PathCommand>();
    CLI::App* command =
        group.add_subcommand("path", "Tell whether a certificate leads to one that you trust, and is good");
    command->callback([path] { path->run(); });
    command
        ->add_option("CERT", path->file,
                     "The certificate, perhaps with its chain behind it (PEM); - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("OTHER", path->others, "Certificates for the path: PEM, DER, PKCS #7, in any order")
        ->option_text(" ");
    path->options.add_trust_to(*command, true);
    path->options.add_hosts_to(*command);
    path->options.add_purpose_to(*command);
    path->options.add_status_to(*command);
    add_json_flag(*command, path->json);
    command->footer(
        "All of RFC 5280, section 6, is checked: signatures, dates, authorities (CA), path lengths, key\n"
        "usage, name constraints, policies, critical extensions, and revocation by the lists and responses\n"
        "given. The report says which certificate is refused and why. Nothing is fetched. Exit status 0 for\n"
        "a valid path, 1 for one that is refused. A self-signed certificate is trusted only by --trusted.\n" +
        std::string(kRevocationHelp) +
        "\nExample:\n"
        "  zul cert path server.pem --trusted /etc/ssl/certs/ca-certificates.crt --host www.example.com\n"
        "  zul cert path alice.pem inter.pem --trusted root.pem --crl inter.crl --revocation leaf");
}

} // namespace tool
