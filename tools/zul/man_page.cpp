#include "man_page.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace tool {

namespace {

// A hyphen that people copy has to be a minus sign, and a line must not begin like a request.
std::string roff(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '\\':
            result += "\\e";
            break;
        case '-':
            result += "\\-";
            break;
        case '\'':
            result += "\\(aq";
            break;
        case '"':
            result += "\\(dq";
            break;
        case '^':
            result += "\\(ha";
            break;
        case '~':
            result += "\\(ti";
            break;
        case '`':
            result += "\\(ga";
            break;
        default:
            result += c;
        }
    }
    return result.starts_with(".") ? "\\&" + result : result;
}

std::string bold(std::string_view text) {
    return "\\fB" + roff(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + roff(text) + "\\fR";
}

std::vector<std::string> lines_of(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

constexpr const char* kExample = "Example:";

// filled gives a text in lines of a moderate length, which roff joins again.
std::string filled(const std::string& text) {
    constexpr size_t kWidth = 70;
    std::istringstream in(text);
    std::string result, line;
    for (std::string word; in >> word;) {
        if (!line.empty() && line.size() + 1 + word.size() > kWidth) {
            result += roff(line) + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return result + roff(line) + "\n";
}

// plain_text fills paragraphs; lines that are moved in stay as they are. isFirst: it stands below a heading.
std::string plain_text(const std::vector<std::string>& lines, bool isFirst) {
    std::string text, paragraph;
    bool isKept = false;
    const auto end_paragraph = [&] {
        if (!paragraph.empty())
            text += (text.empty() && isFirst ? "" : ".PP\n") + filled(paragraph);
        paragraph.clear();
    };
    const auto keep = [&](bool keeps) {
        if (keeps == isKept)
            return;
        end_paragraph();
        text += !keeps ? ".fi\n.RE\n" : text.empty() && isFirst ? ".RS 2\n.nf\n" : ".PP\n.RS 2\n.nf\n";
        isKept = keeps;
    };
    for (const std::string& line : lines) {
        keep(line.starts_with(" "));
        if (line.starts_with("--")) // about one option
            end_paragraph();
        if (isKept)
            text += "\\&" + roff(line) + "\n";
        else if (line.empty())
            end_paragraph();
        else
            paragraph += line + " ";
    }
    end_paragraph();
    keep(false);
    return text;
}

struct Footer {
    std::vector<std::string> text, examples;
};
Footer split_footer(const std::string& footer) {
    Footer parts;
    bool isExample = false;
    for (const std::string& line : lines_of(footer)) {
        if (line == kExample)
            isExample = true;
        else
            (isExample ? parts.examples : parts.text).push_back(line);
    }
    while (!parts.text.empty() && parts.text.back().empty())
        parts.text.pop_back();
    return parts;
}

std::string synopsis(const Command& command) {
    std::string text = bold(command.name) + "\n";
    for (const Parameter& option : command.options) {
        if (!option.isNeeded)
            continue;
        text += bold(option.names.back()) + " " + italic(option.value) + "\n";
    }
    text += "[" + italic("options") + "]\n";
    for (const Parameter& positional : command.positionals) {
        const std::string name = italic(positional.value) + (positional.isRepeated ? " ..." : "");
        text += (positional.isNeeded ? name : "[" + name + "]") + "\n";
    }
    if (!command.commands.empty())
        text += italic("command") + " ...\n";
    return text;
}

std::string option_list(const Command& command, const std::string& group) {
    std::string text;
    for (const Parameter& option : command.options) {
        if (option.group != group)
            continue;
        std::string names;
        for (const std::string& name : option.names)
            names += (names.empty() ? "" : ", ") + bold(name);
        text += ".TP\n" + names + (option.value.empty() ? "" : " " + italic(option.value)) + "\n" +
                filled(option.description + ".");
    }
    return text;
}

std::string option_sections(const Command& command) {
    std::vector<std::string> groups;
    for (const Parameter& option : command.options)
        if (std::find(groups.begin(), groups.end(), option.group) == groups.end())
            groups.push_back(option.group);
    std::string text;
    for (const std::string& group : groups) {
        if (group == "Options")
            text += ".SH OPTIONS\n";
        else
            text += ".SS \"" + roff(group) + "\"\n";
        text += option_list(command, group);
    }
    return text;
}

std::string titled_list(const char* title, const std::vector<std::pair<std::string, std::string>>& items) {
    std::string text = items.empty() ? "" : ".SH " + std::string(title) + "\n";
    for (const auto& [name, about] : items)
        text += ".TP\n" + name + "\n" + filled(about + ".");
    return text;
}

void find_path(const Command& from, const Command& to, std::vector<const Command*>& path) {
    path.push_back(&from);
    for (const Command& each : from.commands)
        if (to.name == each.name || to.name.starts_with(each.name + " "))
            return find_path(each, to, path);
}

// see_also names what stands around a command: those above it, beside it and in it.
std::string see_also(const Command& root, const Command& command) {
    std::vector<const Command*> path;
    find_path(root, command, path);
    std::vector<std::string> names;
    path.pop_back();
    names.reserve(path.size());
    for (const Command* above : path)
        names.push_back(man_page_name(*above));
    if (!path.empty() && path.size() > 1)
        for (const Command& beside : path.back()->commands)
            if (beside.name != command.name)
                names.push_back(man_page_name(beside));
    for (const Command& inner : command.commands)
        names.push_back(man_page_name(inner));
    std::sort(names.begin(), names.end());
    std::string text = ".SH SEE ALSO\n.nh\n";
    for (const std::string& name : names)
        text += ".BR " + roff(name) + " (1)" + (&name == &names.back() ? "" : ",") + "\n";
    return text;
}

} // namespace

std::string man_page_name(const Command& command) {
    std::string name = command.name;
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

std::string man_page(const Command& root, const Command& command, const std::string& version,
                     const std::string& date) {
    const std::string name = man_page_name(command);
    std::string title = name;
    for (char& c : title)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    const bool isRoot = command.name == root.name;
    std::string summary = isRoot ? "cryptography on files" : command.summary;
    if (!isRoot && summary.size() > 1 && summary[0] >= 'A' && summary[0] <= 'Z' && summary[1] >= 'a' &&
        summary[1] <= 'z')
        summary[0] = static_cast<char>(summary[0] - 'A' + 'a');

    std::string text = ".\\\" Made by 'zul man'.\n.TH " + roff(title) + " 1 " + date + " \"zulcore " +
                       version + "\" \"zulcore\"\n.SH NAME\n" + roff(name) + " \\- " + roff(summary) +
                       "\n.SH SYNOPSIS\n" + synopsis(command) + ".SH DESCRIPTION\n" +
                       filled(command.summary + (command.summary.ends_with(".") ? "" : "."));
    const Footer footer = split_footer(command.footer);
    text += plain_text(footer.text, false);
    std::vector<std::pair<std::string, std::string>> items;
    for (const Parameter& positional : command.positionals)
        items.emplace_back(italic(positional.value), positional.description);
    text += titled_list("ARGUMENTS", items);
    text += option_sections(command);
    items.clear();
    for (const Command& inner : command.commands)
        items.emplace_back(".B " + roff(inner.last_word()), inner.summary);
    text += titled_list("COMMANDS", items);
    for (const HelpTopic& topic : help_topics()) {
        const std::string_view heading = topic.name;
        if (heading != "exit-codes" && !isRoot)
            continue;
        std::string upper(heading == "exit-codes" ? "EXIT STATUS" : heading);
        for (char& c : upper)
            c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c == '-' ? ' ' : c;
        text += ".SH " + upper + "\n" + plain_text(lines_of(topic.text), true);
    }
    if (!footer.examples.empty()) {
        text += ".SH EXAMPLES\n.nf\n";
        for (const std::string& line : footer.examples)
            text += line.empty() ? std::string("\n") : "\\&" + roff(line) + "\n";
        text += ".fi\n";
    }
    return text + see_also(root, command);
}

} // namespace tool
