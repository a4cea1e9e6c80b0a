#include "terminal_style.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdlib>

#include "operating_system.h"

namespace tool {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

bool has_colours(std::FILE* stream) {
    if (!variable("NO_COLOR").empty())
        return false;
    const std::string forced = variable("CLICOLOR_FORCE");
    const bool isForced = !forced.empty() && forced != "0";
    return enable_colours(stream) || isForced; // even a forced console has to be told
}

const char* code(Style style) {
    switch (style) {
    case Style::error:
    case Style::bad:
        return "\x1b[1;31m";
    case Style::warning:
        return "\x1b[1;33m";
    case Style::good:
        return "\x1b[1;32m";
    default:
        return "\x1b[1m";
    }
}

bool is_heading(std::string_view line) {
    return line.size() > 1 && line.size() < 40 && line.ends_with(":") &&
           std::isupper(static_cast<unsigned char>(line[0])) && line.find(',') == line.npos;
}

std::atomic<bool> isInUse{false};

} // namespace

std::string styled(Style style, std::string_view text, std::FILE* stream) {
    return has_colours(stream) ? code(style) + std::string(text) + "\x1b[0m" : std::string(text);
}

std::string styled_anywhere(Style style, std::string_view text) {
    return has_colours(stderr) ? styled(style, text, stdout) : std::string(text);
}

std::string styled_help(const std::string& text) {
    if (!has_colours(stdout))
        return text;
    static constexpr std::string_view kUsage = "Usage:";
    std::string result;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line(text.data() + begin, end - begin);
        if (is_heading(line))
            result += styled(Style::heading, line, stdout);
        else if (line.starts_with(kUsage))
            result += styled(Style::heading, kUsage, stdout) + std::string(line.substr(kUsage.size()));
        else
            result += line;
        if (end < text.size())
            result += '\n';
        begin = end + 1;
    }
    return result;
}

bool StatusLine::is_possible() {
    return errors_are_terminal() && !is_dumb_terminal();
}

StatusLine::StatusLine() : isUsable_(is_possible() && !isInUse.exchange(true)) {}

StatusLine::~StatusLine() {
    if (!isUsable_)
        return;
    if (width_ > 0) {
        const std::string wiped = "\r" + std::string(width_, ' ') + "\r";
        static_cast<void>(std::fwrite(wiped.data(), 1, wiped.size(), stderr));
    }
    isInUse = false;
}

// The last column stays empty: some terminals go on to the next line there.
size_t StatusLine::room() const {
    const int columns = terminal_columns();
    return columns > 1 ? static_cast<size_t>(columns) - 1 : 79;
}

void StatusLine::show(std::string text) {
    if (!isUsable_)
        return;
    const size_t most = room();
    text.resize(std::min(text.size(), most));
    const size_t width = text.size();
    // A terminal that was made narrower has broken the line, and spaces beyond its width would add more.
    text.append(std::min(width_, most) - std::min({width_, most, width}), ' ');
    width_ = width;
    text.insert(0, 1, '\r');
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

} // namespace tool
