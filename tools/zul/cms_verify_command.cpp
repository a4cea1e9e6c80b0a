#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "cms_signatures.h"
#include "file_digest.h"
#include "hex_text.h"
#include "json_output.h"
#include "streams.h"

namespace tool {

namespace {

struct CmsVerifyCommand {
    std::string file, contentFile, digestHex, out;
    SignatureOptions options;
    bool json = false;

    void run() const {
        if (!contentFile.empty() && !digestHex.empty())
            throw UsageError("--content and --content-digest exclude each other");
        if (json && is_standard_stream(out))
            throw UsageError("--json and -o - exclude each other: both write to standard output");
        JsonObject unused;
        if (json)
            report_verdict(true, [this](JsonObject& about) {
                verify(about);
                return "";
            });
        else
            verify(unused);
    }

    void verify(JsonObject& about) const {
        about.add_file("file", file);
        options.check({file, contentFile}, out);
        const Message message(file);
        std::optional<ContentFile> content; // a stream can be read only once
        if (!contentFile.empty())
            content.emplace(contentFile);
        const VerifiedMessage verified(message, options, [&](const Digest* algorithm) {
            if (!digestHex.empty()) {
                const SecretBytes line = hex_line(decode_hex(digestHex, "--content-digest"));
                return std::string(line.begin(), line.end() - 1);
            }
            return content && algorithm != nullptr ? file_digest(content->path(), *algorithm) : std::string();
        });
        const std::string report = verified.report();
        verified.report_to(about);
        if (!out.empty()) {
            Output output(out);
            output.write(verified.content());
            output.finish();
            about.add_file("content", out);
        }
        if (json)
            return;
        if (is_standard_stream(out))
            std::fputs(report.c_str(), stderr);
        else
            Output("-").write(report);
    }
};

} // namespace

void add_cms_verify_command(CLI::App& group) {
    auto verify = std::make_shared<CmsVerifyCommand>();
    CLI::App* command = group.add_subcommand("verify", "Check a message's signature, and who signed");
    command->add_option("MESSAGE", verify->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    verify->options.add_to(*command);
    command->add_option("--content", verify->contentFile, "The content that the message does not carry")
        ->option_text("FILE");
    command->add_option("--content-digest", verify->digestHex, "Its digest instead")->option_text("HEX");
    command
        ->add_option("-o,--out", verify->out,
                     "File for the content, once all is good; with - the report goes to standard error")
        ->option_text("FILE");
    add_json_flag(*command, verify->json);
    command->footer(
        "Without --trusted or --cert a good signature says only that somebody has signed: the certificate\n"
        "comes with the message, and anybody can make one in any name. The signing time is the signer's\n"
        "claim, so dates are checked for now, or for --time. --trusted, which takes bundles too, demands a\n"
        "valid path (as 'zul cert path' does) for a key that may sign messages.\n" +
        std::string(kRevocationHelp) +
        "Of a message with several signers all whose certificates are there must be good, of several\n"
        "signatures of one signer the first. Exit status 1 for a signature, or a path, that is not good.\n\n"
        "Example:\n  zul cms verify report.p7m --trusted root.pem -o report.pdf");
    command->callback([verify] { verify->run(); });
}

} // namespace tool
