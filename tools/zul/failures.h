#pragma once
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#include <zulcore.h>

// How a command fails, and what it says then.
namespace tool {

// UsageError ends the tool with status 2; its text says what would be right.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Refused ends the tool with status 1; its text holds the error code, the text of the code and what the
// library adds. It takes these at once, since wiping a buffer on the way out empties the error state.
class Refused : public std::runtime_error {
  public:
    // A result of the library, of either sign. hint is a sentence for the reader, or empty.
    static Refused by_library(int result, const std::string& subject, const std::string& hint = {});
    // The tool's own reading or writing failed; code is the one that the library has for it.
    static Refused by_system(int code, const std::string& subject, const std::string& hint = {});

    int code() const { return code_; }
    // The parts of the text: what it is about, the meaning of the code with what was added, and the hint.
    const std::string& subject() const { return subject_; }
    const std::string& meaning() const { return meaning_; }
    const std::string& hint() const { return hint_; }

  private:
    Refused(int code, const std::string& subject, const std::string& added, const std::string& hint);
    int code_;
    std::string subject_, meaning_, hint_;
};

// SilentFailure ends the tool with status 1 after the command has itself reported what failed.
struct SilentFailure {};

// accept_length passes on a length and throws Refused for a negated code.
int accept_length(int result, const std::string& subject, const std::string& hint = {});
// accept_status throws Refused for anything but 0.
void accept_status(int result, const std::string& subject, const std::string& hint = {});

// last_error gives the text that the library's last call left.
std::string last_error();
void print_error(const char* text);         // "zul: text" on standard error
void warn(const std::string& text);         // "zul: warning: text"; the command goes on
const std::vector<std::string>& warnings(); // all of this run
// warn_of_secret warns once per run that others can see the value of an option; instead: what keeps it
// secret. ZUL_ALLOW_ARGUMENT_SECRETS=1 in the environment silences it.
void warn_of_secret(const std::string& option, const std::string& instead);
std::string in_quotes(std::string_view text);
// error_text gives the library's text of a code, empty if there is no such code.
std::string error_text(int code);
// error_name gives the name that zulcore.h has for a code, empty if there is no such code.
std::string error_name(int code);

} // namespace tool
