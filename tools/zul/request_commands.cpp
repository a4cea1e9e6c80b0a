#include <CLI/CLI.hpp>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "description_options.h"
#include "streams.h"

namespace tool {

namespace {

struct MakeRequestCommand {
    std::string subject, profile, usage, out;
    bool utf8 = false, noAttributes = false;
    DescriptionOptions described;
    KeyFileOption key;
    SigningOptions signing;

    Description description() const {
        Description text;
        if (!subject.empty())
            text.pair("subject", read_name(subject, NameForm::any).text);
        if (!profile.empty())
            text.pair("profile", profile);
        if (!usage.empty() && key_usage(usage) != 0)
            text.text("keyUsage=" + usage);
        described.put(text);
        return text;
    }

    void make_old(const ScratchFile& made, const RsaKey& privateKey) const {
        const Name name = read_name(subject, NameForm::old);
        const int options = signing.algorithm() | (signing.der ? ZUL_X509_REQ_DER : 0) |
                            (utf8 || !name.isAscii ? ZUL_X509_UTF8 : 0) |
                            (noAttributes ? ZUL_X509_REQ_NOATTRS : 0);
        accept_status(X509_CertRequest(made.path(), privateKey.text(), name.text.c_str(), nullptr,
                                       kNoPassword, options),
                      "request");
    }

    void run() const {
        if (subject.empty() && !described.has_names() && described.describe.empty())
            throw UsageError("--subject is required, or a name such as --dns");
        if (noAttributes && (subject.empty() || described.has_names() || !described.describe.empty() ||
                             !usage.empty() || !profile.empty()))
            throw UsageError("a request without attributes has a --subject alone");
        Description text = description();
        key.refuse_output("-", out);
        const Key privateKey = signing_key(key, "");
        const ScratchFile made;
        if (noAttributes) {
            make_old(made, {privateKey, key.file()});
        } else {
            signing.put(text, privateKey);
            accept_status(
                CERT_Request(made.path(), privateKey.text(), text.c_str(), signing.der ? ZUL_CERT_DER : 0),
                "request");
        }
        made.deliver(out);
    }
};

} // namespace

void add_request_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("request", "Make and show certification requests (PKCS #10)");
    group->require_subcommand(1);
    group->footer("Example:\n  zul request make -k alice.key -s \"C=AU;CN=Alice\" alice.req");

    auto make = std::make_shared<MakeRequestCommand>();
    CLI::App* command = group->add_subcommand("make", "Ask an authority for a certificate");
    command->add_option("OUT", make->out, "Output file; - for standard output")->required()->option_text(" ");
    make->key.add_to(*command, "your private key");
    command->add_option("-s,--subject", make->subject, "Your name, as \"C=AU;O=Example;CN=Alice\"")
        ->option_text("NAME");
    make->described.add_to(*command);
    command
        ->add_option("--profile", make->profile,
                     "Ask for the key usages of server, client, email, code, ca, ocsp or timestamp")
        ->option_text("PROFILE");
    command->add_option("--usage", make->usage, "Ask for these usages of the key: names joined by commas")
        ->option_text("USAGE");
    make->signing.add_to(*command);
    command->add_flag("--no-attributes", make->noAttributes, "Leave out the empty attributes (RSA keys)");
    command->add_flag("--utf8", make->utf8,
                      "With --no-attributes: the name as UTF8String, as others have it");
    command->footer(
        "The authority decides which of the names and usages it takes over.\n\nExample:\n"
        "  zul request make -k alice.key -s \"C=AU;O=Example;CN=Alice\" --email alice@example.com alice.req");
    command->callback([make] { make->run(); });

    add_show_command(*group, "a request", "zul request show alice.req");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
