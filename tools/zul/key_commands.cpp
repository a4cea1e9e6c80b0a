#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

struct KeyMakeCommand {
    std::string publicFile, privateFile, format = "pem";
    int bits = 2048, exponent = 65537, tests = 40;
    bool progress = false;
    KeyEncryption encryption{.scheme = "aes-256", .prf = {}};
    PasswordOption password;
    ReplaceOption replace;

    int exponent_index() const {
        static constexpr int kExponents[] = {3, 5, 17, 257, 65537};
        const auto* found = std::find(std::begin(kExponents), std::end(kExponents), exponent);
        if (found == std::end(kExponents))
            throw UsageError("--exponent is 3, 5, 17, 257 or 65537");
        return static_cast<int>(found - kExponents);
    }

    void run() const {
        static constexpr int kAesBits = ZUL_PBE_CIPHER_AES128 | ZUL_PBE_CIPHER_AES192 | ZUL_PBE_CIPHER_AES256;
        const int index = exponent_index(), formatOption = find_key_format(format);
        const int wanted = encryption.options() | formatOption;
        if (is_standard_stream(publicFile) || is_standard_stream(privateFile))
            throw UsageError("PUBLIC and PRIVATE are names of files");
        refuse_same_file(privateFile, publicFile, "PUBLIC and PRIVATE are the same file.");
        for (const std::string& out : {publicFile, privateFile})
            password.refuse_output(out);
        replace.for_private(privateFile);
        replace.for_public(publicFile);
        if (bits < 2048)
            warn("a key of fewer than 2048 bits is too short to be secure");
        const SecretBytes secret = password.read_new(in_quotes(privateFile));

        // The bit that shows progress is also one of AES-192's: with either, Triple DES at first.
        const bool again = (wanted & ZUL_PBE_PBES2) != 0 && (wanted & kAesBits) != 0 &&
                           (progress || (wanted & kAesBits) == ZUL_PBE_CIPHER_AES192);
        const int options = (again ? wanted & ~kAesBits : wanted) | (progress ? ZUL_KEY_SHOW_PROGRESS : 0);
        accept_status(RSA_MakeKeys(publicFile.c_str(), privateFile.c_str(), bits, index, tests,
                                   encryption.count, as_text(secret), nullptr, 0, options),
                      "key pair", hint());
        if (ZUL_LastError(nullptr, 0) > 0) // of a private key that could not be written there is only a text
            throw Refused::by_library(CREATE_ERROR, privateFile);
        if (again)
            encrypt_again(as_text(secret), wanted);
    }

    std::string hint() const {
        return bits <= 96 ? "A modulus has more than 96 bits; 2048 is what others accept." : "";
    }

    void encrypt_again(const char* secret, int options) const {
        SecretBytes key(90001);
        accept_length(RSA_ReadEncPrivateKey(reinterpret_cast<char*>(key.data()), int_length(key) - 1,
                                            privateFile.c_str(), secret, 0),
                      privateFile);
        accept_status(
            RSA_SaveEncPrivateKey(privateFile.c_str(), as_text(key), encryption.count, secret, options),
            privateFile);
    }
};

// value_of gives the hex text of a value in the library's XML.
std::string value_of(std::string_view xml, const std::string& element) {
    const size_t begin = xml.find('>', xml.find("<" + element));
    const size_t end = xml.find("</" + element + ">");
    return begin < end && end != xml.npos ? std::string(xml.substr(begin + 1, end - begin - 1)) : "";
}

std::string number_text(const std::string& hex) {
    return hex.size() > 15 ? "0x" + hex : std::to_string(std::stoull("0" + hex, nullptr, 16));
}

struct ShowCommand {
    std::string file;
    bool showPrivate = false;
    PasswordOption password;

    void run() const {
        refuse_shared_input({is_standard_stream(file), password.is_standard_input()});
        const RsaKey key = RsaKey::read(file, password);
        const SecretBytes hex = key.xml(ZUL_XML_PUBLIC_ONLY | ZUL_XML_HEXBINARY);
        char code[16];
        std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(RSA_KeyHashCode(key.text())));
        Output out("-");
        out.write("key        " + key.form() + "\nbits       " + std::to_string(key.bits()) +
                  "\nexponent   " + number_text(value_of(as_text(hex), "Exponent")) + "\nhash code  " + code +
                  "\npublic     " + as_text(key.xml(ZUL_XML_PUBLIC_ONLY)) + "\n");
        if (!showPrivate)
            return;
        if (!key.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, file, "It holds no private key to show.");
        SecretBytes xml = key.xml(0);
        xml.back() = '\n';
        out.write("private    ");
        out.write(xml);
    }
};

struct MatchCommand {
    std::string privateFile, publicFile;
    PasswordOption password;

    void run() const {
        refuse_shared_input(
            {is_standard_stream(privateFile), is_standard_stream(publicFile), password.is_standard_input()});
        const RsaKey privateKey = RsaKey::read(privateFile, password);
        if (!privateKey.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, privateFile, "It holds no private key.");
        const RsaKey publicKey = RsaKey::read(publicFile, password).without_private();
        accept_status(RSA_KeyMatch(privateKey.text(), publicKey.text()), privateFile);
        Output("-").write("the keys match\n");
    }
};

struct CheckCommand {
    std::string file;
    PasswordOption password;

    void run() const {
        refuse_shared_input({is_standard_stream(file), password.is_standard_input()});
        const RsaKey key = RsaKey::read(file, password);
        const int result = accept_length(RSA_CheckKey(key.text(), 0), file);
        const std::string size = " of " + std::to_string(key.bits()) + " bits\n";
        Output("-").write(result == 0 ? "valid private key" + size : "public key" + size);
    }
};

template<class Command>
CLI::App* add(CLI::App& group, const char* name, const char* what, std::shared_ptr<Command> state) {
    CLI::App* command = group.add_subcommand(name, what);
    command->callback([state] { state->run(); });
    return command;
}

void add_make_command(CLI::App& group) {
    auto make = std::make_shared<KeyMakeCommand>();
    CLI::App* command = add(group, "make", "Make a key pair", make);
    command->add_option("PUBLIC", make->publicFile, "File for the public key")->required()->option_text(" ");
    command->add_option("PRIVATE", make->privateFile, "File for the encrypted private key")
        ->required()
        ->option_text(" ");
    command->add_option("--bits", make->bits, "Length of the modulus in bits, at most 16384 (2048)")
        ->check(CLI::Range(1, 16384))
        ->option_text("N");
    command->add_option("--exponent", make->exponent, "3, 5, 17, 257 or 65537 (65537)")->option_text("E");
    command->add_option("--tests", make->tests, "Miller-Rabin rounds for each prime (40)")
        ->check(CLI::Range(1, 1000))
        ->option_text("N");
    command
        ->add_option("-f,--format", make->format, "pem (the default), pem-alt (public key as X.509) or der")
        ->option_text("FORMAT");
    make->encryption.add_to(*command, "Encryption of the private key (aes-256)");
    make->password.add_to(*command, "password", "Password for the private key");
    make->replace.add_to(*command);
    command->add_flag("--progress", make->progress, "Show the search for primes");
    command->footer(std::string(KeyEncryption::kSchemes) +
                    "Example:\n  zul key make --bits 3072 --progress public.pem private.pem");
}

} // namespace

void add_key_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("key", "Make, show, convert, match and check RSA keys");
    group->require_subcommand(1);
    group->footer(
        "Keys are read in any form: DER, PEM, base64 or XML; private keys encrypted or not; the key of a\n"
        "certificate. 'zul key COMMAND --help' shows a command's options.\n\nExample:\n"
        "  zul key make public.pem private.pem\n  zul key show private.pem");
    add_make_command(*group);

    auto show = std::make_shared<ShowCommand>();
    CLI::App* command = add(*group, "show", "Print what a key is", show);
    command->add_option("FILE", show->file, "The key; - for standard input")->required()->option_text(" ");
    command->add_flag("--private", show->showPrivate, "Print the private values too");
    show->password.add_to(*command, "password", "Password of an encrypted key");
    command->footer("Example:\n  zul key show public.pem");

    add_key_convert_command(*group);

    auto match = std::make_shared<MatchCommand>();
    command = add(*group, "match", "Tell whether two keys are a pair", match);
    command->add_option("PRIVATE", match->privateFile, "The private key")->required()->option_text(" ");
    command->add_option("PUBLIC", match->publicFile, "The public key or a certificate")
        ->required()
        ->option_text(" ");
    match->password.add_to(*command, "password", "Password of an encrypted key");
    command->footer("Example:\n  zul key match private.pem server.pem");

    auto check = std::make_shared<CheckCommand>();
    command = add(*group, "check", "Check a key; of a private one whether it undoes its public part", check);
    command->add_option("FILE", check->file, "The key; - for standard input")->required()->option_text(" ");
    check->password.add_to(*command, "password", "Password of an encrypted key");
    command->footer("Example:\n  zul key check private.pem");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
