#include <CLI/CLI.hpp>
#include <memory>

#include "armour.h"
#include "cms_message.h"
#include "commands.h"
#include "streams.h"

namespace tool {

namespace {

struct OcspRequestCommand {
    std::string issuer, file, serial, digest = "sha1";
    MessageOutput output;

    // The library takes the number as the INTEGER's content, so a first bit of 1 needs a sign octet before
    // it.
    static std::string serial_argument(const std::string& text) {
        const std::string hex = serial_hex(text, "--serial");
        return (hex[0] >= '8' ? "#x00" : "#x") + hex;
    }

    void run() const {
        if (file.empty() == serial.empty())
            throw UsageError("whose status is asked? give a certificate CERT or --serial N");
        const std::string number = serial.empty() ? "" : serial_argument(serial);
        const int options = find_digest(digest).option;
        refuse_shared_input({is_standard_stream(issuer), is_standard_stream(file)});
        output.check(serial.empty() ? std::vector{issuer, file} : std::vector{issuer});
        const ObjectArgument signer = certificate_object(issuer);
        const ObjectArgument certificate = serial.empty() ? certificate_object(file) : signer;
        const char* asked = serial.empty() ? certificate.text() : number.c_str();
        const auto make = [&](char* out, int room) {
            const int result = OCSP_MakeRequest(out, room, signer.text(), asked, nullptr, options);
            return accept_length(result, serial.empty() ? certificate.name() : signer.name());
        };
        std::string text(static_cast<size_t>(make(nullptr, 0)), '\0');
        make(text.data(), static_cast<int>(text.size()));

        Output out(output.out);
        if (output.base64)
            out.write(text + "\n");
        else
            out.write(decode_text(SecretBytes(text.begin(), text.end()), false, "request"));
        out.finish();
    }
};

struct OcspReadCommand {
    std::string file, issuer;

    void run() const {
        refuse_shared_input({is_standard_stream(file), is_standard_stream(issuer)});
        const ObjectArgument response(file);
        const bool isChecked = !issuer.empty();
        const ObjectArgument signer = isChecked ? certificate_object(issuer) : response;
        char report[kLongestReport + 1];
        const int result = OCSP_ReadResponse(report, kLongestReport, response.text(),
                                             isChecked ? signer.text() : nullptr, nullptr, 0);
        accept_length(result, response.name(),
                      result == -SIGNATURE_ERROR
                          ? "It was not signed with the key of " + signer.name() +
                                ", or it was changed. A responder may have a key of its own."
                          : "");
        std::string text(report);
        if (text.size() == kLongestReport)
            warn(response.name() + " says more than fits into a report");
        const bool isSigned = text.find('\n') != text.npos;
        text += '\n';
        if (isSigned && isChecked)
            text += "Good signature, made with the key of " + signer.name() + "\n";
        else if (isSigned)
            text += "The signature was not checked: --issuer FILE does\n";
        Output("-").write(text);
    }

    static constexpr int kLongestReport = 1023;
};

} // namespace

void add_ocsp_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("ocsp", "Make OCSP requests and read the responses");
    group->require_subcommand(1);
    group->footer("Sending is left to other programs.\n\nExample:\n"
                  "  zul ocsp request --issuer ca.pem alice.pem -o alice.req\n"
                  "  curl -H \"Content-Type: application/ocsp-request\" --data-binary @alice.req \\\n"
                  "       http://ocsp.example.com/ -o alice.resp\n"
                  "  zul ocsp read alice.resp --issuer ca.pem");

    auto request = std::make_shared<OcspRequestCommand>();
    CLI::App* command = group->add_subcommand("request", "Ask for the status of a certificate");
    command->add_option("CERT", request->file, "The certificate; - for standard input")->option_text(" ");
    command->add_option("--issuer", request->issuer, "Needed: its issuer's certificate")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--serial", request->serial,
                     "Its serial number, decimal or hex after 0x, in place of CERT")
        ->option_text("N");
    command->add_option("-d,--digest", request->digest, "Digest that names the issuer (sha1)")
        ->option_text("DIGEST");
    request->output.add_to(*command);
    command->footer("Many responders know no other digest than sha1. The request is not signed.\n\n"
                    "Example:\n  zul ocsp request --issuer ca.pem alice.pem -o alice.req");
    command->callback([request] { request->run(); });

    auto read = std::make_shared<OcspReadCommand>();
    command = group->add_subcommand("read", "Print what a response says");
    command->add_option("RESPONSE", read->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    command
        ->add_option("--issuer", read->issuer,
                     "The certificate of who signed the response, to check the signature")
        ->option_text("FILE");
    command->footer(
        "A responder may have a certificate of its own: check it first ('zul cert path'). The serial\n"
        "number tells whose status it is, \"Produced at\" how old. Exit status 0 whatever the status is, 1\n"
        "if there is none to be read or the signature is not good.\n\n"
        "Example:\n  zul ocsp read alice.resp --issuer ca.pem");
    command->callback([read] { read->run(); });
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
