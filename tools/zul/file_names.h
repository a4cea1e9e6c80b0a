#pragma once
#include <string>

// Names of files, of which "-" is standard input or output.
namespace tool {

inline bool is_standard_stream(const std::string& name) {
    return name == "-";
}
// is_on_disk is false for standard input, pipes and devices, which can be read only once.
bool is_on_disk(const std::string& file);
// shown_name is what messages call a file, without characters that could steer a terminal or begin a line.
std::string shown_name(const std::string& file);
// digest_line is a line of `zul hash`: the digest and the file's name. A name with a line end or a backslash
// is escaped, and the line then begins with a backslash, as sha256sum does: no name can forge a line.
std::string digest_line(const std::string& hex, const std::string& file);
// escaped_name gives a name with these escapes, or as it is if it needs none.
std::string escaped_name(const std::string& file);

// is_same_file compares what two names mean, whether the files exist already or not.
bool is_same_file(const std::string& one, const std::string& other);
void refuse_same_file(const std::string& in, const std::string& out,
                      const std::string& hint = "IN and OUT are the same file.");

} // namespace tool
