#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>

#include "activity.h"
#include "armour.h"
#include "commands.h"
#include "key_forms.h"
#include "key_output.h"
#include "keys.h"
#include "pfx_input.h"
#include "streams.h"

namespace tool {

namespace {

// What goes into a file.
struct Contents {
    std::string certificates; // PEM
    SecretBytes key;          // the content of its file
    std::string keyName;      // for messages; empty if there is no key

    bool has_key() const { return !keyName.empty(); }
    void add_file(const std::string& file);
    void add_certificates(const SecretBytes& content, const std::string& name);
    void add_certificate(const SecretBytes& der, const std::string& name);
};

void Contents::add_file(const std::string& file) {
    const std::string name = shown_name(file);
    const SecretBytes content = Input(file).read_all();
    if (content.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    if (holds_private_key(content, name)) {
        if (has_key())
            throw UsageError(keyName + " and " + name + " both hold a private key; a file gets one");
        key = content;
        keyName = name;
        if (certificate_blocks(content).empty())
            return;
    }
    add_certificates(content, name);
}

void Contents::add_certificates(const SecretBytes& content, const std::string& name) {
    const std::vector<SecretBytes> blocks = certificate_blocks(content);
    if (blocks.empty() || content[0] == 0x30) // DER may hold the text of a block
        add_certificate(binary_content(content, name), name);
    else
        for (const SecretBytes& block : blocks)
            add_certificate(binary_content(block, name), name);
}

// The library's message would not tell which file is wrong.
void Contents::add_certificate(const SecretBytes& der, const std::string& name) {
    SecretBytes base64((der.size() + 2) / 3 * 4 + 1);
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(base64.data()), int_length(base64) - 1,
                                      der.data(), int_length(der)),
                  name);
    const std::string pem =
        std::string("-----BEGIN CERTIFICATE-----\n") + as_text(base64) + "\n-----END CERTIFICATE-----\n";
    accept_length(X509_QueryCert(nullptr, 0, pem.c_str(), "version", 0), name);
    certificates += pem;
}

struct PfxMakeCommand {
    std::vector<std::string> files, chain;
    std::string name, out = "-";
    bool pem = false, legacy = false, pbmac1 = false, truststore = false;
    PfxPassword password;
    PasswordOption newPassword;
    ReplaceOption replace;

    void check() const {
        std::vector<std::string> inputs = files;
        inputs.insert(inputs.end(), chain.begin(), chain.end());
        password.check(inputs);
        const bool isInput = std::any_of(inputs.begin(), inputs.end(), is_standard_stream);
        refuse_shared_input({isInput, newPassword.is_standard_input()});
        if (password.isEmpty && newPassword.is_given())
            throw UsageError("--empty-password and --new-password exclude each other");
        if (legacy && pbmac1)
            throw UsageError("--legacy and --pbmac1 exclude each other");
        refuse_der_at_terminal(out, !pem, "name a file with -o FILE, or use --pem");
        for (const std::string& each : inputs)
            refuse_same_file(each, out, "The output would replace an input.");
        password.option.refuse_output(out);
        newPassword.refuse_output(out);
    }

    Contents read_contents() const {
        Contents contents;
        for (const std::string& file : files)
            contents.add_file(file);
        for (const std::string& file : chain)
            contents.add_certificates(Input(file).read_all(), shown_name(file));
        if (contents.certificates.empty())
            throw Refused::by_system(NO_DATA_ERROR, contents.keyName, "The key comes without a certificate.");
        if (contents.has_key() && password.isEmpty)
            throw UsageError("a key is carried with a password only");
        return contents;
    }

    // file_password gives that of the new file. keyPassword is empty if none was needed.
    SecretBytes file_password(const SecretBytes& keyPassword) const {
        const std::string subject = in_quotes(is_standard_stream(out) ? "the PKCS #12 file" : out);
        if (password.isEmpty)
            return SecretBytes(1, 0);
        if (newPassword.is_given() || !password.option.is_given())
            return newPassword.read_new(subject);
        return keyPassword.empty() ? password.option.read_new(subject) : keyPassword;
    }

    int options() const {
        return (legacy ? ZUL_P12_LEGACY : 0) | (pbmac1 ? ZUL_P12_PBMAC1 : 0) |
               (truststore ? ZUL_P12_TRUSTED : 0) | (pem ? ZUL_KEY_FORMAT_PEM : 0);
    }

    void run() const {
        check();
        const Contents contents = read_contents();
        const bool hasKey = contents.has_key();
        hasKey ? replace.for_private(out) : replace.for_public(out);
        SecretBytes keyPassword;
        std::optional<Key> key;
        if (hasKey)
            key = Key::read_content(contents.key, contents.keyName, [&] {
                keyPassword = password.option.read(in_quotes(contents.keyName));
                return keyPassword;
            });
        const SecretBytes secret = file_password(keyPassword);
        if (std::any_of(secret.begin(), secret.end(), [](unsigned char c) { return c > 0x7F; }))
            warn("the password is not ASCII: some programs make something else of it");

        const auto pack = [&](const char* path) {
            const Activity activity("encrypting");
            const int result = P12_Pack(path, contents.certificates.c_str(), hasKey ? key->text() : nullptr,
                                        as_text(secret), name.c_str(), options());
            accept_status(result, result == NO_MATCH_ERROR ? contents.keyName : out);
        };
        if (is_standard_stream(out)) {
            const ScratchFile made(hasKey);
            pack(made.path());
            made.deliver(out);
        } else {
            pack(out.c_str());
        }
    }
};

} // namespace

void add_pfx_make_command(CLI::App& group) {
    auto make = std::make_shared<PfxMakeCommand>();
    CLI::App* command = group.add_subcommand("make", "Put certificates and a private key into a file");
    command
        ->add_option("CERT", make->files,
                     "Certificates, and the private key of one of them, in any order; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("-o,--out", make->out, "Output file (standard output)")->option_text("FILE");
    command->add_option("-n,--name", make->name, "What programs show the key and its certificate under")
        ->option_text("NAME");
    command->add_option("--chain", make->chain, "More certificates, as of the issuers; may be repeated")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->option_text("FILE");
    make->password.add_to(*command, "Password of an encrypted key and the new file");
    make->newPassword.add_to(*command, "new-password", "Password of the new file, if it differs");
    command->add_flag("--legacy", make->legacy, "Weak, for old programs: Triple DES, SHA-1, 2048 iterations");
    command->add_flag("--pbmac1", make->pbmac1, "MAC of RFC 9579, which programs before 2024 cannot check");
    command->add_flag("--truststore", make->truststore,
                      "Mark certificates without a key as trusted, as Java wants it");
    command->add_flag("--pem", make->pem, "Write PEM (PKCS12) instead of DER");
    make->replace.add_to(*command);
    command->footer(
        "Certificates are DER or PEM, of which all certificates are taken; keys are of any kind and form.\n"
        "Key and certificates are encrypted (AES-256, PBKDF2 with HMAC-SHA-256, 600,000 iterations), and\n"
        "a MAC (HMAC-SHA-256) protects the file against changes.\n\n"
        "Example:\n  zul pfx make alice.pem alice.key --chain ca.pem -o alice.p12 --name Alice\n"
        "  zul pfx make root.pem --truststore -o roots.p12");
    command->callback([make] { make->run(); });
}

} // namespace tool
