#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "arguments.h"
#include "certificates.h"
#include "commands.h"
#include "key_output.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kKeyRoom = 90000; // more than the longest key string

// PfxPassword is a password that may be empty, if an option says so.
struct PfxPassword {
    PasswordOption option;
    bool isEmpty = false;

    void add_to(CLI::App& command, const std::string& what) {
        option.add_to(command, "password", what);
        command.add_flag("--empty-password", isEmpty, "The password is the empty one");
    }
    void check(std::initializer_list<std::string> inputs) const {
        if (isEmpty && option.is_given())
            throw UsageError("--empty-password and --password exclude each other");
        const auto fromInput = std::count_if(inputs.begin(), inputs.end(), is_standard_stream);
        refuse_shared_input({fromInput > 0, fromInput > 1, option.is_standard_input()});
    }
    SecretBytes read(const std::string& subject, bool isNew) const {
        if (isEmpty)
            return SecretBytes(1, 0);
        return isNew ? option.read_new(subject) : option.read(subject);
    }
};

std::string latin1_name(const std::string& text) {
    constexpr int kUtf8OfLatin1 = 2, kBeyondLatin1 = 3;
    const int kind = CNV_CheckUTF8(text.c_str());
    if (kind == kBeyondLatin1)
        throw UsageError("--name has a character that Latin-1 lacks");
    if (kind != kUtf8OfLatin1)
        return text; // on some systems it is Latin-1 already
    std::string name(text.size(), '\0');
    name.resize(static_cast<size_t>(
        accept_length(CNV_Latin1FromUTF8(name.data(), static_cast<int>(name.size()), text.c_str()), "name")));
    return name;
}

struct PfxMakeCommand {
    std::string certificate, key, name, out = "-";
    bool pem = false;
    PfxPassword password;
    ReplaceOption replace;

    void check() const {
        password.check({certificate, key});
        if (password.isEmpty && !key.empty())
            throw UsageError("a key is carried with a password only");
        if (is_standard_stream(out) && !pem && output_is_terminal())
            throw UsageError("DER would upset the terminal; name a file with -o FILE, or use --pem");
        refuse_same_file(certificate, out, "The output would replace the certificate.");
        if (!key.empty())
            refuse_same_file(key, out, "The output would replace the key.");
        password.option.refuse_output(out);
        if (key.empty())
            replace.for_public(out);
        else
            replace.for_private(out);
    }

    // The library does not compare them. A key without its certificate would be useless.
    void check_key(const ObjectArgument& object, const ObjectArgument& keyObject,
                   const SecretBytes& secret) const {
        SecretBytes privateKey(kKeyRoom + 1);
        const int result = RSA_ReadEncPrivateKey(reinterpret_cast<char*>(privateKey.data()), kKeyRoom,
                                                 keyObject.text(), as_text(secret), 0);
        accept_length(result, keyObject.name(),
                      result == -DECRYPT_ERROR ? "The password is not KEY's, or KEY is no encrypted key; "
                                                 "'zul key convert --encrypt SCHEME' writes one."
                                               : "");
        const RsaKey certified = RsaKey::read_certificate(object.text(), object.name());
        accept_status(RSA_KeyMatch(as_text(privateKey), certified.text()), keyObject.name(),
                      "It is not the key of " + object.name() + ".");
    }

    void run() const {
        check();
        const std::string latin1 = latin1_name(name);
        const ObjectArgument object = certificate_object(certificate);
        const ObjectArgument keyObject = key.empty() ? object : ObjectArgument(key);
        const SecretBytes secret =
            password.read(key.empty() ? in_quotes(out) : in_quotes(keyObject.name()), key.empty());
        if (std::any_of(secret.begin(), secret.end(), [](unsigned char c) { return c > 0x7F; }))
            warn("the password is not ASCII: other programs may make something else of it");
        if (!key.empty())
            check_key(object, keyObject, secret);
        const ScratchFile made;
        accept_status(PFX_MakeFile(made.path(), object.text(), keyObject.text(), as_text(secret),
                                   latin1.c_str(),
                                   (key.empty() ? ZUL_PFX_NO_PRIVKEY : 0) | (pem ? ZUL_KEY_FORMAT_PEM : 0)),
                      "PFX file");
        write_file(out, Input(made.path()).read_all(), !key.empty());
    }
};

struct VerifyPfxCommand {
    std::string file;
    PfxPassword password;

    void run() const {
        password.check({file});
        const ObjectArgument pfx(file);
        const SecretBytes secret = password.read(in_quotes(pfx.name()), false);
        accept_status(PFX_VerifySig(pfx.text(), as_text(secret), 0), pfx.name());
        Output("-").write(pfx.name() + ": good MAC, made with this password\n");
    }
};

struct ExtractCommand {
    std::string file, certificate, keyMark;
    bool der = false;
    ReplaceOption replace;

    // Values of --key are kept aside everywhere, since elsewhere they are keys.
    std::string key_file() const {
        if (keyMark.empty())
            return {};
        const SecretBytes& value = hidden_argument(keyMark);
        return {value.begin(), value.end()};
    }

    using Extract = int(const char*, const char*, int);
    SecretBytes taken(const ObjectArgument& pfx, Extract* extract, const char* label) const {
        const ScratchFile found, armoured;
        accept_status(extract(found.path(), pfx.text(), 0), pfx.name());
        if (!der)
            accept_length(PEM_FileFromBinFile(armoured.path(), found.path(), label, 64), pfx.name());
        return Input(der ? found.path() : armoured.path()).read_all();
    }

    void run() const {
        const std::string key = key_file();
        if (certificate.empty() && key.empty())
            throw UsageError("say what to take out: --cert FILE, --key FILE or both");
        for (const std::string& out : {certificate, key})
            if (!out.empty())
                refuse_same_file(file, out, "The output would replace the input.");
        if (!certificate.empty() && !key.empty() && (certificate == key || is_same_file(certificate, key)))
            throw UsageError("--cert and --key are two files");
        if (!certificate.empty())
            replace.for_public(certificate);
        if (!key.empty())
            replace.for_private(key);
        const ObjectArgument pfx(file);
        SecretBytes certificateBytes, keyBytes;
        if (!certificate.empty())
            certificateBytes = taken(pfx, X509_GetCertFromPFX, "CERTIFICATE");
        if (!key.empty())
            keyBytes = taken(pfx, RSA_GetPrivateKeyFromPFX, "ENCRYPTED PRIVATE KEY");
        if (!key.empty())
            write_file(key, keyBytes, true);
        if (!certificate.empty())
            write_file(certificate, certificateBytes);
    }
};

} // namespace

void add_pfx_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("pfx", "Make, verify and unpack PFX files (PKCS #12)");
    group->require_subcommand(1);
    group->footer("'zul pfx COMMAND --help' shows a command's options.\n\nExample:\n"
                  "  zul pfx make alice.pem alice.key -o alice.p12 --name Alice\n"
                  "  zul pfx extract alice.p12 --cert alice.pem --key alice.key");

    auto make = std::make_shared<PfxMakeCommand>();
    CLI::App* command = group->add_subcommand("make", "Put a certificate and its key into a file");
    command->add_option("CERT", make->certificate, "The certificate; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("KEY", make->key, "Its private key, encrypted")->option_text(" ");
    command->add_option("-o,--out", make->out, "Output file (standard output)")->option_text("FILE");
    command->add_option("-n,--name", make->name, "What programs show both under (Latin-1)")
        ->option_text("NAME");
    make->password.add_to(*command, "Password of KEY and of the file");
    command->add_flag("--pem", make->pem, "Write PEM (PKCS12) instead of DER");
    make->replace.add_to(*command);
    command->footer("The key stays encrypted as it is, under the same password; the certificate is not\n"
                    "encrypted. A MAC (HMAC-SHA-1) protects both against changes.\n\n"
                    "Example:\n  zul pfx make alice.pem alice.key -o alice.p12 --name Alice");
    command->callback([make] { make->run(); });

    auto verify = std::make_shared<VerifyPfxCommand>();
    command = group->add_subcommand("verify", "Check the MAC of a file with its password");
    command->add_option("FILE", verify->file, "The PFX file; - for standard input")
        ->required()
        ->option_text(" ");
    verify->password.add_to(*command, "Password of the file");
    command->footer("Exit status 1 for a wrong password, or if the file was changed.\n\n"
                    "Example:\n  zul pfx verify alice.p12");
    command->callback([verify] { verify->run(); });

    auto extract = std::make_shared<ExtractCommand>();
    command = group->add_subcommand("extract", "Take the certificate and the key out of a file");
    command->add_option("FILE", extract->file, "The PFX file; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("--cert", extract->certificate, "Output file of the first certificate")
        ->option_text("FILE");
    command->add_option("--key", extract->keyMark, "Output file of the first key, which stays encrypted")
        ->option_text("FILE");
    command->add_flag("--der", extract->der, "Write DER instead of PEM");
    extract->replace.add_to(*command);
    command->footer(
        "Nothing is checked: 'zul pfx verify' does that. What a file holds encrypted as a whole, as\n"
        "others write certificates, cannot be taken out.\n\n"
        "Example:\n  zul pfx extract alice.p12 --cert alice.pem --key alice.key");
    command->callback([extract] { extract->run(); });

    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
