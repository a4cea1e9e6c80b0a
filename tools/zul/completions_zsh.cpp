#include "completions.h"

namespace tool {

namespace {

// A specification of _arguments: a bracket ends a description, a colon a message.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += '\\';
        result += c;
    }
    return result;
}

std::string quote(const std::string& text) {
    return quoted(Quoting::shell, text);
}

std::string function_name(const std::string& command) {
    std::string name = "_" + command;
    for (char& c : name)
        if (c == ' ')
            c = '_';
    return name;
}

std::string action(const Parameter& parameter) {
    switch (parameter.kind) {
    case ValueKind::file:
        return "_files";
    case ValueKind::folder:
        return "_files -/";
    case ValueKind::word:
        return "(" + joined(parameter.words) + ")";
    case ValueKind::wordList:
        return "_values -s , " + parameter.value + " " + joined(parameter.words);
    default:
        return " ";
    }
}

std::string option_specifications(const Command& command) {
    std::string text;
    for (const Parameter& option : command.options) {
        std::string values;
        for (int i = 0; i < option.values; ++i)
            values += ":" + escaped(option.value) + ":" + action(option);
        for (const std::string& name : option.names) {
            const bool isLong = name.starts_with("--");
            const std::string others = option.isRepeated ? "*" : "(" + joined(option.names) + ")";
            const std::string mark = option.values == 0             ? ""
                                     : isLong && option.values == 1 ? "="
                                     : isLong                       ? ""
                                                                    : "+";
            text += " \\\n        " +
                    quote(others + name + mark + "[" + escaped(option.description) + "]" + values);
        }
    }
    return text;
}

std::string leaf(const Command& command) {
    std::string text =
        function_name(command.name) + "() {\n    _arguments -s -S :" + option_specifications(command);
    int position = 0;
    for (const Parameter& positional : command.positionals) {
        ++position;
        const std::string place = positional.isRepeated ? "*" : std::to_string(position);
        text += " \\\n        " + quote(place + ":" + escaped(positional.value) + ":" + action(positional));
    }
    return text + "\n}\n\n";
}

std::string group(const Command& command) {
    const std::string name = function_name(command.name);
    std::string text = name +
                       "() {\n    local context curcontext=\"$curcontext\" state line ret=1\n"
                       "    typeset -A opt_args\n    _arguments -C -S :" +
                       option_specifications(command) +
                       " \\\n        '1: :->command' \\\n        '*::: :->rest' && ret=0\n"
                       "    case $state in\n    command)\n        local -a commands=(";
    for (const Command& each : command.commands)
        text += "\n            " + quote(each.last_word() + ":" + each.summary);
    return text + ")\n        _describe -t commands " + quote(command.name + " command") +
           " commands && ret=0 ;;\n    rest)\n"
           "        words=($line[1] \"${words[@]}\")\n        ((CURRENT += 1))\n"
           "        curcontext=\"${curcontext%:*:*}:" +
           name.substr(1) + "-$line[1]:\"\n        (($+functions[" + name + "_$line[1]])) && " + name +
           "_$line[1] && ret=0 ;;\n    esac\n    return ret\n}\n\n";
}

} // namespace

std::string zsh_completion(const Command& root) {
    std::string text = "#compdef zul\n# Completion of zul in zsh, made by 'zul completions zsh'.\n\n";
    each_command(root, [&](const Command& command) {
        if (command.commands.empty())
            text += leaf(command);
        else
            text += group(command);
    });
    return text + "if [ \"$funcstack[1]\" = _zul ]; then\n    _zul \"$@\"\nelse\n    compdef _zul zul\nfi\n";
}

} // namespace tool
