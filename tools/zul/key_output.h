#pragma once
#include <string>

namespace CLI {
class App;
}

// Options of commands that write keys.
namespace tool {

// KeyEncryption is the choice of a password-based encryption.
struct KeyEncryption {
    static constexpr const char* kSchemes =
        "Schemes of --encrypt: aes-128, aes-192, aes-256, 3des (PBES2); for RSA keys and old programs\n"
        "p12-3des (PKCS #12), sha1-des, md5-des, md2-des (PBES1). Without --kdf RSA keys have 100000\n"
        "iterations, others 600000.\n\n";

    std::string scheme, prf, kdf;
    int count = 0; // 0: the usual one

    void add_to(CLI::App& command, const std::string& schemeText);
    // For RSA_SaveEncPrivateKey.
    int rsa_options() const;
    int rsa_count() const { return count == 0 ? 100000 : count; }
    // For KEY_Save.
    std::string parameters() const;
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
