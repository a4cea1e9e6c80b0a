#pragma once
#include <utility>

#include "keys.h"

// RSA keys as arguments of commands that take no other kind.
namespace tool {

class RsaKey : public Key {
  public:
    RsaKey() = default;
    RsaKey(Key key, const std::string& file); // Refused for a key of another kind
    static RsaKey read(const std::string& file, const PasswordOption& password) {
        return {Key::read(file, password), file};
    }
    // read_certificate reads the key of a certificate, a file or PEM; name is for messages.
    static RsaKey read_certificate(const char* fileOrText, const std::string& name);
    // read_public reads a public key from DER; name is for messages.
    static RsaKey read_public(const SecretBytes& der, const std::string& name);
    RsaKey without_private() const { return {Key::without_private(), "key"}; }

    size_t bytes() const;
    SecretBytes xml(int options) const; // with its NUL
};

class RsaKeyOption : public KeyFileOption {
  public:
    RsaKey read_private(const std::string& in) const { return {KeyFileOption::read_private(in), file()}; }
    RsaKey read_public(const std::string& in) const { return {KeyFileOption::read_public(in), file()}; }
};

} // namespace tool
