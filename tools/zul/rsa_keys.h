#pragma once
#include <string>
#include <string_view>

#include "algorithms.h"
#include "key_option.h"

// RSA keys and their passwords as arguments of commands.
namespace tool {

// RsaKey is a key as a key string of the library.
class RsaKey {
  public:
    // read reads a file or standard input and detects its form (XML, PEM, base64 or DER) and the key's.
    static RsaKey read(const std::string& file, const PasswordOption& password);
    // read_certificate reads the key of a certificate, a file or PEM; name is for messages.
    static RsaKey read_certificate(const char* fileOrText, const std::string& name);
    // read_public reads a public key from DER; name is for messages.
    static RsaKey read_public(const SecretBytes& der, const std::string& name);
    // without_private gives the public part of a key.
    RsaKey without_private() const;

    const char* text() const { return as_text(text_); }
    const std::string& form() const { return form_; } // in words
    bool is_private() const { return form_.starts_with("private"); }
    int bits() const;
    size_t bytes() const;
    SecretBytes xml(int options) const; // with its NUL

  private:
    static RsaKey from_xml(const SecretBytes& content, const std::string& name);

    std::string form_;
    SecretBytes text_; // with its NUL
};

// RsaKeyOption is -k,--key-file FILE with the options of a password.
class RsaKeyOption {
  public:
    void add_to(CLI::App& command, const std::string& what);
    // refuse_output: the output replaces neither the command's other input nor the key or its password.
    void refuse_output(const std::string& in, const std::string& out) const;
    RsaKey read_private(const std::string& in) const; // in: the command's other input
    RsaKey read_public(const std::string& in) const;

  private:
    RsaKey read(const std::string& in) const;

    std::string file_;
    PasswordOption password_;
};

// KeyEncryption is the choice of a password-based encryption.
struct KeyEncryption {
    static constexpr const char* kSchemes =
        "Schemes of --encrypt: aes-128, aes-192, aes-256, 3des (PBES2);\n"
        "for old programs p12-3des (PKCS #12), sha1-des, md5-des, md2-des (PBES1).\n\n";

    std::string scheme, prf;
    int count = 100000;

    void add_to(CLI::App& command, const std::string& schemeText);
    int options() const { return find_key_encryption(scheme, prf); }
};

// ReplaceOption is --force, without which a writer of keys replaces no private key.
struct ReplaceOption {
    bool force = false;

    void add_to(CLI::App& command);
    // for_private refuses a file that exists and is not empty, whatever it holds; for_public one that holds a
    // private key.
    void for_private(const std::string& out) const;
    void for_public(const std::string& out) const;
};

// find_key_format gives the option of a format of key files: der, pem or pem-alt.
int find_key_format(const std::string& name);

} // namespace tool
