#include "cms_message.h"

#include <CLI/CLI.hpp>
#include <system_error>

#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr size_t kMaxList = 10; // the longest list that the library reads

} // namespace

Message::Message(const std::string& file) : name_(shown_name(file)), copy_(!is_on_disk(file)) {
    Input message(file);
    Output copy(copy_.path(), true);
    size_ = copy_all(message, copy);
    if (size_ == 0)
        throw Refused::by_system(NO_DATA_ERROR, name_);
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

} // namespace tool
