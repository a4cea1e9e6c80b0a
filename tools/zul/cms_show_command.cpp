#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_message.h"
#include "json_output.h"
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

// field_name is what JSON calls a row: "HASeContent" is "hasEContent", "CountOfCerts" is "countOfCerts".
std::string field_name(std::string name) {
    if (name.starts_with("HAS"))
        return "has" + std::string(1, static_cast<char>(name[3] & ~0x20)) + name.substr(4);
    name[0] = static_cast<char>(name[0] | 0x20);
    return name;
}

std::string row(const Message& message, const Kind& kind, const std::string& indent, const char* name,
                JsonObject& object) {
    constexpr int kNumber = 1;
    const bool isNumber = kind.ask(nullptr, 0, message.path(), name, ZUL_QUERY_GETTYPE) == kNumber;
    std::string value;
    if (isNumber) {
        const int number = message.number(kind.ask, name);
        value = std::to_string(number);
        object.add(field_name(name), number);
    } else {
        value = message.query(kind.ask, name);
        if (!value.empty())
            object.add(field_name(name),
                       std::string_view(name) == "SigningTime" ? message.query_time(kind.ask, name) : value);
    }
    std::string line = indent + name + ":";
    if (!value.empty())
        line += std::string(line.size() < 30 ? 30 - line.size() : 1, ' ') + value;
    return line + "\n";
}

std::string certificates(const Message& message, JsonArray& list) {
    const int count = message.certificate_count();
    std::string text;
    for (int i = 1; i <= std::min(count, kMostShown); ++i) {
        const Certificate each = message.certificate(i);
        text += "certificate " + std::to_string(i) + "\n";
        JsonObject object;
        if (each.number("version") < 0) {
            text += "  cannot be read\n";
            list.add(object.add("isReadable", false));
            continue;
        }
        object.add("isReadable", true);
        for (const char* name : {"subjectName", "issuerName", "serialNumber", "notAfter"}) {
            const std::string label = "  " + std::string(name) + ":", value = query(each.argument, name);
            text.append(label).append(30 - label.size(), ' ').append(value).append("\n");
            object.add(name, value);
        }
        list.add(object);
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
        throw Refused(asSigned);
    throw Refused::by_library(second, message.name(), "It is neither a signed nor an enveloped message.");
}

void show(const std::string& file, bool json) {
    const Message message(file);
    const Kind& kind = kind_of(message);
    JsonObject object;
    object.add_file("file", file).add("kind", kind.title);
    std::string text = std::string(kind.title) + "\n";
    for (const char* name : kind.ofMessage)
        text += row(message, kind, "", name, object);
    const int count = message.number(kind.ask, kind.count);
    if (count > 0) {
        text += std::string(kind.each) + " 1" + (count > 1 ? " of " + std::to_string(count) : "") + "\n";
        JsonObject first;
        for (const char* name : kind.ofEach)
            text += row(message, kind, "  ", name, first);
        object.add(kind.each, first);
    }
    if (kind.ask == kSigned.ask) {
        JsonArray list;
        text += certificates(message, list);
        object.add("certificates", list);
    }
    if (kind.ask == kSigned.ask && message.certificate_count() > kMostShown)
        warn("only the first " + std::to_string(kMostShown) + " certificates are shown");
    print_report(json, object, text);
}

} // namespace

void add_cms_show_command(CLI::App& group) {
    auto file = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App* command = group.add_subcommand("show", "Print what a message says of itself");
    command->add_option("MESSAGE", *file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    add_json_flag(*command, *json);
    command->footer(
        "Nothing is checked: what is shown may be forged. Numbers 1 and 0 also mean yes and no.\n\n"
        "Example:\n  zul cms show report.p7m");
    command->callback([file, json] { show(*file, *json); });
}

} // namespace tool
