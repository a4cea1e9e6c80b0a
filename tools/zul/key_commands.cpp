#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

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
        const Key key = Key::read(file, password);
        if (showPrivate && !key.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, file, "It holds no private key to show.");
        std::string lines = "key        " + key.form() + "\ntype       " + key.type() + "\n";
        const std::string bits = "bits       " + std::to_string(key.bits()) + "\n";
        const std::string fingerprint = "fingerprint " + key.query("fingerprint") + "\n";
        if (key.is_rsa()) {
            print_rsa(RsaKey(key, file), lines + bits, fingerprint);
            return;
        }
        if (showPrivate)
            throw UsageError(
                "--private shows values of RSA keys; 'zul key convert --unencrypted' writes others");
        if (const std::string curve = key.query("curve"); !curve.empty())
            lines += "curve      " + curve + "\n";
        Output("-").write(lines + bits + fingerprint);
    }

    void print_rsa(const RsaKey& key, const std::string& first, const std::string& fingerprint) const {
        const SecretBytes hex = key.xml(ZUL_XML_PUBLIC_ONLY | ZUL_XML_HEXBINARY);
        char code[16];
        std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(RSA_KeyHashCode(key.text())));
        Output out("-");
        out.write(first + "exponent   " + number_text(value_of(as_text(hex), "Exponent")) + "\nhash code  " +
                  code + "\n" + fingerprint + "public     " + as_text(key.xml(ZUL_XML_PUBLIC_ONLY)) + "\n");
        if (!showPrivate)
            return;
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
        const Key privateKey = Key::read(privateFile, password);
        if (!privateKey.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, privateFile, "It holds no private key.");
        const Key publicKey = Key::read(publicFile, password).without_private();
        accept_status(KEY_Match(privateKey.text(), publicKey.text()), privateFile);
        Output("-").write("the keys match\n");
    }
};

struct CheckCommand {
    std::string file;
    PasswordOption password;

    // Of a public RSA key nothing can be told but that it was read.
    void run() const {
        refuse_shared_input({is_standard_stream(file), password.is_standard_input()});
        const Key key = Key::read(file, password);
        key.check(file);
        const bool isRsa = key.query("curve").empty();
        const std::string validity = key.is_private() ? "valid private key"
                                     : isRsa          ? "public key"
                                                      : "valid public key";
        Output("-").write(validity +
                          (isRsa ? " of " + std::to_string(key.bits()) + " bits" : ", " + key.kind()) + "\n");
    }
};

template<class Command>
CLI::App* add(CLI::App& group, const char* name, const char* what, std::shared_ptr<Command> state) {
    CLI::App* command = group.add_subcommand(name, what);
    command->callback([state] { state->run(); });
    return command;
}

} // namespace

void add_key_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("key", "Make, show, convert, match and check keys");
    group->require_subcommand(1);
    group->footer(
        "Keys are RSA, P-256, P-384, P-521, Ed25519 and X25519 keys. They are read in any form: DER, PEM,\n"
        "base64 or XML; private keys encrypted or not; the key of a certificate or a request.\n"
        "'zul key COMMAND --help' shows a command's options.\n\nExample:\n"
        "  zul key make public.pem private.pem\n  zul key show private.pem");
    add_key_make_command(*group);

    auto show = std::make_shared<ShowCommand>();
    CLI::App* command = add(*group, "show", "Print what a key is", show);
    command->add_option("FILE", show->file, "The key; - for standard input")->required()->option_text(" ");
    command->add_flag("--private", show->showPrivate, "Print the private values of an RSA key too");
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
    command =
        add(*group, "check", "Check a key; of a private one whether it belongs to its public part", check);
    command->add_option("FILE", check->file, "The key; - for standard input")->required()->option_text(" ");
    check->password.add_to(*command, "password", "Password of an encrypted key");
    command->footer("Example:\n  zul key check private.pem");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
