#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "exit_status.h"
#include "failures.h"
#include "operating_system.h"
#include "streams.h"
#include "suggestions.h"
#include "terminal_style.h"

namespace {

std::string command_names(const CLI::App& app) {
    std::string names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

// Chosen is the innermost command that the arguments name, or the tool itself, with its full name.
struct Chosen {
    const CLI::App* command;
    std::string name;

    explicit Chosen(const CLI::App& app) : command(&app), name("zul") {
        for (auto inner = app.get_subcommands(); !inner.empty(); inner = command->get_subcommands()) {
            command = inner.front();
            name += " " + command->get_name();
        }
    }
    bool is_group() const {
        return !command->get_subcommands([](const CLI::App*) { return true; }).empty();
    }
};

const auto kAll = [](const CLI::App*) { return true; };

// similar_commands gives the commands that a misspelt one may stand for: those beside it, or those of groups
// that have just its name.
std::vector<std::string> similar_commands(const CLI::App& app, const CLI::App& group,
                                          const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::App* each : group.get_subcommands(kAll))
        names.push_back(each->get_name());
    names = tool::similar_names(word, names);
    if (names.empty())
        for (const CLI::App* each : app.get_subcommands(kAll))
            for (const CLI::App* inner : each->get_subcommands(kAll))
                if (inner->get_name() == word && names.size() < 3)
                    names.push_back(each->get_name() + " " + word);
    return names;
}

std::vector<std::string> similar_options(const CLI::App& command, const std::string& name) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options())
        for (const std::string& each : option->get_lnames())
            names.push_back("--" + each);
    return tool::similar_names(name, names);
}

// explain gives the message of a parse error. It shows only command and option names of the arguments, since
// a key could stand in the wrong place.
std::string explain(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> left = app.remaining(true);
    const Chosen chosen(app);
    if (chosen.is_group() && (left.empty() || !left[0].starts_with("-"))) {
        if (!left.empty())
            return "unknown command " + tool::in_quotes(left[0]) +
                   "; commands: " + command_names(*chosen.command) +
                   tool::did_you_mean(similar_commands(app, *chosen.command, left[0]));
        return "a command is needed; commands: " + command_names(*chosen.command);
    }
    for (const std::string& argument : left)
        if (argument.starts_with("-") && argument.size() > 1) {
            const std::string name =
                argument.substr(0, argument.starts_with("--") ? argument.find('=') : size_t{2});
            return "unknown option " + name + tool::did_you_mean(similar_options(*chosen.command, name));
        }
    if (!left.empty())
        return "too many arguments";
    return error.what();
}

// without_controls replaces what could steer a terminal: a text may repeat an argument.
std::string without_controls(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return (c < 0x20 && c != '\n') || c == 0x7F; }, '?');
    return text;
}

int report_usage(const CLI::App& app, const std::string& text) {
    const Chosen chosen(app);
    const std::string& name = chosen.name;
    CLI::Formatter formatter;
    formatter.label("SUBCOMMAND", "COMMAND");
    std::fprintf(stderr, "%s %s\n%s'%s --help' tells more.\n",
                 tool::styled(tool::Style::error, name + ":", stderr).c_str(), without_controls(text).c_str(),
                 formatter.make_usage(chosen.command, name).c_str(), name.c_str());
    return tool::kUsage;
}

int run(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(tool::take_arguments(argc, argv));
        return tool::kDone;
    } catch (const CLI::CallForHelp&) {
        tool::Output("-").write(tool::styled_help(app.help()));
        return tool::kDone;
    } catch (const CLI::Success&) {
        return tool::kDone;
    } catch (const CLI::ParseError& error) {
        return report_usage(app, explain(app, error));
    } catch (const tool::UsageError& error) {
        return report_usage(app, error.what());
    } catch (const tool::SilentFailure&) {
        return tool::kRefused;
    }
}

} // namespace

int tool::run_tool(int argc, char** argv) {
    try {
        tool::prepare_streams();
        CLI::App app(
            "Digests, encryption, signatures, keys, certificates, messages, encodings and random numbers on "
            "files, with zulcore.",
            "zul");
        app.allow_windows_style_options(false); // a name may begin with a slash on every system
        app.require_subcommand(1);
        app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        app.get_formatter()->column_width(24);
        app.footer("'zul COMMAND --help' shows a command's options and an example.\n"
                   "Exit status: 0 done, or yes; 1 refused, or no; 2 wrong arguments.");
        tool::add_digest_commands(app);
        tool::add_cipher_commands(app);
        tool::add_seal_commands(app);
        tool::add_wrap_commands(app);
        tool::add_key_commands(app);
        tool::add_sign_commands(app);
        tool::add_rsa_commands(app);
        tool::add_agree_command(app);
        tool::add_kdf_commands(app);
        tool::add_ca_commands(app);
        tool::add_cert_commands(app);
        tool::add_request_commands(app);
        tool::add_crl_commands(app);
        tool::add_cms_commands(app);
        tool::add_mail_commands(app);
        tool::add_pfx_commands(app);
        tool::add_ocsp_commands(app);
        tool::add_encode_commands(app);
        tool::add_der_command(app);
        tool::add_random_command(app);
        tool::add_general_commands(app);
        tool::add_doctor_command(app);
        tool::add_help_commands(app);
        for (CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
            command->group("Commands");
        return run(app, argc, argv);
    } catch (const std::bad_alloc&) {
        tool::print_error(("error 5: " + tool::error_text(MEMORY_ERROR)).c_str());
    } catch (const std::exception& error) { // Refused, with its code and texts
        tool::print_error(error.what());
    }
    return kRefused;
}
