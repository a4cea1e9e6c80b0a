#include "command_tree.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

std::vector<std::string> hyphened_names(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames())
        names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        names.push_back("--" + name);
    return names;
}

std::string trimmed(std::string text) {
    return CLI::detail::trim(text);
}

Parameter read_parameter(const CLI::Option& option) {
    Parameter parameter;
    const bool isPositional = option.get_positional();
    if (!isPositional)
        parameter.names = hyphened_names(option);
    parameter.description = option.get_description();
    parameter.group = option.get_group();
    parameter.isNeeded = option.get_required();
    parameter.isRepeated = option.get_expected_max() >= CLI::detail::expected_max_vector_size;
    if (isPositional) {
        parameter.value = option.get_name(true, false);
        parameter.values = 1;
    } else if (option.get_items_expected_max() != 0) {
        parameter.value = trimmed(option.get_option_text());
        if (parameter.value.empty())
            parameter.value = option.get_type_name();
        parameter.values = std::max(1, option.get_items_expected_min());
    }
    return parameter;
}

Command read_command(const CLI::App& app, const std::string& name) {
    Command command;
    command.name = name;
    command.summary = app.get_description();
    command.footer = app.get_footer();
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty())
            continue;
        Parameter parameter = read_parameter(*option);
        find_words(command, parameter);
        (option->get_positional() ? command.positionals : command.options).push_back(parameter);
    }
    for (const CLI::App* inner : app.get_subcommands([](const CLI::App*) { return true; }))
        command.commands.push_back(read_command(*inner, name + " " + inner->get_name()));
    return command;
}

} // namespace

Command read_commands(const CLI::App& app) {
    return read_command(app, app.get_name());
}

} // namespace tool
