#include "cms_message.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <system_error>
#include <utility>

#include "activity.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr size_t kMaxList = 10; // the longest list that the library reads

// The library leaves out a recipient whose key cannot be used. The tool refuses then: all recipients or
// none.
[[noreturn]] void refuse_unserved(const std::vector<Certificate>& certificates, int choice) {
    std::string names, reason;
    for (const Certificate& each : certificates) {
        const ScratchFile trial;
        if (CMS_MakeEnvDataFromString(trial.path(), "trial", each.argument.text(), nullptr, 0, choice) == 1)
            continue;
        reason = last_error();
        names += (names.empty() ? "" : ", ") + each.name();
    }
    throw Refused::by_system(NOT_SUPPORTED_ERROR, names.empty() ? "recipients" : names,
                             "The message's key cannot be encrypted for this certificate" +
                                 (reason.empty() ? "." : ": " + reason) + "\n     Nothing was written.");
}

} // namespace

Message::Message(const std::string& file) : name_(shown_name(file)), copy_(!is_on_disk(file)) {
    Input message(file);
    Output copy(copy_.path(), true);
    size_ = copy_all(message, copy);
    if (size_ == 0)
        throw Refused::by_system(NO_DATA_ERROR, name_);
}

Message::Message(const std::string& name, const SecretBytes& content)
    : name_(name), copy_(true), size_(content.size()) {
    if (size_ == 0)
        throw Refused::by_system(NO_DATA_ERROR, name_);
    write_file(copy_.path(), content, true);
}

int Message::number(Query ask, const std::string& name) const {
    return accept_length(ask(nullptr, 0, path(), name.c_str(), 0), name_);
}

std::string Message::query(Query ask, const std::string& name) const {
    const int room = accept_length(ask(nullptr, 0, path(), name.c_str(), ZUL_X509_LATIN1), name_);
    std::string value(static_cast<size_t>(room), '\0'); // its own NUL is the room for the terminator
    if (room > 0)
        accept_length(ask(value.data(), room, path(), name.c_str(), ZUL_X509_LATIN1), name_);
    return readable(value);
}

std::string Message::query_time(Query ask, const std::string& name) const {
    std::string text = query(ask, name);
    if (const size_t blank = text.find(' '); blank != text.npos)
        text[blank] = 'T';
    return text.empty() || text.ends_with('Z') ? text : text + "Z";
}

int Message::certificate_count() const {
    return accept_length(X509_GetCertFromP7Chain(nullptr, path(), 0, 0), name());
}

Certificate Message::certificate(int number) const {
    const std::string label = "certificate " + std::to_string(number) + " of " + name();
    const ScratchFile made;
    if (accept_length(X509_GetCertFromP7Chain(made.path(), path(), number, 0), label) == 0)
        throw Refused::by_system(NO_DATA_ERROR, label,
                                 "The message carries " + std::to_string(certificate_count()) +
                                     " certificates.");
    return Certificate(label, Input(made.path()).read_all());
}

ContentFile::ContentFile(const std::string& file) : name_(shown_name(file)), path_(file) {
    Input content(file); // or refused under its own name, which the library does not tell
    if (is_on_disk(file))
        return;
    path_ = scratch_.emplace(true).path();
    Output copy(path_, true);
    copy_all(content, copy);
}

ContentFile::ContentFile(const std::string& name, const SecretBytes& content) : name_(name) {
    path_ = scratch_.emplace(true).path();
    write_file(path_, content, true);
}

void MessageOutput::add_to(CLI::App& command) {
    command.add_option("-o,--out", out, "Output file (standard output)")->option_text("FILE");
    command.add_flag("--base64", base64, "Write base64 text instead of DER");
}

void MessageOutput::check(const std::vector<std::string>& inputs) const {
    if (is_standard_stream(out) && !base64 && output_is_terminal())
        throw UsageError("DER would upset the terminal; name a file with -o FILE, or use --base64");
    for (const std::string& input : inputs)
        refuse_same_file(input, out, "The output would replace the input.");
}

void check_list(size_t count) {
    if (count > kMaxList)
        throw UsageError("a message takes at most 10 certificates; here are " + std::to_string(count));
}

void warn_of_use(const Certificate& certificate, int uses, const std::string& usesInWords) {
    const int usage = certificate.number("keyUsageFlags");
    if (usage > 0 && (usage & uses) == 0)
        warn(certificate.name() + " does not say that its key is for " + usesInWords +
             ": others may refuse the message");
    if (X509_CertIsValidNow(certificate.argument.text(), 0) == -1)
        warn(certificate.name() + " has expired or is not valid yet");
}

MessageSigner::MessageSigner(const RsaKeyOption& keyOption, const std::string& in, const std::string& signer,
                             const std::vector<std::string>& others)
    : key(signing_key(keyOption, in), keyOption.file()), certificates{read_certificate(signer)} {
    const Certificate first = certificates.front();
    const RsaKey certified = RsaKey::read_certificate(first.argument.text(), first.name());
    accept_status(RSA_KeyMatch(key.text(), certified.text()), first.name(),
                  "The private key is not that of the signer's certificate.");
    warn_of_use(first, ZUL_KEYUSAGE_DIGITALSIGNATURE | ZUL_KEYUSAGE_NONREPUDIATION, "signing messages");
    std::vector<Certificate> further;
    for (const std::string& other : others)
        add_certificates(further, other);
    for (Certificate& each : further) // a chain may begin with the signer's
        if (std::find(certificates.begin(), certificates.end(), each) == certificates.end())
            certificates.push_back(std::move(each));
    check_list(certificates.size());
}

std::vector<Certificate> read_recipients(const std::vector<std::string>& files) {
    check_list(files.size());
    std::vector<Certificate> recipients;
    for (const std::string& file : files) {
        Certificate certificate = read_certificate(file);
        RsaKey::read_certificate(certificate.argument.text(), certificate.name());
        warn_of_use(certificate, ZUL_KEYUSAGE_KEYENCIPHERMENT, "encrypting keys (keyEncipherment)");
        recipients.push_back(std::move(certificate));
    }
    return recipients;
}

void encrypt_message(const ScratchFile& made, const ContentFile& content,
                     const std::vector<Certificate>& recipients, int choice) {
    const Activity activity("encrypting");
    const int served = CMS_MakeEnvData(made.path(), content.path(), certificate_list(recipients).c_str(),
                                       nullptr, 0, choice);
    accept_length(served, content.name(),
                  served == -MSG_TOO_LONG_ERROR ? "'zul encrypt' takes files of any size." : "");
    if (served != static_cast<int>(recipients.size()))
        refuse_unserved(recipients, choice);
}

SecretBytes decrypt_message(const Message& message, const std::string& recipient, const RsaKey& key) {
    std::vector<Certificate> certificate; // one or none
    if (!recipient.empty())
        certificate.push_back(read_certificate(recipient));
    SecretBytes content(message.size() + 1);
    const char* who = certificate.empty() ? nullptr : certificate.front().argument.text();
    const Activity activity("decrypting");
    const int length = CMS_ReadEnvDataToString(reinterpret_cast<char*>(content.data()),
                                               int_length(content) - 1, message.path(), who, key.text(), 0);
    accept_length(length, message.name(),
                  length == -DECRYPT_ERROR ? "The key is not that of a recipient, or the message was damaged."
                  : length == -INVALID_DATA_ERROR ? "Is it an encrypted message? 'zul cms show' tells."
                                                  : "");
    content.resize(static_cast<size_t>(length));
    return content;
}

} // namespace tool
