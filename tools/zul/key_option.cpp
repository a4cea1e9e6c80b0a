#include "key_option.h"

#include <CLI/CLI.hpp>
#include <utility>

#include "arguments.h"
#include "failures.h"
#include "hex_text.h"
#include "streams.h"

namespace tool {

namespace {

std::string byte_count(size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

[[noreturn]] void wrong_length(const std::string& source, size_t got, size_t bytes,
                               const std::string& algorithm, const char* forms) {
    throw UsageError(source + " holds " + byte_count(got) + "; " + algorithm + " needs " + byte_count(bytes) +
                     forms + std::to_string(2 * bytes) + " hex digits)");
}

} // namespace

void KeyOption::add_to(CLI::App& command, const std::string& name, const std::string& what) {
    name_ = "--" + name;
    command
        .add_option(name_, mark_, what + " in hex (--" + name + "-file keeps it out of the shell's history)")
        ->type_name("HEX")
        ->each([this](const std::string&) { warn_of_secret(name_, name_ + "-file FILE"); });
    command.add_option(name_ + "-file", file_, what + " from a file")->type_name("FILE");
}

void KeyOption::refuse_output(const std::string& out) const {
    if (!file_.empty())
        refuse_same_file(file_, out, "The output would replace the key.");
}

void KeyOption::require_one() const {
    if (mark_.empty() && file_.empty())
        throw UsageError("a key is needed: " + name_ + " HEX or " + name_ + "-file FILE");
    if (!mark_.empty() && !file_.empty())
        throw UsageError("give " + name_ + " or " + name_ + "-file, not both");
}

SecretBytes KeyOption::read_exactly(size_t bytes, const std::string& algorithm) const {
    require_one();
    if (!mark_.empty()) {
        SecretBytes key = argument();
        if (key.size() != bytes)
            wrong_length(name_, key.size(), bytes, algorithm, " (");
        return key;
    }
    const std::string source = name_ + "-file " + in_quotes(file_);
    SecretBytes content = Input(file_).read_all();
    if (content.size() == bytes)
        return content;
    SecretBytes key = hex_or_raw(std::move(content), source);
    if (key.size() != bytes)
        wrong_length(source, key.size(), bytes, algorithm, " (raw, or as ");
    return key;
}

SecretBytes KeyOption::read_any() const {
    require_one();
    if (!file_.empty())
        return Input(file_).read_all();
    return argument();
}

SecretBytes KeyOption::argument() const {
    const SecretBytes& text = hidden_argument(mark_);
    return decode_hex(text.data(), text.size(), name_);
}

} // namespace tool
