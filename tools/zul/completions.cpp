#include "completions.h"

#include <string_view>

namespace tool {

std::string quoted(Quoting quoting, const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'')
            result += quoting == Quoting::shell ? "'\\''" : quoting == Quoting::fish ? "\\'" : "''";
        else if (c == '\\' && quoting == Quoting::fish)
            result += "\\\\";
        else
            result += c;
    }
    return result + "'";
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

const char* kind_name(ValueKind kind) {
    switch (kind) {
    case ValueKind::file:
        return "file";
    case ValueKind::folder:
        return "folder";
    case ValueKind::word:
        return "word";
    case ValueKind::wordList:
        return "list";
    default:
        return "text";
    }
}

std::vector<std::string> option_names(const Command& command) {
    std::vector<std::string> names;
    for (const Parameter& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

std::vector<ValueEntry> value_entries(const Command& command) {
    std::vector<ValueEntry> entries;
    for (const Parameter& option : command.options)
        for (const std::string& name : option.names)
            if (option.values > 0)
                entries.push_back({command.name + " " + name, &option});
    int position = 0;
    for (const Parameter& positional : command.positionals) {
        ++position;
        entries.push_back(
            {command.name + " " + (positional.isRepeated ? "+" : std::to_string(position)), &positional});
    }
    return entries;
}

namespace {

constexpr std::string_view kBash = R"script(
# Walks through the words before the cursor: the command that they name, and what the next word is.
_zul() {
    local command=zul commands options kind count words position=1 need=0 isOver= i word current
    COMPREPLY=()
    current=${COMP_WORDS[COMP_CWORD]}
    _zul_command "$command"
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if ((need > 0)); then
            [[ $word == '=' ]] || ((need--))
        elif [[ -z $isOver && $word == -- ]]; then
            isOver=1
        elif [[ -z $isOver && $word == --*=* ]]; then
            :
        elif [[ -z $isOver && $word == -?* ]]; then
            _zul_value "$command" "$word"
            need=$count
        elif [[ " $commands " == *" $word "* ]]; then
            command+=" $word"
            _zul_command "$command"
        else
            ((position++))
        fi
    done
    if ((need > 0)); then
        [[ $current == '=' ]] && current=
    elif [[ -z $isOver && $current == --*=* ]]; then
        _zul_value "$command" "${current%%=*}"
        current=${current#*=}
    elif [[ -z $isOver && $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        compopt +o default
        return
    elif [[ -n $commands ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
        compopt +o default
        return
    else
        _zul_value "$command" "$position"
    fi
    case $kind in
    file) ;; # what the shell itself does
    folder) compopt +o default -o dirnames ;;
    list)
        local before=
        [[ $current == *,* ]] && before=${current%,*},
        mapfile -t COMPREPLY < <(compgen -P "$before" -W "$words" -- "${current##*,}")
        compopt +o default -o nospace
        ;;
    *)
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        compopt +o default
        ;;
    esac
}

complete -o default -F _zul zul
)script";

constexpr std::string_view kFish = R"script(
# Walks through the words before the cursor: the command that they name, and what the next word is.
function __zul_complete
    set -l command zul
    set -l position 1
    set -l need 0
    set -l option
    set -l over 0
    set -l tokens (commandline -opc)
    set -e tokens[1]
    for word in $tokens
        if test $need -gt 0
            set need (math $need - 1)
        else if test $over = 0; and test "x$word" = x--
            set over 1
        else if test $over = 0; and string match -qr -- '^--[^=]+=' "$word"
            continue
        else if test $over = 0; and string match -qr -- '^-.' "$word"
            set option "$word"
            set need (__zul_value $command $option)[1]
            test -n "$need"; or set need 0
        else if contains -- "$word" (__zul_commands $command | string replace -r '\t.*' '')
            set command "$command $word"
        else
            set position (math $position + 1)
        end
    end
    set -l current (commandline -ct)
    if test $need -gt 0
        __zul_offer "$current" '' (__zul_value $command $option)
    else if test $over = 0; and string match -qr -- '^--[^=]+=' "$current"
        set -l option (string replace -r '=.*' '' -- "$current")
        __zul_offer (string replace -r '^[^=]*=' '' -- "$current") "$option=" (__zul_value $command $option)
    else if test $over = 0; and string match -qr -- '^-' "$current"
        __zul_options $command
    else if string length -q -- (__zul_commands $command)
        __zul_commands $command
    else
        set -l value (__zul_value $command $position)
        test -n "$value"; or set value (__zul_value $command +)
        __zul_offer "$current" '' $value
    end
end

# __zul_offer CURRENT PREFIX COUNT KIND WORD...
function __zul_offer
    switch "$argv[4]"
        case file
            __fish_complete_path "$argv[1]" | string replace -r '^' -- "$argv[2]"
        case folder
            __fish_complete_directories "$argv[1]" | string replace -r '^' -- "$argv[2]"
        case list
            set -l before (string match -r '.*,' -- "$argv[1]")
            printf '%s\n' "$argv[2]$before"$argv[5..-1]
        case word
            printf '%s\n' "$argv[2]"$argv[5..-1]
    end
end

complete -c zul -e
complete -c zul -f -a '(__zul_complete)'
)script";

constexpr std::string_view kPowershell = R"script(
Register-ArgumentCompleter -Native -CommandName @('zul', 'zul.exe') -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)
    $command = 'zul'
    $position = 1
    $need = 0
    $option = ''
    $over = $false
    $current = [string]$wordToComplete
    $elements = @($commandAst.CommandElements | Select-Object -Skip 1 |
        Where-Object { $_.Extent.EndOffset -lt $cursorPosition -or ($current -eq '' -and $_.Extent.EndOffset -le $cursorPosition) })
    foreach ($element in $elements) {
        $word = $element.Extent.Text
        if ($need -gt 0) {
            $need--
        } elseif (-not $over -and $word -ceq '--') {
            $over = $true
        } elseif (-not $over -and $word -match '^--[^=]+=') {
            continue
        } elseif (-not $over -and $word -match '^-.') {
            $option = $word
            $key = "$command $option"
            $need = if ($zulValues.ContainsKey($key)) { [int]($zulValues[$key] -split ' ')[0] } else { 0 }
        } elseif ($zulCommands.ContainsKey("$command $word")) {
            $command = "$command $word"
        } else {
            $position++
        }
    }
    $prefix = ''
    $key = ''
    $offers = @()
    if ($need -gt 0) {
        $key = "$command $option"
    } elseif (-not $over -and $current -match '^(--[^=]+=)(.*)$') {
        $prefix = $Matches[1]
        $key = "$command " + $prefix.TrimEnd('=')
        $current = $Matches[2]
    } elseif (-not $over -and $current.StartsWith('-')) {
        if ($zulOptions.ContainsKey($command)) { $offers = $zulOptions[$command] }
    } elseif ($zulInner.ContainsKey($command)) {
        $offers = $zulInner[$command]
    } else {
        $key = "$command $position"
        if (-not $zulValues.ContainsKey($key)) {
            $key = "$command +"
        }
    }
    if ($key -ne '' -and $zulValues.ContainsKey($key)) {
        $count, $kind, $words = $zulValues[$key] -split ' '
        if ($kind -eq 'list' -and $current.Contains(',')) {
            $prefix += $current.Substring(0, $current.LastIndexOf(',') + 1)
            $current = $current.Substring($current.LastIndexOf(',') + 1)
        }
        $offers = @($words)
    }
    foreach ($offer in $offers) {
        $name, $about = $offer -split '\|', 2
        if ($name -and $name.StartsWith($current, [StringComparison]::Ordinal)) {
            $text = if ($about) { $about } else { $name }
            [System.Management.Automation.CompletionResult]::new($prefix + $name, $name, 'ParameterValue', $text)
        }
    }
}
)script";

std::string bash_patterns(const ValueEntry& entry) {
    const std::string pattern = quoted(Quoting::shell, entry.key);
    return entry.key.ends_with(" +") ? pattern.substr(0, pattern.size() - 2) + "'[0-9]*" : pattern;
}

} // namespace

std::string bash_completion(const Command& root) {
    std::string commands, values;
    each_command(root, [&](const Command& command) {
        std::vector<std::string> inner;
        for (const Command& each : command.commands)
            inner.push_back(each.last_word());
        commands += "    " + quoted(Quoting::shell, command.name) + ")";
        if (!inner.empty())
            commands += " commands=" + quoted(Quoting::shell, joined(inner));
        commands += " options=" + quoted(Quoting::shell, joined(option_names(command))) + " ;;\n";
        for (const ValueEntry& entry : value_entries(command)) {
            values += "    " + bash_patterns(entry) + ") count=" + std::to_string(entry.parameter->values) +
                      " kind=" + kind_name(entry.parameter->kind);
            if (!entry.parameter->words.empty())
                values += " words=" + quoted(Quoting::shell, joined(entry.parameter->words));
            values += " ;;\n";
        }
    });
    return "# Completion of zul in bash, made by 'zul completions bash'.\n\n"
           "_zul_command() {\n    commands= options=\n    case $1 in\n" +
           commands + "    esac\n}\n\n_zul_value() {\n    count=0 kind=none words=\n    case \"$1 $2\" in\n" +
           values + "    esac\n}\n" + std::string(kBash);
}

std::string fish_completion(const Command& root) {
    const auto quote = [](const std::string& text) { return quoted(Quoting::fish, text); };
    std::string commands, options, values;
    each_command(root, [&](const Command& command) {
        const std::string begin = "        case " + quote(command.name) + "\n";
        if (!command.commands.empty()) {
            commands += begin + "            printf '%s\\t%s\\n'";
            for (const Command& each : command.commands)
                commands += " \\\n                " + quote(each.last_word()) + " " + quote(each.summary);
            commands += "\n";
        }
        if (!command.options.empty()) {
            options += begin + "            printf '%s\\t%s\\n'";
            for (const Parameter& option : command.options)
                for (const std::string& name : option.names)
                    options += " \\\n                " + name + " " + quote(option.description);
            options += "\n";
        }
        for (const ValueEntry& entry : value_entries(command)) {
            values += "        case " + quote(entry.key) + "\n            printf '%s\\n' " +
                      std::to_string(entry.parameter->values) + " " + kind_name(entry.parameter->kind) +
                      (entry.parameter->words.empty() ? "" : " " + joined(entry.parameter->words)) + "\n";
        }
    });
    const auto table = [](const char* name, const std::string& cases) {
        return "function " + std::string(name) + "\n    switch \"$argv\"\n" + cases + "    end\nend\n\n";
    };
    return "# Completion of zul in fish, made by 'zul completions fish'.\n\n" +
           table("__zul_commands", commands) + table("__zul_options", options) +
           table("__zul_value", values) + std::string(kFish.substr(1));
}

std::string powershell_completion(const Command& root) {
    const auto quote = [](const std::string& text) { return quoted(Quoting::powershell, text); };
    const auto pairs = [&](const std::string& table, const std::string& key,
                           const std::vector<std::string>& items) {
        std::string text = table + "[" + quote(key) + "] = @(";
        for (const std::string& item : items)
            text += (&item == items.data() ? "\n    " : ",\n    ") + quote(item);
        return text + ")\n";
    };
    std::string tables;
    each_command(root, [&](const Command& command) {
        std::vector<std::string> inner, options;
        for (const Command& each : command.commands)
            inner.push_back(each.last_word() + "|" + each.summary);
        for (const Parameter& option : command.options)
            for (const std::string& name : option.names)
                options.push_back(name + "|" + option.description);
        tables += "$zulCommands[" + quote(command.name) + "] = 1\n";
        if (!inner.empty())
            tables += pairs("$zulInner", command.name, inner);
        if (!options.empty())
            tables += pairs("$zulOptions", command.name, options);
        for (const ValueEntry& entry : value_entries(command))
            tables += "$zulValues[" + quote(entry.key) + "] = " +
                      quote(std::to_string(entry.parameter->values) + " " + kind_name(entry.parameter->kind) +
                            (entry.parameter->words.empty() ? "" : " " + joined(entry.parameter->words))) +
                      "\n";
    });
    std::string text = "# Completion of zul in PowerShell, made by 'zul completions powershell'.\n\n";
    for (const char* table : {"Commands", "Inner", "Options", "Values"})
        text += "$global:zul" + std::string(table) +
                " = New-Object 'System.Collections.Generic.Dictionary[string,object]'\n";
    return text + tables + std::string(kPowershell);
}

} // namespace tool
