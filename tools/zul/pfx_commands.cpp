#include <CLI/CLI.hpp>
#include <memory>

#include "activity.h"
#include "commands.h"
#include "json_output.h"
#include "pfx_input.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

struct ListCommand {
    PfxInput input;
    bool json = false, withoutPassword = false;

    void run() const {
        input.check();
        if (withoutPassword && (input.password.isEmpty || input.password.option.is_given()))
            throw UsageError("--no-password excludes --password and --empty-password");
        const ObjectArgument pfx(input.file);
        const SecretBytes secret =
            withoutPassword ? SecretBytes() : input.password.read(in_quotes(pfx.name()));
        const char* password = withoutPassword ? nullptr : as_text(secret);
        const int form = json ? ZUL_P12_JSON : 0;
        SecretBytes report;
        // Each call derives keys, so the usual report takes a single one.
        const auto list = [&](int options) {
            options |= form;
            const Activity activity("decrypting");
            report.resize((1 << 16) + 1);
            int length = P12_List(reinterpret_cast<char*>(report.data()), int_length(report) - 1, pfx.text(),
                                  password, options);
            if (length == -SHORT_BUF_ERROR) {
                length = P12_List(nullptr, 0, pfx.text(), password, options);
                report.resize(length < 0 ? 1 : static_cast<size_t>(length) + 1);
                length = P12_List(reinterpret_cast<char*>(report.data()), int_length(report) - 1, pfx.text(),
                                  password, options);
            }
            return length;
        };
        report.resize(static_cast<size_t>(accept_length(input.read(pfx, list), pfx.name())));
        if (json)
            print_json(JsonObject().join_text({as_text(report), report.size()}));
        else
            write_file("-", report);
    }
};

struct VerifyPfxCommand {
    std::string file;
    bool json = false;
    PfxPassword password;

    // PFX_VerifySig looks at nothing but the MAC, and knows only those of RFC 7292 and passwords in Latin-1.
    // P12_List knows the others; it reads the whole file, which needs the same password.
    static void check_mac(const ObjectArgument& pfx, const char* secret) {
        const Activity activity("checking");
        const int result = PFX_VerifySig(pfx.text(), secret, 0);
        if (result == NO_DATA_ERROR)
            throw Refused::by_library(result, pfx.name());
        if (result != 0) {
            const int length = P12_List(nullptr, 0, pfx.text(), secret, ZUL_P12_NEED_MAC);
            if (length == -DECRYPT_ERROR)
                throw Refused::by_system(
                    SIGNATURE_ERROR, pfx.name(),
                    "The MAC does not match: a wrong password, or the file was changed.");
            accept_length(length, pfx.name());
        }
    }

    std::string check(JsonObject& about) const {
        about.add_file("file", file);
        const ObjectArgument pfx(file);
        const SecretBytes secret = password.read(in_quotes(pfx.name()));
        check_mac(pfx, as_text(secret));
        return pfx.name() + ": " + styled(Style::good, "good MAC", stdout) + ", made with this password\n";
    }

    void run() const {
        password.check({file});
        report_verdict(json, [this](JsonObject& about) { return check(about); });
    }
};

} // namespace

void add_pfx_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("pfx", "Make, list, verify and unpack PKCS #12 files (PFX)");
    group->require_subcommand(1);
    group->footer("'zul pfx COMMAND --help' shows a command's options.\n\nExample:\n"
                  "  zul pfx make alice.pem alice.key --chain ca.pem -o alice.p12 --name Alice\n"
                  "  zul pfx list alice.p12\n"
                  "  zul pfx extract alice.p12 --cert alice.pem --key alice.key");
    add_pfx_make_command(*group);

    auto list = std::make_shared<ListCommand>();
    CLI::App* command = group->add_subcommand("list", "Print what a file holds and how it is protected");
    list->input.add_to(*command);
    command->add_flag("--no-password", list->withoutPassword, "Print what is visible without a password");
    add_json_flag(*command, list->json);
    command->footer("A line for the MAC, for each part of the file and for each key and certificate in it.\n"
                    "Exit status 1 with error 15 for a wrong password.\n\n"
                    "Example:\n  zul pfx list alice.p12");
    command->callback([list] { list->run(); });

    auto verify = std::make_shared<VerifyPfxCommand>();
    command = group->add_subcommand("verify", "Check the MAC of a file with its password");
    command->add_option("FILE", verify->file, "The PKCS #12 file; - for standard input")
        ->required()
        ->option_text(" ");
    verify->password.add_to(*command, "Password of FILE");
    add_json_flag(*command, verify->json);
    command->footer("Exit status 1 for a wrong password, or if the file was changed or has no MAC.\n\n"
                    "Example:\n  zul pfx verify alice.p12");
    command->callback([verify] { verify->run(); });

    add_pfx_extract_command(*group);
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
