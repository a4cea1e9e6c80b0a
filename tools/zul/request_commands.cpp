#include <CLI/CLI.hpp>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "streams.h"

namespace tool {

namespace {

struct MakeRequestCommand {
    std::string subject, out;
    bool utf8 = false, noAttributes = false;
    RsaKeyOption key;
    SigningOptions signing;

    void run() const {
        const Name name = read_name(subject);
        const int options = signing.algorithm() | (signing.der ? ZUL_X509_REQ_DER : 0) |
                            (utf8 || !name.isAscii ? ZUL_X509_UTF8 : 0) |
                            (noAttributes ? ZUL_X509_REQ_NOATTRS : 0);
        key.refuse_output("-", out);
        const RsaKey privateKey = signing_key(key, "");
        const ScratchFile made;
        accept_status(X509_CertRequest(made.path(), privateKey.text(), name.text.c_str(), nullptr,
                                       kNoPassword, options),
                      "request");
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
    command->add_option("-s,--subject", make->subject, "Needed: your name, as \"C=AU;O=Example;CN=Alice\"")
        ->required()
        ->option_text("NAME");
    make->signing.add_to(*command);
    command->add_flag("--utf8", make->utf8, "Write the name as UTF8String, as is done where it is not ASCII");
    command->add_flag("--no-attributes", make->noAttributes, "Leave out the empty attributes");
    command->footer("Example:\n  zul request make -k alice.key -s \"C=AU;O=Example;CN=Alice\" alice.req");
    command->callback([make] { make->run(); });

    add_show_command(*group, "a request", "zul request show alice.req");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
