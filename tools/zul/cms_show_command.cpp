#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_message.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kMostShown = 20; // certificates: each takes another look at the message

struct Kind {
    const char* title;
    Message::Query ask;
    std::vector<const char*> ofMessage;
    const char *each, *count; // what there may be several of, and how many: the first is shown
    std::vector<const char*> ofEach;
};

const Kind kSigned = {"signed message",
                      CMS_QuerySigData,
                      {"Version", "eContentType", "HASeContent", "CountOfCerts", "CountOfSigners"},
                      "signer",
                      "CountOfSigners",
                      {"signerInfoVersion", "digestAlgorithm", "signatureAlgorithm", "HASsignedAttrs",
                       "SigningTime", "messageDigest"}};

const Kind kEnveloped = {
    "enveloped message",
    CMS_QueryEnvData,
    {"Version", "CountOfRecipients", "contentEncryptionAlgorithm", "sizeofEncryptedContent"},
    "recipient",
    "CountOfRecipients",
    {"recipientInfoVersion", "recipientIssuerName", "recipientSerialNumber", "keyEncryptionAlgorithm",
     "keyEncryptionFlags", "sizeofEncryptedKey"}};

std::string row(const Message& message, const Kind& kind, const std::string& indent, const char* name) {
    constexpr int kNumber = 1;
    const bool isNumber = kind.ask(nullptr, 0, message.path(), name, ZUL_QUERY_GETTYPE) == kNumber;
    const std::string value =
        isNumber ? std::to_string(message.number(kind.ask, name)) : message.query(kind.ask, name);
    std::string line = indent + name + ":";
    if (!value.empty())
        line += std::string(line.size() < 30 ? 30 - line.size() : 1, ' ') + value;
    return line + "\n";
}

std::string certificates(const Message& message) {
    const int count = message.certificate_count();
    std::string text;
    for (int i = 1; i <= std::min(count, kMostShown); ++i) {
        const Certificate each = message.certificate(i);
        text += "certificate " + std::to_string(i) + "\n";
        if (each.number("version") < 0) {
            text += "  cannot be read\n";
            continue;
        }
        for (const char* name : {"subjectName", "issuerName", "serialNumber", "notAfter"}) {
            const std::string label = "  " + std::string(name) + ":";
            text += label + std::string(30 - label.size(), ' ') + query(each.argument, name) + "\n";
        }
    }
    return text;
}

// kind_of finds out what a message is; what the library says to the first attempt is for messages that are
// signed in their way.
const Kind& kind_of(const Message& message) {
    const int result = CMS_QuerySigData(nullptr, 0, message.path(), "Version", 0);
    if (result >= 0)
        return kSigned;
    const Refused asSigned = Refused::by_library(result, message.name());
    const bool isOther = last_error().find("Content Type") != std::string::npos;
    const int second = CMS_QueryEnvData(nullptr, 0, message.path(), "Version", 0);
    if (second >= 0)
        return kEnveloped;
    if (!isOther)
        throw asSigned;
    throw Refused::by_library(second, message.name(), "It is neither a signed nor an enveloped message.");
}

void show(const std::string& file) {
    const Message message(file);
    const Kind& kind = kind_of(message);
    std::string text = std::string(kind.title) + "\n";
    for (const char* name : kind.ofMessage)
        text += row(message, kind, "", name);
    const int count = message.number(kind.ask, kind.count);
    if (count > 0) {
        text += std::string(kind.each) + " 1" + (count > 1 ? " of " + std::to_string(count) : "") + "\n";
        for (const char* name : kind.ofEach)
            text += row(message, kind, "  ", name);
    }
    if (kind.ask == kSigned.ask)
        text += certificates(message);
    Output("-").write(text);
    if (count > kMostShown)
        warn("only the first " + std::to_string(kMostShown) + " are shown");
}

} // namespace

void add_cms_show_command(CLI::App& group) {
    auto file = std::make_shared<std::string>();
    CLI::App* command = group.add_subcommand("show", "Print what a message says of itself");
    command->add_option("MESSAGE", *file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    command->footer(
        "Nothing is checked: what is shown may be forged. Numbers 1 and 0 also mean yes and no.\n\n"
        "Example:\n  zul cms show report.p7m");
    command->callback([file] { show(*file); });
}

} // namespace tool
