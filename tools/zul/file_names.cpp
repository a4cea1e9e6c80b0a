#include "file_names.h"

#include <filesystem>
#include <system_error>
#include <zulcore.h>

#include "failures.h"
#include "letters.h"
#include "operating_system.h"

namespace tool {

bool is_on_disk(const std::string& file) {
    std::error_code ignored;
    return !is_standard_stream(file) && std::filesystem::is_regular_file(path_of(file), ignored);
}

std::string shown_name(const std::string& file) {
    if (is_standard_stream(file))
        return "standard input";
    const std::string lines = lower_ascii("\n" + file);
    if (lines.find("private key-----") != lines.npos || lines.find("\nage-secret-key-1") != lines.npos)
        return "a private key in place of a file's name"; // messages get into logs
    std::string text;
    for (const char c : file)
        text += static_cast<unsigned char>(c) >= 0x20 && c != 0x7F ? c : '?';
    return text;
}

std::string escaped_name(const std::string& file) {
    std::string name;
    for (const char c : file)
        if (c == '\\' || c == '\n' || c == '\r')
            name += c == '\\' ? "\\\\" : c == '\n' ? "\\n" : "\\r";
        else
            name += c;
    return name;
}

std::string digest_line(const std::string& hex, const std::string& file) {
    const std::string name = escaped_name(file);
    return (name.size() > file.size() ? "\\" : "") + hex + "  " + name + "\n";
}

bool is_same_file(const std::string& one, const std::string& other) {
    std::error_code ignored;
    if (std::filesystem::equivalent(path_of(one), path_of(other), ignored))
        return true;
    // Files that do not exist yet will be the same if their paths are.
    const auto path = [&ignored](const std::string& name) {
        return comparable(
            std::filesystem::weakly_canonical(std::filesystem::absolute(path_of(name), ignored), ignored));
    };
    return path(one) == path(other);
}

void refuse_same_file(const std::string& in, const std::string& out, const std::string& hint) {
    if (!is_standard_stream(in) && !is_standard_stream(out) && is_same_file(in, out))
        throw Refused::by_system(BAD_PARAM_ERROR, in, hint);
}

} // namespace tool
