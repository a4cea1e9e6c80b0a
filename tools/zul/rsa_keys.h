#pragma once
#include <initializer_list>

#include "zul_tool.h"

// RSA keys and their passwords as arguments of commands.
namespace tool {

// PasswordOption is the pair of options --NAME TEXT and --NAME-file FILE. Without either the user is asked at
// the terminal, once it turns out that a password is needed.
class PasswordOption {
  public:
    void add_to(CLI::App& command, const std::string& name, const std::string& what);

    bool is_given() const { return !mark_.empty() || !file_.empty(); }
    bool is_standard_input() const { return is_standard_stream(file_); }
    void refuse_output(const std::string& out) const;
    // The password with its NUL; it is never empty. A new one is asked for twice.
    SecretBytes read(const std::string& subject) const { return read(subject, false); }
    SecretBytes read_new(const std::string& subject) const { return read(subject, true); }

  private:
    SecretBytes read(const std::string& subject, bool isNew) const;

    std::string name_, mark_, file_;
};

inline const char* as_text(const SecretBytes& text) {
    return reinterpret_cast<const char*>(text.data());
}

// RsaKey is a key as a key string of the library.
class RsaKey {
  public:
    // read finds out the form of a file (or of standard input): XML, PEM, base64 or DER, and of the key.
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

// refuse_shared_input: of all that a command reads one thing at most can come from standard input.
void refuse_shared_input(std::initializer_list<bool> areStandardInput);

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

// find_key_format gives the option of a format of key files: der, pem or pem-alt.
int find_key_format(const std::string& name);

} // namespace tool
