#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "json_output.h"
#include "rsa_keys.h"
#include "streams.h"
#include "terminal_style.h"

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

JsonObject key_object(const Key& key, const std::string& file) {
    JsonObject object;
    object.add_file("file", file).add("isPrivate", key.is_private()).add("type", key.type());
    if (const std::string curve = key.query("curve"); !curve.empty())
        object.add("curve", curve);
    object.add("bits", key.bits()).add("fingerprint", key.query("fingerprint"));
    return object;
}

struct ShowCommand {
    std::string file;
    bool showPrivate = false, json = false;
    PasswordOption password;

    void run() const {
        refuse_shared_input({is_standard_stream(file), password.is_standard_input()});
        const Key key = Key::read(file, password);
        if (showPrivate && !key.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, file, "It holds no private key to show.");
        std::string lines = "key        " + key.form() + "\ntype       " + key.type() + "\n";
        const std::string bits = "bits       " + std::to_string(key.bits()) + "\n";
        const std::string fingerprint = "fingerprint " + key.query("fingerprint") + "\n";
        JsonObject object = key_object(key, file);
        object.add("form", key.form());
        if (key.is_rsa()) {
            const RsaKey rsa(key, file);
            if (json)
                print_json(rsa_object(rsa, object));
            else
                print_rsa(rsa, lines + bits, fingerprint);
            return;
        }
        if (showPrivate)
            throw UsageError(
                "--private shows values of RSA keys; 'zul key convert --unencrypted' writes others");
        if (const std::string curve = key.query("curve"); !curve.empty())
            lines += "curve      " + curve + "\n";
        print_report(json, object, lines + bits + fingerprint);
    }

    JsonObject rsa_object(const RsaKey& key, JsonObject object) const {
        constexpr size_t kSafeDigits = 13; // of a number that every reader of JSON keeps exactly
        const SecretBytes hex = key.xml(ZUL_XML_PUBLIC_ONLY | ZUL_XML_HEXBINARY);
        const std::string exponent = value_of(as_text(hex), "Exponent");
        if (exponent.size() > kSafeDigits)
            object.add("exponent", "0x" + exponent);
        else
            object.add("exponent", std::stoll("0" + exponent, nullptr, 16));
        object.add("hashCode", hash_code(key));
        object.add("public", as_text(key.xml(ZUL_XML_PUBLIC_ONLY)));
        if (showPrivate)
            object.add("private", as_text(key.xml(0)));
        return object;
    }

    static std::string hash_code(const RsaKey& key) {
        char code[16];
        std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(RSA_KeyHashCode(key.text())));
        return code;
    }

    void print_rsa(const RsaKey& key, const std::string& first, const std::string& fingerprint) const {
        const SecretBytes hex = key.xml(ZUL_XML_PUBLIC_ONLY | ZUL_XML_HEXBINARY);
        Output out("-");
        out.write(first + "exponent   " + number_text(value_of(as_text(hex), "Exponent")) + "\nhash code  " +
                  hash_code(key) + "\n" + fingerprint + "public     " +
                  as_text(key.xml(ZUL_XML_PUBLIC_ONLY)) + "\n");
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
    bool json = false;
    PasswordOption password;

    void run() const {
        refuse_shared_input(
            {is_standard_stream(privateFile), is_standard_stream(publicFile), password.is_standard_input()});
        report_verdict(json, [this](JsonObject& about) { return match(about); });
    }

    std::string match(JsonObject& about) const {
        about.add_file("privateKey", privateFile).add_file("publicKey", publicFile);
        const Key privateKey = Key::read(privateFile, password);
        if (!privateKey.is_private())
            throw Refused::by_system(BAD_FORMAT_ERROR, privateFile, "It holds no private key.");
        const Key publicKey = Key::read(publicFile, password).without_private();
        accept_status(KEY_Match(privateKey.text(), publicKey.text()), privateFile);
        return styled(Style::good, "the keys match", stdout) + "\n";
    }
};

struct CheckCommand {
    std::string file;
    bool json = false;
    PasswordOption password;

    void run() const {
        refuse_shared_input({is_standard_stream(file), password.is_standard_input()});
        report_verdict(json, [this](JsonObject& about) { return check(about); });
    }

    // Of a public RSA key nothing can be told but that it was read.
    std::string check(JsonObject& about) const {
        const Key key = Key::read(file, password);
        about = key_object(key, file);
        key.check(file);
        const bool isRsa = key.query("curve").empty();
        const std::string validity = key.is_private() ? "valid private key"
                                     : isRsa          ? "public key"
                                                      : "valid public key";
        return styled(Style::good, validity, stdout) +
               (isRsa ? " of " + std::to_string(key.bits()) + " bits" : ", " + key.kind()) + "\n";
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
    add_json_flag(*command, show->json);
    command->footer("Example:\n  zul key show public.pem");

    add_key_convert_command(*group);

    auto match = std::make_shared<MatchCommand>();
    command = add(*group, "match", "Tell whether two keys are a pair", match);
    command->add_option("PRIVATE", match->privateFile, "The private key")->required()->option_text(" ");
    command->add_option("PUBLIC", match->publicFile, "The public key or a certificate")
        ->required()
        ->option_text(" ");
    match->password.add_to(*command, "password", "Password of an encrypted key");
    add_json_flag(*command, match->json);
    command->footer("Example:\n  zul key match private.pem server.pem");

    auto check = std::make_shared<CheckCommand>();
    command =
        add(*group, "check", "Check a key; of a private one whether it belongs to its public part", check);
    command->add_option("FILE", check->file, "The key; - for standard input")->required()->option_text(" ");
    check->password.add_to(*command, "password", "Password of an encrypted key");
    add_json_flag(*command, check->json);
    command->footer("Example:\n  zul key check private.pem");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
