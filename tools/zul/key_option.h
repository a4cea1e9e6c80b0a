#pragma once
#include <initializer_list>
#include <string>

#include "file_names.h"
#include "secret_bytes.h"

namespace CLI {
class App;
}

// Keys of ciphers and passwords as options of commands.
namespace tool {

// KeyOption is the pair of options --NAME HEX and --NAME-file FILE, of which one must be given.
class KeyOption {
  public:
    void add_to(CLI::App& command, const std::string& name, const std::string& what);

    // read_exactly gives a key of that many bytes, from a file as raw bytes or as hex text.
    SecretBytes read_exactly(size_t bytes, const std::string& algorithm) const;
    // read_any gives a key of any length; a file is taken as it is.
    SecretBytes read_any() const;

    bool is_standard_input() const { return is_standard_stream(file_); }
    void refuse_output(const std::string& out) const;

  private:
    void require_one() const;
    SecretBytes argument() const; // the value of --NAME

    std::string name_, mark_, file_;
};

// PasswordOption is the pair of options --NAME TEXT and --NAME-file FILE. Without either the user is asked at
// the terminal, once it turns out that a password is needed.
class PasswordOption {
  public:
    // prompt is what the user takes to be asked.
    void add_to(CLI::App& command, const std::string& name, const std::string& what,
                const std::string& prompt = "the prompt");

    bool is_given() const { return !mark_.empty() || !file_.empty(); }
    bool is_standard_input() const { return is_standard_stream(file_); }
    void refuse_output(const std::string& out) const;
    // The password with its NUL; it is never empty. A new one is asked for twice.
    SecretBytes read(const std::string& subject) const { return read(subject, false); }
    SecretBytes read_new(const std::string& subject) const { return read(subject, true); }

  private:
    SecretBytes read(const std::string& subject, bool isNew) const;

    std::string name_, prompt_, mark_, file_;
};

// ask_secretly asks at the terminal, whatever the standard streams are, and reads a line without showing it.
// Asked twice, the answers must agree. Refused if there is no terminal, the user gives up or they differ.
SecretBytes ask_secretly(const std::string& question, bool twice); // (secret_prompt.cpp)

// refuse_shared_input: at most one of the things that a command reads can come from standard input.
void refuse_shared_input(std::initializer_list<bool> areStandardInput);

} // namespace tool
