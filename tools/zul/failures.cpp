#include "failures.h"

#include <cstdlib>

#include "file_names.h"

namespace tool {

namespace {

std::string describe(int code, const std::string& subject, const std::string& added,
                     const std::string& hint) {
    const std::string meaning = error_text(code);
    std::string text = shown_name(subject) + ": error " + std::to_string(code) + ": ";
    if (added.starts_with(meaning)) // the library repeats it at times
        text += added;
    else
        text += meaning + (added.empty() ? "" : "; " + added);
    if (!hint.empty())
        text += "\n     " + hint;
    return text;
}

} // namespace

std::string last_error() {
    const int length = ZUL_LastError(nullptr, 0);
    if (length <= 0)
        return {};
    std::string text(static_cast<size_t>(length), '\0'); // its own NUL is the room for the terminator
    ZUL_LastError(text.data(), length);
    // A few of the library's texts end with a line feed, and another may follow.
    for (size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at))
        if (at + 1 == text.size() || text[at + 1] == ';')
            text.erase(at, 1);
        else
            ++at;
    return text;
}

std::string error_text(int code) {
    const int length = ZUL_ErrorLookup(nullptr, 0, code);
    if (length <= 0)
        return {};
    std::string text(static_cast<size_t>(length), '\0');
    ZUL_ErrorLookup(text.data(), length + 1, code);
    return text;
}

Refused Refused::by_library(int result, const std::string& subject, const std::string& hint) {
    const int code = std::abs(result);
    return Refused(code, describe(code, subject, last_error(), hint));
}

Refused Refused::by_system(int code, const std::string& subject, const std::string& hint) {
    return Refused(code, describe(code, subject, {}, hint));
}

int accept_length(int result, const std::string& subject, const std::string& hint) {
    if (result < 0)
        throw Refused::by_library(result, subject, hint);
    return result;
}

void accept_status(int result, const std::string& subject, const std::string& hint) {
    if (result != 0)
        throw Refused::by_library(result, subject, hint);
}

void print_error(const char* text) {
    std::fprintf(stderr, "zul: %s\n", text);
}

void warn(const std::string& text) {
    print_error(("warning: " + text).c_str());
}

std::string in_quotes(std::string_view text) {
    return "'" + std::string(text) + "'";
}

} // namespace tool
