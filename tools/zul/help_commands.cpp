#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "command_tree.h"
#include "commands.h"
#include "completions.h"
#include "failures.h"
#include "library.h"
#include "man_page.h"
#include "operating_system.h"
#include "streams.h"
#include "suggestions.h"
#include "terminal_style.h"

namespace tool {

namespace {

// name_inner copies the names of commands, so that 'zul help' completes them.
void name_inner(const Command& from, Command& to) {
    for (const Command& each : from.commands) {
        Command named;
        named.name = to.name + " " + each.last_word();
        named.summary = each.summary;
        name_inner(each, named);
        to.commands.push_back(std::move(named));
    }
}

Command commands_with_help(const CLI::App& app) {
    const Command root = read_commands(app);
    Command completed = root;
    for (Command& each : completed.commands)
        if (each.name == "zul help") {
            name_inner(root, each);
            for (const HelpTopic& topic : help_topics())
                each.commands.push_back({each.name + " " + topic.name, topic.summary, {}, {}, {}, {}});
            each.positionals.clear();
        }
    return completed;
}

// find_command finds the command that some words name; above gets the names before the last one.
const CLI::App* find_command(const CLI::App& app, const std::vector<std::string>& words, std::string& above) {
    const CLI::App* command = &app;
    const auto all = [](const CLI::App*) { return true; };
    for (const std::string& word : words) {
        std::vector<std::string> names;
        const CLI::App* found = nullptr;
        for (const CLI::App* each : command->get_subcommands(all)) {
            names.push_back(each->get_name());
            if (each->get_name() == word)
                found = each;
        }
        above += (above.empty() ? "" : " ") + command->get_name();
        if (found == nullptr) {
            if (command == &app)
                for (const HelpTopic& topic : help_topics())
                    names.push_back(topic.name);
            throw UsageError("there is no command " + in_quotes(word) + " of '" + above + "'" +
                             did_you_mean(similar_names(word, names)));
        }
        command = found;
    }
    return command;
}

void print_help(const CLI::App& app, const std::vector<std::string>& words) {
    if (words.size() == 1)
        for (const HelpTopic& topic : help_topics())
            if (words[0] == topic.name)
                return Output("-").write(std::string(topic.summary) + "\n\n" + topic.text);
    std::string above;
    const CLI::App* command = find_command(app, words, above);
    // The tool's own help would be that of the command in use.
    const std::string text =
        command == &app ? app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal)
                        : command->help(above);
    Output("-").write(styled_help(text));
}

void print_completions(const CLI::App& app, const std::string& shell) {
    static constexpr std::pair<const char*, std::string (*)(const Command&)> kShells[] = {
        {"bash", bash_completion},
        {"zsh", zsh_completion},
        {"fish", fish_completion},
        {"powershell", powershell_completion},
    };
    std::string names;
    for (const auto& [name, make] : kShells) {
        if (shell == name)
            return Output("-").write(make(commands_with_help(app)));
        names += (names.empty() ? "" : ", ") + std::string(name);
    }
    throw UsageError("unknown shell " + in_quotes(shell) + "; shells: " + names);
}

// day_of turns "Jan  2 2026 10:00:00" into 2026-01-02.
std::string day_of(const std::string& built) {
    const std::string months = "JanFebMarAprMayJunJulAugSepOctNovDec";
    const size_t month = months.find(built.substr(0, 3)) / 3 + 1;
    const auto two_digits = [](const std::string& number) {
        return number.size() < 2 ? "0" + number : number;
    };
    return built.substr(7, 4) + "-" + two_digits(std::to_string(month)) + "-" +
           two_digits(CLI::detail::trim_copy(built.substr(4, 2)));
}

struct ManCommand {
    std::string folder;
    std::vector<std::string> page;

    void run(const CLI::App& app) const {
        if (folder.empty() == page.empty())
            throw UsageError("give DIR for all pages, or --page COMMAND for one on standard output");
        const Command root = read_commands(app);
        const Library library = about_library();
        const std::string date = day_of(library.built);
        if (!page.empty()) {
            std::string above;
            find_command(
                app, page[0] == "zul" ? std::vector<std::string>(page.begin() + 1, page.end()) : page, above);
        }
        std::string wanted = page.empty() || page[0] == "zul" ? "" : "zul ";
        for (const std::string& word : page)
            wanted += (wanted.empty() || wanted.back() == ' ' ? "" : " ") + word;
        each_command(root, [&](const Command& command) {
            if (page.empty()) {
                Output out((path_of(folder) / (man_page_name(command) + ".1")).string());
                out.write(man_page(root, command, library.version, date));
                out.finish();
            } else if (command.name == wanted) {
                Output("-").write(man_page(root, command, library.version, date));
            }
        });
    }
};

} // namespace

void add_help_commands(CLI::App& app) {
    auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("help", "Print the help of a command");
    command->add_option("COMMAND", *words, "The command, as cert issue, or a topic; none for the overview")
        ->option_text(" ");
    std::string topics;
    for (const HelpTopic& topic : help_topics())
        topics += "  " + std::string(topic.name) + std::string(14 - std::string(topic.name).size(), ' ') +
                  topic.summary + "\n";
    command->footer("Topics:\n" + topics + "\nExample:\n  zul help cert issue\n  zul help exit-codes");
    command->callback([&app, words] { print_help(app, *words); });

    auto shell = std::make_shared<std::string>();
    command = app.add_subcommand("completions", "Print a script that completes commands in a shell");
    command->add_option("SHELL", *shell, "bash, zsh, fish or powershell")->required()->option_text(" ");
    command->footer(
        "Where they belong: ~/.local/share/bash-completion/completions/zul for bash, the file _zul in\n"
        "a folder of $fpath for zsh, ~/.config/fish/completions/zul.fish for fish; PowerShell reads\n"
        "it in $PROFILE. Nothing of a line to complete is passed to another program.\n\n"
        "Example:\n  zul completions bash > ~/.local/share/bash-completion/completions/zul\n"
        "  zul completions powershell | Out-String | Invoke-Expression");
    command->callback([&app, shell] { print_completions(app, *shell); });

    auto man = std::make_shared<ManCommand>();
    command = app.add_subcommand("man", "Write manual pages");
    command->add_option("DIR", man->folder, "Folder for the pages of all commands")->option_text(" ");
    command->add_option("--page", man->page, "Print the page of one command instead, as --page cert issue")
        ->option_text("COMMAND");
    command->footer("Example:\n  zul man ~/.local/share/man/man1\n  zul man --page cert issue | man -l -");
    command->callback([&app, man] { man->run(app); });
}

} // namespace tool
