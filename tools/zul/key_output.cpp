#include "key_output.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <limits>
#include <system_error>

#include "algorithms.h"
#include "failures.h"
#include "file_names.h"
#include "key_forms.h"
#include "letters.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

void KeyEncryption::add_to(CLI::App& command, const std::string& schemeText) {
    command.add_option("--encrypt", scheme, schemeText)->option_text("SCHEME");
    command.add_option("--kdf", kdf, "PBES2: pbkdf2 (the default) or scrypt")->option_text("KDF");
    command.add_option("--prf", prf, "pbkdf2: digest, sha256 (the default), sha1, sha384 or sha512")
        ->option_text("DIGEST");
    command.add_option("--count", count, "Iterations of the key derivation")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()))
        ->option_text("N");
}

int KeyEncryption::rsa_options() const {
    return find_key_encryption(scheme, prf).option;
}

std::string KeyEncryption::parameters() const {
    const KeyEncryptionScheme found = find_key_encryption(scheme, prf);
    if (found.cipher == nullptr)
        throw UsageError(scheme + " is for RSA keys and has its own key derivation; others and --kdf take "
                                  "aes-128, aes-192, aes-256 or 3des");
    const std::string cipher = std::string("cipher=") + found.cipher;
    const std::string derivation = lower_ascii(kdf);
    if (derivation == "scrypt") {
        if (!prf.empty() || count != 0)
            throw UsageError("--prf and --count go with --kdf pbkdf2");
        return cipher + ";kdf=scrypt";
    }
    if (!derivation.empty() && derivation != "pbkdf2")
        throw UsageError("--kdf is pbkdf2 or scrypt");
    return cipher + ";iterations=" + std::to_string(count == 0 ? 600000 : count) +
           (prf.empty() ? "" : ";hash=" + std::string(find_digest(prf).name));
}

void ReplaceOption::add_to(CLI::App& command) {
    command.add_flag("--force", force, "Replace an output file that exists, a private key too");
}

void ReplaceOption::for_private(const std::string& out) const {
    std::error_code ignored;
    if (!force && is_on_disk(out) && std::filesystem::file_size(path_of(out), ignored) > 0)
        throw Refused::by_system(CREATE_ERROR, out, "The file exists already; --force replaces it.");
}

void ReplaceOption::for_public(const std::string& out) const {
    if (!force && is_on_disk(out) && holds_private_key(Input(out).read_all(), out))
        throw Refused::by_system(CREATE_ERROR, out, "The file holds a private key; --force replaces it.");
}

int find_key_format(const std::string& name) {
    const std::string lower = lower_ascii(name);
    if (lower == "der")
        return 0;
    if (lower == "pem")
        return ZUL_KEY_FORMAT_PEM;
    if (lower == "pem-alt")
        return ZUL_KEY_FORMAT_PEM_ALT;
    throw UsageError("unknown format " + in_quotes(name) + "; formats: der, pem, pem-alt");
}

} // namespace tool
