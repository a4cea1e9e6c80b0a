#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "activity.h"
#include "commands.h"
#include "failures.h"
#include "key_output.h"
#include "letters.h"
#include "rsa_keys.h"

namespace tool {

namespace {

constexpr const char* kTypes = "rsa, p-256, p-384, p-521, ed25519, x25519";

struct KeyMakeCommand {
    const CLI::App* command = nullptr;
    std::string publicFile, privateFile, type = "rsa", format = "pem";
    int bits = 2048, exponent = 65537, tests = 40;
    bool progress = false;
    KeyEncryption encryption{.scheme = "aes-256", .prf = {}, .kdf = {}};
    PasswordOption password;
    ReplaceOption replace;

    bool is_rsa() const { return lower_ascii(type) == "rsa"; }

    int exponent_index() const {
        static constexpr int kExponents[] = {3, 5, 17, 257, 65537};
        const auto* found = std::find(std::begin(kExponents), std::end(kExponents), exponent);
        if (found == std::end(kExponents))
            throw UsageError("--exponent is 3, 5, 17, 257 or 65537");
        return static_cast<int>(found - kExponents);
    }

    void check_files() const {
        if (is_standard_stream(publicFile) || is_standard_stream(privateFile))
            throw UsageError("PUBLIC and PRIVATE are names of files");
        refuse_same_file(privateFile, publicFile, "PUBLIC and PRIVATE are the same file.");
        for (const std::string& out : {publicFile, privateFile})
            password.refuse_output(out);
        replace.for_private(privateFile);
        replace.for_public(publicFile);
    }

    void run() const { is_rsa() ? run_rsa() : run_other(); }

    void run_other() const {
        if (lower_ascii(type).starts_with("rsa") || KEY_Make(nullptr, 0, type.c_str(), 0) < 0)
            throw UsageError("unknown type " + in_quotes(type) + "; types: " + kTypes);
        for (const char* option : {"--bits", "--exponent", "--tests", "--progress"})
            if (command->count(option) > 0)
                throw UsageError(std::string(option) + " is for RSA keys; the type " + type +
                                 " has no choice there");
        const int formatOption = find_key_format(format);
        if (formatOption == ZUL_KEY_FORMAT_PEM_ALT)
            throw UsageError("the format pem-alt is for RSA keys; others are pem or der");
        const std::string parameters = encryption.parameters();
        check_files();
        const SecretBytes secret = password.read_new(in_quotes(privateFile));
        const Key key = Key::make(type);
        const Activity activity("writing the keys");
        accept_status(
            KEY_Save(privateFile.c_str(), key.text(), as_text(secret), parameters.c_str(), formatOption),
            privateFile);
        accept_status(
            KEY_Save(publicFile.c_str(), key.without_private().text(), nullptr, nullptr, formatOption),
            publicFile);
    }

    void run_rsa() const {
        static constexpr int kAesBits = ZUL_PBE_CIPHER_AES128 | ZUL_PBE_CIPHER_AES192 | ZUL_PBE_CIPHER_AES256;
        const int index = exponent_index(), formatOption = find_key_format(format);
        const std::string parameters = encryption.kdf.empty() ? "" : encryption.parameters();
        const int wanted = encryption.rsa_options() | formatOption;
        check_files();
        if (bits < 2048)
            warn("a key of fewer than 2048 bits is too short to be secure");
        const SecretBytes secret = password.read_new(in_quotes(privateFile));

        // A terminal gets a line of the tool's own; elsewhere the library shows its marks on demand.
        const bool showsMarks = progress && !StatusLine::is_possible();
        const Activity activity("searching for two primes",
                                progress ? Activity::From::now : Activity::From::later);
        // The bit that shows progress is also one of AES-192's: with either, Triple DES at first.
        const bool hasAes = (wanted & ZUL_PBE_PBES2) != 0 && (wanted & kAesBits) != 0;
        const bool isMistaken = hasAes && (showsMarks || (wanted & kAesBits) == ZUL_PBE_CIPHER_AES192);
        const int options =
            (isMistaken ? wanted & ~kAesBits : wanted) | (showsMarks ? ZUL_KEY_SHOW_PROGRESS : 0);
        accept_status(RSA_MakeKeys(publicFile.c_str(), privateFile.c_str(), bits, index, tests,
                                   encryption.rsa_count(), as_text(secret), nullptr, 0, options),
                      "key pair", hint());
        if (ZUL_LastError(nullptr, 0) > 0) // of a private key that could not be written there is only a text
            throw Refused::by_library(CREATE_ERROR, privateFile);
        if (isMistaken || !parameters.empty())
            encrypt_again(as_text(secret), wanted, parameters);
    }

    std::string hint() const {
        return bits <= 96 ? "A modulus has more than 96 bits; 2048 is what others accept." : "";
    }

    void encrypt_again(const char* secret, int options, const std::string& parameters) const {
        const char* file = privateFile.c_str();
        const SecretBytes key = key_string(privateFile, [&](char* out, int room) {
            return RSA_ReadEncPrivateKey(out, room, file, secret, 0);
        });
        const int isPem =
            (options & (ZUL_KEY_FORMAT_PEM | ZUL_KEY_FORMAT_PEM_ALT)) != 0 ? ZUL_KEY_FORMAT_PEM : 0;
        accept_status(parameters.empty()
                          ? RSA_SaveEncPrivateKey(file, as_text(key), encryption.rsa_count(), secret, options)
                          : KEY_Save(file, as_text(key), secret, parameters.c_str(), isPem),
                      privateFile);
    }
};

} // namespace

void add_key_make_command(CLI::App& group) {
    auto make = std::make_shared<KeyMakeCommand>();
    CLI::App* command = group.add_subcommand("make", "Make a key pair");
    make->command = command;
    command->add_option("PUBLIC", make->publicFile, "File for the public key")->required()->option_text(" ");
    command->add_option("PRIVATE", make->privateFile, "File for the encrypted private key")
        ->required()
        ->option_text(" ");
    command->add_option("--type", make->type, std::string(kTypes) + " (rsa)")->option_text("TYPE");
    command->add_option("--bits", make->bits, "rsa: length of the modulus in bits, at most 16384 (2048)")
        ->check(CLI::Range(1, 16384))
        ->option_text("N");
    command->add_option("--exponent", make->exponent, "rsa: 3, 5, 17, 257 or 65537 (65537)")
        ->option_text("E");
    command->add_option("--tests", make->tests, "rsa: Miller-Rabin rounds for each prime (40)")
        ->check(CLI::Range(1, 1000))
        ->option_text("N");
    command
        ->add_option("-f,--format", make->format,
                     "pem (the default), der, or for RSA pem-alt (public key as X.509)")
        ->option_text("FORMAT");
    make->encryption.add_to(*command, "Encryption of the private key (aes-256)");
    make->password.add_to(*command, "password", "Password for the private key");
    make->replace.add_to(*command);
    command->add_flag("--progress", make->progress, "rsa: show the search for primes from its beginning");
    command->footer(
        std::string(KeyEncryption::kSchemes) +
        "p-256, p-384, p-521 and ed25519 sign, x25519 and the p- types agree on secrets, rsa signs\n"
        "and encrypts. Public keys are X.509 (SubjectPublicKeyInfo), those of RSA PKCS #1.\n\n"
        "Example:\n  zul key make --bits 3072 --progress public.pem private.pem\n"
        "  zul key make --type ed25519 public.pem private.pem");
    command->callback([make] { make->run(); });
}

} // namespace tool
