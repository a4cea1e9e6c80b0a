#pragma once
#include <functional>
#include <string>
#include <vector>

#include "certificates.h"
#include "key_option.h"

// PKCS #12 files and their passwords as arguments of commands.
namespace tool {

// PfxPassword is the password of a file. It may be empty, if an option says so.
struct PfxPassword {
    PasswordOption option;
    bool isEmpty = false;

    void add_to(CLI::App& command, const std::string& what);
    // check refuses contradictions. inputs: what else the command reads.
    void check(const std::vector<std::string>& inputs) const;
    SecretBytes read(const std::string& subject) const;
};

// PfxInput is a file that is read, with its password and what becomes of a file without a MAC.
struct PfxInput {
    std::string file;
    PfxPassword password;
    bool needsMac = false, isTrusted = false;

    void add_to(CLI::App& command);
    void check() const;
    // read calls a function of the library with options to add, again without them if the file has no MAC, of
    // which it warns. The result is the function's.
    int read(const ObjectArgument& pfx, const std::function<int(int options)>& call) const;
};

// certificate_blocks gives the blocks of PEM that hold certificates (RFC 7468, 5), each with its lines of
// armour.
std::vector<SecretBytes> certificate_blocks(const SecretBytes& text);

// refuse_der_at_terminal: out is not a terminal, or the output is no DER.
void refuse_der_at_terminal(const std::string& out, bool isDer, const std::string& instead);

} // namespace tool
