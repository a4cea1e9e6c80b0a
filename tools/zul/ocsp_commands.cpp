#include <CLI/CLI.hpp>
#include <memory>

#include "armour.h"
#include "cms_message.h"
#include "commands.h"
#include "json_output.h"
#include "object_lists.h"
#include "ocsp_answer.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

struct OcspRequestCommand {
    std::string issuer, file, serial, digest = "sha1";
    bool json = false;
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
        if (!json || !is_standard_stream(output.out))
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

        if (!json || !is_standard_stream(output.out))
            write(text);
        if (json) {
            JsonObject object;
            object.add("digest", find_digest(digest).name).add_file("issuer", issuer);
            if (serial.empty())
                object.add_file("file", file);
            else
                object.add("serialNumber", serial_hex(serial, "--serial"));
            object.add("request", text);
            if (!is_standard_stream(output.out))
                object.add_file("output", output.out);
            print_json(object);
        }
    }

    void write(const std::string& text) const {
        Output out(output.out);
        if (output.base64)
            out.write(text + "\n");
        else
            out.write(decode_text(SecretBytes(text.begin(), text.end()), false, "request"));
        out.finish();
    }
};

struct OcspReadCommand {
    std::string file, issuer, certificate, time;
    bool json = false;

    void run() const {
        if (!certificate.empty() && issuer.empty())
            throw UsageError("--cert needs the --issuer of the certificate");
        refuse_shared_input(
            {is_standard_stream(file), is_standard_stream(issuer), is_standard_stream(certificate)});
        const std::string moment = time.empty() ? "" : date_text(time, "--time", "T00:00:00");
        JsonObject unused;
        if (json)
            report_verdict(true, [&](JsonObject& about) {
                read(about, moment);
                return "";
            });
        else
            read(unused, moment);
    }

    void read(JsonObject& about, const std::string& moment) const {
        about.add_file("file", file);
        const SecretBytes der = der_of(file);
        const ObjectArgument argument(file, der);
        const OcspResponse response(der, argument.name());
        if (!certificate.empty())
            return read_about(argument, response, read_certificate(certificate), moment, about);
        std::string end;
        if (!response.statuses().empty() && issuer.empty()) {
            end = "The signature was not checked: --issuer FILE does\n";
        } else if (!response.statuses().empty()) {
            const Certificate authority = read_certificate(issuer);
            const std::string signer = response.signer(authority, moment);
            end = styled(Style::good, "Good signature", stdout) + ", made with the key of " + signer + "\n";
            about.add("signer", signer);
            response.refuse_others_than(authority.argument);
        }
        print(argument, end, about);
        if (response.statuses().empty())
            throw Refused::by_system(NO_DATA_ERROR, argument.name(), "It tells no status.");
        for (const OcspStatus& each : response.statuses())
            accept(each, argument.name(), moment.empty() ? now_text(0) : moment);
    }

    void read_about(const ObjectArgument& argument, const OcspResponse& response, const Certificate& about,
                    const std::string& moment, JsonObject& object) const {
        const std::string conditions =
            "revocation=leaf;maxDepth=0;anchor=key" + (moment.empty() ? "" : ";time=" + moment);
        const Certificate authority = read_certificate(issuer); // its end would empty the error state
        const int code = CERT_CheckPath(nullptr, 0, about.argument.text(), nullptr, authority.argument.text(),
                                        argument.text(), conditions.c_str(), 0);
        const std::string reason = last_error();
        const bool isTold = code == 0 || code == BAD_KEY_ERROR;
        if (!isTold && response.has_known_algorithm())
            response.signer(authority, moment); // or refused: what a stranger says is not printed
        if (isTold || response.has_known_algorithm())
            print(argument,
                  code == 0 ? about.name() + ": " + styled(Style::good, "good", stdout) + ", says " +
                                  argument.name() + "\n"
                            : "",
                  object);
        if (code != 0)
            throw Refused::by_system(code, about.name(), reason);
    }

    void print(const ObjectArgument& response, const std::string& end, JsonObject& object) const {
        const std::string report = cert_report(response.text(), response.name(), json);
        if (json)
            object.join_text(report);
        else
            Output("-").write(report + end);
    }

    static void accept(const OcspStatus& status, const std::string& name, const std::string& moment) {
        const int code = status.refusal(moment);
        if (code == 0)
            return;
        const std::string is = code == EXPIRED_ERROR   ? " has no status for " + moment + "Z."
                               : code == BAD_KEY_ERROR ? " is revoked."
                                                       : " is unknown to the responder.";
        throw Refused::by_system(code, name, "The certificate with the number " + status.serial_hex() + is);
    }
};

} // namespace

void add_ocsp_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("ocsp", "Make OCSP requests and read the responses");
    group->require_subcommand(1);
    group->footer("Sending is left to other programs.\n\nExample:\n"
                  "  zul ocsp request --issuer ca.pem alice.pem -o alice.req\n"
                  "  curl -H \"Content-Type: application/ocsp-request\" --data-binary @alice.req \\\n"
                  "       http://ocsp.example.com/ -o alice.resp\n"
                  "  zul ocsp read alice.resp --issuer ca.pem --cert alice.pem");

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
    add_json_flag(*command, request->json);
    command->footer("Many responders know no other digest than sha1. The request is not signed.\n\n"
                    "Example:\n  zul ocsp request --issuer ca.pem alice.pem -o alice.req");
    command->callback([request] { request->run(); });

    auto read = std::make_shared<OcspReadCommand>();
    command = group->add_subcommand("read", "Print what a response says");
    command->add_option("RESPONSE", read->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    command
        ->add_option(
            "--issuer", read->issuer,
            "The certificate of the issuer, to check who signed: it, or a responder it has authorized")
        ->option_text("CA");
    command->add_option("--cert", read->certificate, "The certificate whose status is asked, needs --issuer")
        ->option_text("CERT");
    command->add_option("--time", read->time, "Check for this time instead of now")->option_text("DATE");
    add_json_flag(*command, read->json);
    command->footer(
        "Exit status:\n"
        "  0  good and up to date: with --cert that certificate, else all in the response\n"
        "  1  revoked, unknown, out of date (nextUpdate is over; without one: a day), no status, or with\n"
        "     --issuer: signed by somebody else, or about certificates of another issuer\n"
        "What is signed by somebody else is not printed. Without --issuer anybody may have made the "
        "response;\n"
        "without --cert the serial number tells whose status it is.\n\n"
        "Example:\n  zul ocsp read alice.resp --issuer ca.pem --cert alice.pem");
    command->callback([read] { read->run(); });
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
