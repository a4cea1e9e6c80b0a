#include "mail_message.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>

#include "letters.h"
#include "mime_text.h"
#include "streams.h"

namespace tool {

namespace {

constexpr const char* kMessage = "message";
constexpr const char* kText = "text";
constexpr const char* kAttachment = "attachment";

bool is_text(std::string_view content) {
    return is_utf8(content) && std::all_of(content.begin(), content.end(), [](char c) {
               return static_cast<unsigned char>(c) >= 0x20 || (c != '\0' && std::strchr("\t\r\n\f", c));
           });
}

bool is_ascii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::string kind_of(const MailSource& source, std::string_view content) {
    if (!source.as.empty())
        return source.as;
    if (lower_ascii(source.file).ends_with(".eml") || looks_like_message(content))
        return kMessage;
    return is_text(content) ? kText : kAttachment;
}

std::string base_name(const std::string& file) {
    const size_t slash = file.find_last_of("/\\");
    return slash == file.npos ? file : file.substr(slash + 1);
}

// append_file makes an entity of a file.
void append_file(SecretBytes& out, const std::string& file, const SecretBytes& content, bool isText,
                 LineForm form) {
    const std::string name = is_standard_stream(file) ? "" : base_name(file);
    const bool isNamed = !name.empty() && is_utf8(name);
    std::string head =
        isText ? "Content-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: 8bit\r\n\r\n"
               : "Content-Type: application/octet-stream" + (isNamed ? parameter("name", name) : "") +
                     "\r\nContent-Transfer-Encoding: binary\r\nContent-Disposition: attachment" +
                     (isNamed ? parameter("filename", name) : "") + "\r\n\r\n";
    MimeEntity entity(head, shown_name(file));
    entity.body = view_of(content);
    append_entity(out, entity, form, nullptr);
}

// with_address makes "NAME <ADDRESS>" or an address fit for a field.
std::string with_address(const std::string& text, size_t column) {
    const size_t angle = text.rfind('<');
    if (is_ascii_text(text) || angle == text.npos)
        return text;
    std::string_view phrase = without_blanks(std::string_view(text).substr(0, angle));
    if (phrase.size() > 1 && phrase.front() == '"' && phrase.back() == '"')
        phrase = phrase.substr(1, phrase.size() - 2);
    return header_text(phrase, column) + " " + text.substr(angle);
}

void check_value(const std::string& option, const std::string& value) {
    const bool isLine = std::none_of(
        value.begin(), value.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    if (!isLine)
        throw UsageError(option +
                         " takes one line; line ends and control characters would make other fields");
    if (!is_utf8(value))
        throw UsageError(option + " takes UTF-8");
}

void check_address(const std::string& option, const std::string& value) {
    check_value(option, value);
    try {
        if (mailboxes(value, option).size() == 1)
            return;
    } catch (const Refused&) { // said below
    }
    throw UsageError(option + " takes one address: alice@example.com, or 'Alice <alice@example.com>'");
}

} // namespace

void MailSource::add_to(CLI::App& command) {
    command.add_option("FILE", file, "A message (.eml), or any file; - for standard input")
        ->required()
        ->option_text(" ");
    command.add_option("--as", as, "What FILE is: message, text or attachment (found out unless given)")
        ->check(CLI::IsMember({kMessage, kText, kAttachment}))
        ->option_text("KIND");
}

void MailHeader::add_to(CLI::App& command) {
    command.add_option("--from", from_, "The field From; instead of that of a message")
        ->option_text("ADDRESS");
    command.add_option("--to", to_, "The field To, likewise; once for each")
        ->allow_extra_args(false)
        ->option_text("ADDRESS");
    command.add_option("--subject", subject_, "The field Subject, likewise")->option_text("TEXT");
}

void MailHeader::check() const {
    if (!from_.empty())
        check_address("--from", from_);
    for (const std::string& each : to_)
        check_address("--to", each);
    check_value("--subject", subject_);
}

SecretBytes MailHeader::fields(const std::vector<MimeField>& old) const {
    SecretBytes out;
    for (const MimeField& field : old) {
        const bool isReplaced = (field.name == "from" && !from_.empty()) ||
                                (field.name == "to" && !to_.empty()) ||
                                (field.name == "subject" && !subject_.empty());
        if (!isReplaced)
            append_canonical(out, field.raw);
        if (!isReplaced && !field.raw.ends_with('\n'))
            append(out, "\r\n");
    }
    const bool isDated =
        std::any_of(old.begin(), old.end(), [](const MimeField& field) { return field.name == "date"; });
    if (!from_.empty() && !isDated)
        append(out, "Date: " + date_now() + "\r\n");
    if (!from_.empty())
        append(out, "From: " + with_address(from_, 6) + "\r\n");
    for (size_t i = 0; i < to_.size(); ++i)
        append(out, (i == 0 ? "To: " : ",\r\n ") + with_address(to_[i], 4));
    if (!to_.empty())
        append(out, "\r\n");
    if (!subject_.empty())
        append(out, "Subject: " + header_text(subject_, 9) + "\r\n");
    return out;
}

bool is_content_field(const MimeField& field) {
    return field.name.starts_with("content-");
}

Mail::Mail(const MailSource& source, LineForm form)
    : name_(shown_name(source.file)), text_(Input(source.file).read_all()) {
    if (text_.empty())
        throw Refused::by_system(NO_DATA_ERROR, name_);
    const std::string kind = kind_of(source, view_of(text_));
    if (kind != kMessage) {
        append_file(inside_, source.file, text_, kind == kText, form);
        SecretBytes().swap(text_); // which may be large
        return;
    }
    const MimeEntity message(view_of(text_), name_);
    for (const MimeField& field : message.header.fields())
        if (!is_content_field(field) && field.name != "mime-version")
            outside_.push_back(field);
    if (!message.header.has("content-type")) // some readers demand it of a part
        append(inside_, std::string("Content-Type: text/plain; charset=") +
                            (is_ascii(message.body)  ? "us-ascii"
                             : is_utf8(message.body) ? "utf-8"
                                                     : "unknown-8bit") +
                            "\r\n");
    append_entity(inside_, message, form, is_content_field);
}

IncomingMail::IncomingMail(const std::string& file) : text_(Input(file).read_all()) {
    const std::string name = shown_name(file);
    if (text_.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    entity_.emplace(view_of(text_), name);
}

bool is_cms_entity(const MimeEntity& entity) {
    const MimeValue type = entity.type();
    if (type.word() == "application/pkcs7-mime" || type.word() == "application/x-pkcs7-mime")
        return true;
    return type.word() == "application/octet-stream" && lower_ascii(type.parameter("name")).ends_with(".p7m");
}

bool is_multipart_signed(const MimeEntity& entity) {
    return entity.type().word() == "multipart/signed";
}

std::string content_digest(const SecretBytes& content, const Digest& digest) {
    if (content.size() > kMaxLength)
        throw Refused::by_system(OUT_OF_RANGE_ERROR, "content", "This takes less than 2 GiB of data.");
    char hex[129] = "";
    accept_length(HASH_HexFromBytes(hex, sizeof hex - 1, content.data(), int_length(content), digest.option),
                  digest.name);
    return hex;
}

void append_cms_part(SecretBytes& out, const std::string& type, const std::string& file,
                     const ScratchFile& message) {
    append(out,
           "Content-Type: " + type + ";\r\n name=\"" + file +
               "\"\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment; filename=\"" +
               file + "\"\r\n\r\n");
    append_base64(out, view_of(Input(message.path()).read_all()));
}

SecretBytes body_of(const SecretBytes& entity, const std::string& name) {
    const MimeEntity content(view_of(entity), name);
    if (content.type().group() == "multipart")
        throw Refused::by_system(NOT_SUPPORTED_ERROR, name,
                                 "--body is for content of one part; this has several. Leave it out.");
    return content.decoded();
}

} // namespace tool
