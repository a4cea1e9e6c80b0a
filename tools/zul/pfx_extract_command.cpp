#include <CLI/CLI.hpp>
#include <memory>

#include "activity.h"
#include "arguments.h"
#include "armour.h"
#include "commands.h"
#include "key_output.h"
#include "keys.h"
#include "pfx_input.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kKeyRoom = 90000; // more than the longest key string

// What was taken out of a file: the certificate of the key first.
struct Taken {
    std::vector<SecretBytes> certificates; // PEM
    SecretBytes key;                       // a key string, with its NUL
};

struct ExtractCommand {
    const CLI::App* command = nullptr;
    PfxInput input;
    std::string certificate, chain, all, keyMark;
    int keyNumber = 0;
    bool der = false, unencrypted = false;
    KeyEncryption encryption;
    PasswordOption newPassword;
    ReplaceOption replace;

    // Values of --key are kept aside everywhere, since elsewhere they are keys.
    std::string key_file() const {
        if (keyMark.empty())
            return {};
        const SecretBytes& value = hidden_argument(keyMark);
        return {value.begin(), value.end()};
    }
    bool wants_certificates() const { return !certificate.empty() || !chain.empty() || !all.empty(); }

    void check_outputs(const std::string& key) const {
        std::vector<std::string> outputs;
        for (const std::string& out : {certificate, chain, all, key}) {
            if (out.empty())
                continue;
            refuse_same_file(input.file, out, "The output would replace the input.");
            input.password.option.refuse_output(out);
            newPassword.refuse_output(out);
            refuse_der_at_terminal(out, der, "name a file");
            for (const std::string& other : outputs)
                if (out == other || is_same_file(out, other))
                    throw UsageError("each output is a file of its own");
            outputs.push_back(out);
        }
        if (outputs.empty())
            throw UsageError(
                "say what to take out: --cert FILE, --chain FILE, --all-certs FILE or --key FILE");
    }

    void check(const std::string& key) const {
        input.check();
        refuse_shared_input({is_standard_stream(input.file), newPassword.is_standard_input()});
        check_outputs(key);
        if (der && (!chain.empty() || !all.empty()))
            throw UsageError("--der goes with --cert and --key; several certificates are PEM");
        bool isEncryptionChosen = newPassword.is_given();
        for (const char* option : {"--encrypt", "--kdf", "--prf", "--count"})
            isEncryptionChosen |= command->count(option) > 0;
        if (key.empty() && (isEncryptionChosen || unencrypted))
            throw UsageError("--unencrypted, --encrypt and what goes with it, and --new-password need --key");
        if (unencrypted && isEncryptionChosen)
            throw UsageError("--unencrypted and options of encryption exclude each other");
        for (const std::string& out : {certificate, chain, all})
            if (!out.empty())
                replace.for_public(out);
        if (!key.empty())
            replace.for_private(key);
    }

    Taken take(const ObjectArgument& pfx, const SecretBytes& secret, bool wantsKey) const {
        Taken taken;
        const ScratchFile found;
        taken.key.resize(wantsKey ? kKeyRoom + 1 : 0);
        auto* keyOut = wantsKey ? reinterpret_cast<char*>(taken.key.data()) : nullptr;
        accept_status(input.read(pfx,
                                 [&](int options) {
                                     const Activity activity("decrypting");
                                     return P12_Unpack(wants_certificates() ? found.path() : nullptr, keyOut,
                                                       wantsKey ? kKeyRoom : 0, pfx.text(), as_text(secret),
                                                       keyNumber | options);
                                 }),
                      pfx.name());
        if (wants_certificates())
            taken.certificates = certificate_blocks(Input(found.path()).read_all());
        if (!chain.empty() && taken.certificates.size() < 2)
            throw Refused::by_system(NO_DATA_ERROR, pfx.name(), "It holds one certificate, and so no chain.");
        if (wantsKey && !certificate.empty() && !is_own(taken))
            warn("no certificate in " + pfx.name() + " belongs to the key; " + shown_name(certificate) +
                 " gets the first one");
        return taken;
    }

    static bool is_own(const Taken& taken) {
        SecretBytes text = taken.certificates.front(), publicKey(kKeyRoom + 1);
        text.push_back('\0');
        auto* out = reinterpret_cast<char*>(publicKey.data());
        return KEY_Read(out, kKeyRoom, as_text(text), nullptr, 0) > 0 &&
               KEY_Match(as_text(taken.key), out) == 0;
    }

    void write_key(const std::string& out, const SecretBytes& key, const SecretBytes& secret,
                   const std::string& parameters) const {
        const auto save = [&](const char* path) {
            accept_status(KEY_Save(path, as_text(key), unencrypted ? nullptr : as_text(secret),
                                   unencrypted ? nullptr : parameters.c_str(), der ? 0 : ZUL_KEY_FORMAT_PEM),
                          out);
        };
        if (is_standard_stream(out)) {
            const ScratchFile made(true);
            save(made.path());
            made.deliver(out);
        } else {
            save(out.c_str());
        }
    }

    void write_certificates(const Taken& taken) const {
        const auto write = [&taken](const std::string& out, size_t first) {
            if (out.empty())
                return;
            SecretBytes text;
            for (size_t i = first; i < taken.certificates.size(); ++i)
                text.insert(text.end(), taken.certificates[i].begin(), taken.certificates[i].end());
            write_file(out, text);
        };
        if (!certificate.empty())
            write_file(certificate, der ? binary_content(taken.certificates.front(), certificate)
                                        : taken.certificates.front());
        write(chain, 1);
        write(all, 0);
    }

    void run() const {
        const std::string key = key_file();
        check(key);
        KeyEncryption chosen = encryption;
        if (chosen.scheme.empty())
            chosen.scheme = "aes-256";
        const std::string parameters = chosen.parameters();
        const ObjectArgument pfx(input.file);
        const SecretBytes secret = input.password.read(in_quotes(pfx.name()));
        const Taken taken = take(pfx, secret, !key.empty());
        SecretBytes keySecret;
        if (!key.empty() && !unencrypted)
            keySecret = newPassword.is_given() || !input.password.option.is_given()
                            ? newPassword.read_new(in_quotes(shown_name(key)))
                            : secret;
        if (!key.empty())
            write_key(key, taken.key, keySecret, parameters);
        write_certificates(taken);
    }
};

} // namespace

void add_pfx_extract_command(CLI::App& group) {
    auto extract = std::make_shared<ExtractCommand>();
    CLI::App* command = group.add_subcommand("extract", "Take certificates and a key out of a file");
    extract->command = command;
    extract->input.add_to(*command);
    command->add_option("--cert", extract->certificate, "Output file of the certificate of the key")
        ->option_text("FILE");
    command->add_option("--chain", extract->chain, "Output file of the others, its issuers first")
        ->option_text("FILE");
    command->add_option("--all-certs", extract->all, "Output file of all certificates in this order")
        ->option_text("FILE");
    command->add_option("--key", extract->keyMark, "Output file of the key")->option_text("FILE");
    command->add_option("--key-number", extract->keyNumber, "Which of several keys, from 0 (0)")
        ->check(CLI::Range(0, 255))
        ->option_text("N");
    extract->newPassword.add_to(*command, "new-password", "Password of the key file, if it differs");
    extract->encryption.add_to(*command, "aes-128, aes-192, aes-256 or 3des (aes-256)");
    command->add_flag("--unencrypted", extract->unencrypted, "Write the key without a password");
    command->add_flag("--der", extract->der, "Write DER instead of PEM");
    extract->replace.add_to(*command);
    command->footer(
        "Nothing is written before the MAC has been checked. The key, of any kind, is encrypted anew, with\n"
        "600,000 iterations; its password is that of FILE if --password or --password-file gives it.\n"
        "A file without a key gives its first certificate, and the others as they come.\n"
        "Exit status 1 with error 15 for a wrong password.\n\n"
        "Example:\n  zul pfx extract alice.p12 --cert alice.pem --chain ca.pem --key alice.key");
    command->callback([extract] { extract->run(); });
}

} // namespace tool
