#include <CLI/CLI.hpp>
#include <memory>

#include "activity.h"
#include "commands.h"
#include "failures.h"
#include "key_output.h"
#include "letters.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

// What a key file may hold by itself, and KEY_Save's option for it.
struct Structure {
    const char* name;
    bool isPrivate, isPublic;
    const char* type; // of key; null for every one
    int option;
    const char* holds;
};
constexpr Structure kStructures[] = {
    {"pkcs8", true, false, nullptr, 0, "private keys"},
    {"spki", false, true, nullptr, 0, "public keys; add --public"},
    {"pkcs1", true, true, "rsa", ZUL_KEY_FORMAT_OWN, "RSA keys"},
    {"sec1", true, false, "ec", ZUL_KEY_FORMAT_OWN, "private keys on P-256, P-384 or P-521"},
};

struct ConvertCommand {
    std::string in, out, format = "pem", structure;
    bool onlyPublic = false, unencrypted = false, hexValues = false, keyValueRoot = false;
    KeyEncryption encryption;
    PasswordOption password, newPassword;
    ReplaceOption replace;

    bool encrypts() const { return !encryption.scheme.empty(); }
    bool is_xml() const { return lower_ascii(format) == "xml"; }

    void check_arguments() const {
        password.refuse_output(out);
        newPassword.refuse_output(out);
        refuse_shared_input({is_standard_stream(in), password.is_standard_input()});
        refuse_shared_input({is_standard_stream(in), newPassword.is_standard_input()});
        if ((onlyPublic ? 1 : 0) + (unencrypted ? 1 : 0) + (encrypts() ? 1 : 0) > 1)
            throw UsageError("--public, --unencrypted and --encrypt exclude each other");
        if (!encrypts() && (newPassword.is_given() || !encryption.prf.empty() || !encryption.kdf.empty()))
            throw UsageError("--new-password, --kdf and --prf go with --encrypt");
        if (is_xml() && encrypts())
            throw UsageError("a key in XML cannot be encrypted");
        if (!is_xml() && (hexValues || keyValueRoot))
            throw UsageError("--hex and --keyvalue go with the format xml");
        if (!is_xml() && is_standard_stream(out))
            throw UsageError("OUT is the name of a file; only xml goes to standard output");
        if (!structure.empty() && (is_xml() || find_key_format(format) == ZUL_KEY_FORMAT_PEM_ALT))
            throw UsageError("--structure goes with the formats pem and der");
    }

    // structure_option checks that the key to write has that structure.
    int structure_option(const Key& key, bool isPrivate) const {
        std::string names;
        for (const Structure& row : kStructures) {
            names += (names.empty() ? "" : ", ") + std::string(row.name);
            if (lower_ascii(structure) != row.name)
                continue;
            const bool isOfType = row.type == nullptr || key.type() == row.type;
            if (!isOfType || !(isPrivate ? row.isPrivate : row.isPublic))
                throw UsageError(structure + " is for " + row.holds);
            if (encrypts() && row.option != 0)
                throw UsageError("only pkcs8 is encrypted; leave out --structure");
            return row.option;
        }
        throw UsageError("unknown structure " + in_quotes(structure) + "; structures: " + names);
    }

    void write_xml(const RsaKey& key) const {
        SecretBytes xml =
            key.xml((onlyPublic ? ZUL_XML_PUBLIC_ONLY : 0) | (hexValues ? ZUL_XML_HEXBINARY : 0) |
                    (keyValueRoot ? ZUL_XML_RSAKEYVALUE : 0));
        xml.back() = '\n';
        write_file(out, xml, key.is_private() && !onlyPublic);
    }

    // write_rsa writes what the formats of RSA keys mean if no structure is named.
    void write_rsa(const Key& key, bool isPrivate, int formatOption) const {
        const char* file = out.c_str();
        if (!isPrivate) {
            accept_status(RSA_SavePublicKey(file, key.text(), formatOption), out);
        } else if (unencrypted) {
            accept_status(RSA_SavePrivateKeyInfo(file, key.text(), formatOption), out);
        } else {
            const int options = encryption.rsa_options() | formatOption;
            const SecretBytes secret = newPassword.read_new(in_quotes(out));
            const Activity activity("encrypting the key");
            accept_status(
                RSA_SaveEncPrivateKey(file, key.text(), encryption.rsa_count(), as_text(secret), options),
                out);
        }
    }

    void write_key(const Key& key, bool isPrivate, int options) const {
        const char* file = out.c_str();
        if (!isPrivate) {
            accept_status(KEY_Save(file, key.without_private().text(), nullptr, nullptr, options), out);
        } else if (unencrypted) {
            accept_status(KEY_Save(file, key.text(), nullptr, nullptr, options), out);
        } else {
            const std::string parameters = encryption.parameters();
            const SecretBytes secret = newPassword.read_new(in_quotes(out));
            const Activity activity("encrypting the key");
            accept_status(KEY_Save(file, key.text(), as_text(secret), parameters.c_str(), options), out);
        }
    }

    void run() const {
        check_arguments();
        const int formatOption = is_xml() ? 0 : find_key_format(format);
        if (encrypts())
            encryption.rsa_options(); // checks the names
        const Key key = Key::read(in, password);
        const bool isPrivate = key.is_private() && !onlyPublic;
        if (isPrivate && !unencrypted && !encrypts())
            throw UsageError("IN holds a private key; say --public, --encrypt SCHEME or --unencrypted");
        if (!key.is_private() && encrypts())
            throw UsageError("IN holds a public key, which is not encrypted");
        const int ownOption = structure.empty() ? 0 : structure_option(key, isPrivate);
        if (!key.is_rsa() && (is_xml() || formatOption == ZUL_KEY_FORMAT_PEM_ALT))
            throw UsageError("the format " + format + " is for RSA keys; IN holds one of type " + key.kind());
        if (isPrivate)
            replace.for_private(out);
        else
            replace.for_public(out);
        if (is_xml())
            write_xml(RsaKey(key, in));
        else if (key.is_rsa() && structure.empty() && encryption.kdf.empty())
            write_rsa(key, isPrivate, formatOption);
        else
            write_key(key, isPrivate, ownOption | (formatOption != 0 ? ZUL_KEY_FORMAT_PEM : 0));
    }
};

} // namespace

void add_key_convert_command(CLI::App& group) {
    auto state = std::make_shared<ConvertCommand>();
    CLI::App* command =
        group.add_subcommand("convert", "Write a key in another form or under another password");
    command->add_option("IN", state->in, "The key; - for standard input")->required()->option_text(" ");
    command->add_option("OUT", state->out, "Output file")->required()->option_text(" ");
    command->add_option("-f,--format", state->format, "pem (the default), pem-alt, der or xml")
        ->option_text("FORMAT");
    command->add_option("--structure", state->structure, "spki, pkcs8, pkcs1 or sec1, as PEM or DER")
        ->option_text("STRUCTURE");
    command->add_flag("--public", state->onlyPublic, "Write the public part of a private key");
    command->add_flag("--unencrypted", state->unencrypted, "Write a private key without a password");
    state->replace.add_to(*command);
    state->encryption.add_to(*command, "Encrypt a private key");
    state->password.add_to(*command, "password", "Password of IN");
    state->newPassword.add_to(*command, "new-password", "Password of OUT");
    command->add_flag("--hex", state->hexValues, "xml: values in hex instead of base64");
    command->add_flag("--keyvalue", state->keyValueRoot, "xml: RSAKeyValue as root of a private key too");
    command->footer(
        std::string(KeyEncryption::kSchemes) +
        "              public RSA key        private RSA key\n"
        "  pem         RSA PUBLIC KEY        PRIVATE KEY (PKCS #8)\n"
        "  pem-alt     PUBLIC KEY (X.509)    RSA PRIVATE KEY (PKCS #1)\n"
        "  der         PKCS #1               PKCS #8\n"
        "  --encrypt                         ENCRYPTED PRIVATE KEY, or its DER\n\n"
        "Other keys, and all with --structure, are X.509 (spki) and PKCS #8 (pkcs8),\n"
        "or the structure of their own: pkcs1 of RSA keys, sec1 of private keys on P-256 and its kin.\n\n"
        "Example:\n  zul key convert --encrypt aes-256 old.pem new.pem\n"
        "  zul key convert --public -f xml private.pem public.xml\n"
        "  zul key convert --unencrypted --structure sec1 private.pem ec.pem");
    command->callback([state] { state->run(); });
}

} // namespace tool
