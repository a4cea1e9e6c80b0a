#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

struct ConvertCommand {
    std::string in, out, format = "pem";
    bool onlyPublic = false, unencrypted = false, hexValues = false, keyValueRoot = false;
    KeyEncryption encryption;
    PasswordOption password, newPassword;
    ReplaceOption replace;

    void check_arguments() const {
        const bool encrypts = !encryption.scheme.empty();
        password.refuse_output(out);
        newPassword.refuse_output(out);
        refuse_shared_input({is_standard_stream(in), password.is_standard_input()});
        refuse_shared_input({is_standard_stream(in), newPassword.is_standard_input()});
        if ((onlyPublic ? 1 : 0) + (unencrypted ? 1 : 0) + (encrypts ? 1 : 0) > 1)
            throw UsageError("--public, --unencrypted and --encrypt exclude each other");
        if (!encrypts && (newPassword.is_given() || !encryption.prf.empty()))
            throw UsageError("--new-password and --prf go with --encrypt");
        if (is_xml() && encrypts)
            throw UsageError("a key in XML cannot be encrypted");
        if (!is_xml() && (hexValues || keyValueRoot))
            throw UsageError("--hex and --keyvalue go with the format xml");
        if (!is_xml() && is_standard_stream(out))
            throw UsageError("OUT is the name of a file; only xml goes to standard output");
    }

    bool is_xml() const { return CLI::detail::to_lower(format) == "xml"; }

    void write_xml(const RsaKey& key) const {
        SecretBytes xml =
            key.xml((onlyPublic ? ZUL_XML_PUBLIC_ONLY : 0) | (hexValues ? ZUL_XML_HEXBINARY : 0) |
                    (keyValueRoot ? ZUL_XML_RSAKEYVALUE : 0));
        xml.back() = '\n';
        write_file(out, xml, key.is_private() && !onlyPublic);
    }

    void run() const {
        check_arguments();
        const int formatOption = is_xml() ? 0 : find_key_format(format);
        const int scheme = encryption.scheme.empty() ? 0 : encryption.options();
        const RsaKey key = RsaKey::read(in, password);
        if (key.is_private() && !onlyPublic && !unencrypted && encryption.scheme.empty())
            throw UsageError("IN holds a private key; say --public, --encrypt SCHEME or --unencrypted");
        if (!key.is_private() && !encryption.scheme.empty())
            throw UsageError("IN holds a public key, which is not encrypted");
        if (key.is_private() && !onlyPublic)
            replace.for_private(out);
        else
            replace.for_public(out);
        if (is_xml()) {
            write_xml(key);
        } else if (!key.is_private() || onlyPublic) {
            accept_status(RSA_SavePublicKey(out.c_str(), key.text(), formatOption), out);
        } else if (unencrypted) {
            accept_status(RSA_SavePrivateKeyInfo(out.c_str(), key.text(), formatOption), out);
        } else {
            const SecretBytes secret = newPassword.read_new(in_quotes(out));
            accept_status(RSA_SaveEncPrivateKey(out.c_str(), key.text(), encryption.count, as_text(secret),
                                                scheme | formatOption),
                          out);
        }
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
    command->add_flag("--public", state->onlyPublic, "Write the public part of a private key");
    command->add_flag("--unencrypted", state->unencrypted, "Write a private key without a password");
    state->replace.add_to(*command);
    state->encryption.add_to(*command, "Encrypt a private key");
    state->password.add_to(*command, "password", "Password of IN");
    state->newPassword.add_to(*command, "new-password", "Password of OUT");
    command->add_flag("--hex", state->hexValues, "xml: values in hex instead of base64");
    command->add_flag("--keyvalue", state->keyValueRoot, "xml: RSAKeyValue as root of a private key too");
    command->footer(std::string(KeyEncryption::kSchemes) +
                    "              public key            private key\n"
                    "  pem         RSA PUBLIC KEY        PRIVATE KEY (PKCS #8)\n"
                    "  pem-alt     PUBLIC KEY (X.509)    RSA PRIVATE KEY (PKCS #1)\n"
                    "  der         PKCS #1               PKCS #8\n"
                    "  --encrypt                         ENCRYPTED PRIVATE KEY, or its DER\n\n"
                    "Example:\n  zul key convert --encrypt aes-256 old.pem new.pem\n"
                    "  zul key convert --public -f xml private.pem public.xml");
    command->callback([state] { state->run(); });
}

} // namespace tool
