#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

// The commands of the tool as plain data, for what is made from them: completions and manual pages.
namespace tool {

enum class ValueKind { none, text, file, folder, word, wordList }; // a list is joined by commas

struct Parameter {
    std::vector<std::string> names; // of an option, with their hyphens, the long ones last
    std::string value;              // "FILE"; the name of a positional; empty for a flag
    std::string description, group;
    ValueKind kind = ValueKind::none;
    int values = 0; // how many follow an option
    std::vector<std::string> words;
    bool isNeeded = false, isRepeated = false;
};

struct Command {
    std::string name; // the full one, "zul cert issue"
    std::string summary, footer;
    std::vector<Parameter> options, positionals;
    std::vector<Command> commands;

    std::string last_word() const { return name.substr(name.rfind(' ') + 1); }
};

Command read_commands(const CLI::App& app); // (command_tree.cpp)

// find_words sets the kind of a parameter and the words that it takes. (value_words.cpp)
void find_words(const Command& command, Parameter& parameter);

// The words after 'zul help' that are no commands, and their texts. (help_topics.cpp)
struct HelpTopic {
    const char *name, *summary, *text;
};
const std::vector<HelpTopic>& help_topics();

} // namespace tool
