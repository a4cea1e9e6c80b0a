#include <CLI/CLI.hpp>
#include <algorithm>

#include "arguments.h"
#include "failures.h"
#include "key_option.h"
#include "streams.h"

namespace tool {

namespace {

constexpr size_t kLongestLine = 1 << 16;

// first_line reads no further than the line's end, so that a second password can stand on standard input's
// next line.
SecretBytes first_line(const std::string& file) {
    Input input(file);
    SecretBytes line;
    for (unsigned char c = 0; input.read(&c, 1) == 1 && c != '\n';) {
        if (line.size() == kLongestLine)
            throw UsageError("the first line of " + in_quotes(file) + " is too long for a password");
        line.push_back(c);
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

} // namespace

void PasswordOption::add_to(CLI::App& command, const std::string& name, const std::string& what,
                            const std::string& prompt) {
    name_ = "--" + name;
    prompt_ = prompt;
    command.add_option(name_, mark_, what + ", visible to all users; without it you are asked")
        ->type_name("TEXT")
        ->each([this](const std::string&) { // even if no key needs it
            warn_of_secret(name_, name_ + "-file FILE or " + prompt_);
        });
    command.add_option(name_ + "-file", file_, what + ": first line of a file; - for standard input")
        ->type_name("FILE");
}

void PasswordOption::refuse_output(const std::string& out) const {
    if (!file_.empty())
        refuse_same_file(file_, out, "The output would replace the password.");
}

SecretBytes PasswordOption::read(const std::string& subject, bool isNew) const {
    if (!mark_.empty() && !file_.empty())
        throw UsageError("give " + name_ + " or " + name_ + "-file, not both");
    SecretBytes password;
    if (!file_.empty()) {
        password = first_line(file_);
    } else if (!mark_.empty()) {
        password = hidden_argument(mark_);
    } else {
        password = ask_secretly((isNew ? "New password for " : "Password for ") + subject, isNew);
    }
    if (password.empty())
        throw UsageError("the password is empty");
    if (std::find(password.begin(), password.end(), 0) != password.end())
        throw UsageError("a password holds no zero bytes");
    password.push_back('\0');
    return password;
}

void refuse_shared_input(std::initializer_list<bool> areStandardInput) {
    if (std::count(areStandardInput.begin(), areStandardInput.end(), true) > 1)
        throw UsageError("only one thing can come from standard input");
}

} // namespace tool
