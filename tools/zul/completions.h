#pragma once
#include <string>

#include "command_tree.h"

// Completion scripts. Each holds all commands, options and values, so that the tool is not run to complete a
// line, which may hold a secret.
namespace tool {

std::string bash_completion(const Command& root);
std::string zsh_completion(const Command& root);
std::string fish_completion(const Command& root);
std::string powershell_completion(const Command& root);

// What the writers share. (completions.cpp)
enum class Quoting { shell, fish, powershell };
std::string quoted(Quoting quoting, const std::string& text);
std::string joined(const std::vector<std::string>& words);
const char* kind_name(ValueKind kind);
std::vector<std::string> option_names(const Command& command);
// An entry is a command with a parameter: "zul hash --length", "zul hash 1", "zul hash +" (the rest).
struct ValueEntry {
    std::string key;
    const Parameter* parameter;
};
std::vector<ValueEntry> value_entries(const Command& command);
// each_command visits a command and all below it.
template<class Visit>
void each_command(const Command& command, const Visit& visit) {
    visit(command);
    for (const Command& inner : command.commands)
        each_command(inner, visit);
}

} // namespace tool
