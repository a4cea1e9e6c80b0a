#pragma once
#include <string>

#include "secret_bytes.h"

namespace CLI {
class App;
}

// What the commands that derive keys have in common.
namespace tool {

// SaltOption is --salt HEX and --salt-file FILE, of which one at most may be given.
class SaltOption {
  public:
    void add_to(CLI::App& command);
    SecretBytes read(bool isNeeded) const; // empty if there is none
    const std::string& file() const { return file_; }

  private:
    std::string hex_, file_;
};

// DerivedOutput is a secret's way out: a line of hex on standard output, or its bytes in the file OUT.
class DerivedOutput {
  public:
    void add_to(CLI::App& command);
    void add_json_to(CLI::App& command);
    void write(const SecretBytes& secret) const;
    const std::string& file() const { return file_; }

  private:
    std::string file_;
    bool json_ = false;
};

} // namespace tool
