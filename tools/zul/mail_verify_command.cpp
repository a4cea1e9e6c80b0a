#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_signatures.h"
#include "json_output.h"
#include "letters.h"
#include "mail_message.h"
#include "mime_text.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

constexpr const char* kPurpose = "email"; // unless another one is given

[[noreturn]] void refuse(const IncomingMail& mail, int code, const std::string& reason) {
    throw Refused::by_system(code, mail.name(), reason);
}

// SignedMail is a signed message taken apart, as nobody has verified it yet.
struct SignedMail {
    SecretBytes content, signature;
    bool isDetached = false, hasTextBehind = false;

    explicit SignedMail(const IncomingMail& mail) {
        const MimeEntity& entity = mail.entity();
        if (is_multipart_signed(entity)) {
            take_parts(mail);
        } else if (is_cms_entity(entity)) {
            const std::string type = lower_ascii(entity.type().parameter("smime-type"));
            if (type.find("enveloped") != type.npos)
                refuse(mail, BAD_FORMAT_ERROR, "It is encrypted: 'zul mail decrypt' comes first.");
            signature = entity.decoded();
        } else {
            refuse(mail, BAD_FORMAT_ERROR,
                   "It is not signed as a whole: its Content-Type is neither multipart/signed nor "
                   "application/pkcs7-mime.");
        }
    }

  private:
    void take_parts(const IncomingMail& mail) {
        constexpr std::string_view kProtocols[] = {"application/pkcs7-signature",
                                                   "application/x-pkcs7-signature"};
        const auto isKnown = [&](const std::string& type) {
            return std::find(std::begin(kProtocols), std::end(kProtocols), type) != std::end(kProtocols);
        };
        const std::string protocol = lower_ascii(mail.entity().type().parameter("protocol"));
        if (!protocol.empty() && !isKnown(protocol))
            refuse(mail, NOT_SUPPORTED_ERROR, "It is signed in another way than S/MIME.");
        const Multipart parts(mail.entity(), true);
        if (parts.parts.size() != 2)
            refuse(mail, BAD_FORMAT_ERROR,
                   "A signed message has two parts, content and signature; here are " +
                       std::to_string(parts.parts.size()) + ".");
        const MimeEntity second(parts.parts[1], mail.name());
        if (!isKnown(second.type().word()))
            refuse(mail, BAD_FORMAT_ERROR,
                   "Its second part is not a signature (application/pkcs7-signature).");
        append_canonical(content, parts.parts[0]);
        signature = second.decoded();
        isDetached = true;
        hasTextBehind = parts.after.find_first_not_of(" \t\r\n") != parts.after.npos;
    }
};

struct MailVerifyCommand {
    std::string file, out;
    bool fromAny = false, subjectName = false, body = false, json = false;
    SignatureOptions options;

    // claims_sender is true for a malformed header in which some readers may find a field From.
    static bool claims_sender(std::string_view content) {
        while (!content.empty()) {
            const std::string line = lower_ascii(without_line_end(next_line(content)));
            if (line.empty())
                return false;
            for (size_t at = line.find("from"); at != line.npos; at = line.find("from", at + 1))
                if (at == 0 || line[at - 1] == '\r') {
                    const size_t behind = line.find_first_not_of(" \t", at + 4);
                    if (behind != line.npos && line[behind] == ':')
                        return true;
                }
        }
        return false;
    }

    // addresses gives those of From, outside and in what was signed.
    static std::vector<std::string> addresses(const IncomingMail& mail, const SecretBytes& content) {
        std::vector<std::string> all;
        const auto add = [&](const MimeHeader& header) {
            if (!header.has("from"))
                return;
            for (std::string& each : mailboxes(header.value("from"), mail.name()))
                if (std::find(all.begin(), all.end(), each) == all.end())
                    all.push_back(std::move(each));
        };
        add(mail.entity().header);
        if (looks_like_message(view_of(content)))
            add(MimeEntity(view_of(content), mail.name()).header);
        else if (claims_sender(view_of(content)))
            refuse(mail, BAD_FORMAT_ERROR, "What was signed has a field From in a malformed header.");
        if (all.empty())
            refuse(mail, NO_DATA_ERROR,
                   "The signature is good, but there is no field From to compare with the certificate; "
                   "--from-any does without.");
        return all;
    }

    // compare demands for each address a signer with that address; it gives the addresses.
    std::vector<std::string> compare(const IncomingMail& mail, const SecretBytes& content,
                                     const std::vector<Certificate>& signers) const {
        std::vector<std::string> all = addresses(mail, content);
        for (const std::string& address : all) {
            const int choice = subjectName ? ZUL_CERT_SUBJECT_NAME : 0;
            const auto isFor = [&](const Certificate& each) {
                return CERT_CheckName(each.argument.text(), address.c_str(), choice) == 0;
            };
            if (std::none_of(signers.begin(), signers.end(), isFor))
                refuse(
                    mail, NO_MATCH_ERROR,
                    "The signature is good, but the signer's certificate is not for the address of From, " +
                        printable(address) + ".");
        }
        return all;
    }

    // printable escapes what could steer a terminal.
    static std::string printable(const std::string& address) {
        std::string text;
        for (size_t i = 0; i < address.size(); ++i) {
            const bool isControl = address[i] == '\xC2' && i + 1 < address.size() &&
                                   static_cast<unsigned char>(address[i + 1]) < 0xA0;
            text += isControl ? '?' : address[i];
        }
        return is_utf8(text) ? text : readable(text);
    }

    static bool is_protected(const SecretBytes& content, const std::string& name) {
        if (!looks_like_message(view_of(content)))
            return false;
        const MimeEntity inner(view_of(content), name);
        return is_multipart_signed(inner) || is_cms_entity(inner);
    }

    void run() const {
        if (body && out.empty())
            throw UsageError("--body goes with --out");
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
        options.check({file}, out);
        SignatureOptions demands = options;
        if (demands.isValidated() && demands.path.purpose.empty())
            demands.path.purpose = kPurpose;
        const IncomingMail mail(file);
        const SignedMail parts(mail);
        const Message message(mail.name(), parts.signature);
        if (!parts.isDetached && CMS_QuerySigData(nullptr, 0, message.path(), "HASeContent", 0) == 0)
            refuse(mail, NO_DATA_ERROR, "The message holds a signature alone, without content.");
        const VerifiedMessage verified(message, demands, [&](const Digest* algorithm) {
            return parts.isDetached && algorithm != nullptr ? content_digest(parts.content, *algorithm)
                                                            : std::string();
        });
        const SecretBytes opened = parts.isDetached ? SecretBytes() : verified.content();
        const SecretBytes& content = parts.isDetached ? parts.content : opened;
        std::string report = verified.report();
        verified.report_to(about);
        about.add("isDetached", parts.isDetached).add("isFromCompared", !fromAny);
        if (fromAny) {
            report += "  from        " + styled_anywhere(Style::warning, "NOT COMPARED") +
                      " with the certificate (--from-any): anybody can have sent it\n";
        } else {
            JsonArray list;
            std::string names;
            for (const std::string& address : compare(mail, content, verified.signers())) {
                list.add(address);
                names += (names.empty() ? "" : ", ") + printable(address);
            }
            about.add("from", list);
            report += "  from        " + names + ", as the signer's certificate says\n";
        }
        const bool isProtected = is_protected(content, mail.name());
        about.add("isContentProtected", isProtected);
        if (isProtected)
            report += "  content     is itself signed or encrypted, which was not looked at\n";
        if (parts.hasTextBehind)
            warn("text behind the signed parts is not signed");
        if (!out.empty()) {
            write_file(out, body ? body_of(content, mail.name()) : content);
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

void add_mail_verify_command(CLI::App& group) {
    auto verify = std::make_shared<MailVerifyCommand>();
    CLI::App* command = group.add_subcommand("verify", "Check a message's signature, and who signed");
    command->add_option("MESSAGE", verify->file, "The message; - for standard input")
        ->required()
        ->option_text(" ");
    verify->options.add_to(*command, kPurpose);
    command->add_flag("--from-any", verify->fromAny, "Do not compare From with the signer's certificate");
    command->add_flag("--subject-name", verify->subjectName,
                      "An address in the subject counts too, where subjectAltName has none");
    command
        ->add_option("-o,--out", verify->out,
                     "File for the content, once all is good; with - the report goes to standard error")
        ->option_text("FILE");
    command->add_flag("--body", verify->body, "Write the decoded body alone, of content of one part");
    add_json_flag(*command, verify->json);
    command->footer(
        "The signature is of the content alone: Subject, To, Date and all other fields outside may be "
        "forged,\n"
        "but for From, whose address the signer's certificate has to have (rfc822Name). --out gives what "
        "was\n"
        "signed. Without --trusted or --cert a good signature says only that somebody has signed: the\n"
        "certificate comes with the message, and anybody can make one in any name. --trusted demands a "
        "valid\n"
        "path (as 'zul cert path' does), for --purpose email unless another one is given. The signing time "
        "is\n"
        "the signer's claim, so dates are checked for now, or for --time.\n" +
        std::string(kRevocationHelp) +
        "Exit status 1 for a signature, a path or a sender that is not good.\n\n"
        "Example:\n  zul mail verify signed.eml --trusted root.pem -o content.eml");
    command->callback([verify] { verify->run(); });
}

} // namespace tool
