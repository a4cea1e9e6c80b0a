#pragma once
#include <functional>
#include <string>

#include "key_option.h"

// Keys of any kind and their passwords as arguments of commands.
namespace tool {

// key_string calls a function of the library that writes a key string or another text about a key; the result
// has its NUL. Refused for a negative result; name is for messages.
SecretBytes key_string(const std::string& name, const std::function<int(char* out, int room)>& call);

// Key is a key as a key string of the library.
class Key {
  public:
    // read reads a file or standard input and detects its form (XML, PEM, base64 or DER) and the key's.
    static Key read(const std::string& file, const PasswordOption& password);
    // read_content reads what a file held; ask gives the password of an encrypted key. name is for messages.
    static Key read_content(const SecretBytes& content, const std::string& name,
                            const std::function<SecretBytes()>& ask);
    // make makes a private key of a type of KEY_Make.
    static Key make(const std::string& type);
    // without_private gives the public part of a key.
    Key without_private() const;

    const char* text() const { return as_text(text_); }
    const std::string& form() const { return form_; } // in words
    bool is_private() const { return number("isPrivate") != 0; }
    int bits() const { return number("bits"); }
    std::string type() const { return query("algorithm"); } // "rsa", "rsa-pss", "ec", "ed25519" or "x25519"
    bool is_rsa() const { return type() == "rsa"; }
    std::string kind() const; // the curve, or the type of an RSA key
    std::string query(const char* what) const;
    // check refuses invalid values, and a private key that does not belong to its public part.
    void check(const std::string& file) const;

  protected:
    std::string form_;
    SecretBytes text_; // with its NUL

  private:
    static Key from_xml(const SecretBytes& content, const std::string& name);
    int number(const char* query) const;
};

// KeyFileOption is -k,--key-file FILE with the options of a password.
class KeyFileOption {
  public:
    void add_to(CLI::App& command, const std::string& what);
    // refuse_output: the output replaces neither the command's other input nor the key or its password.
    void refuse_output(const std::string& in, const std::string& out) const;
    Key read_private(const std::string& in) const; // in: the command's other input
    Key read_public(const std::string& in) const;
    const std::string& file() const { return file_; }

  private:
    Key read(const std::string& in) const;

    std::string file_;
    PasswordOption password_;
};

} // namespace tool
