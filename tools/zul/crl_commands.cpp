#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "der.h"
#include "description_options.h"
#include "json_output.h"
#include "letters.h"
#include "object_signature.h"
#include "operating_system.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

constexpr const char *kBegin = "T00:00:00", *kEnd = "T23:59:59"; // of a day

constexpr const char* kReasons[] = {
    "unspecified",          "keyCompromise",   "cACompromise",  "affiliationChanged", "superseded",
    "cessationOfOperation", "certificateHold", "removeFromCRL", "privilegeWithdrawn", "aACompromise"};

struct MakeCrlCommand {
    std::string issuer, issued, next, earlier, describe, out;
    std::vector<std::string> revoked;
    int days = 0;
    bool delta = false;
    KeyFileOption key;
    SigningOptions signing;

    // entry reads SERIAL[,DATE][,REASON].
    static std::string entry(const std::string& text) {
        const size_t comma = std::min(text.find(','), text.size());
        std::string result = "serial=" + serial_hex(text.substr(0, comma), "--revoke");
        for (size_t at = comma; at < text.size();) {
            const size_t end = std::min(text.find(',', at + 1), text.size());
            const std::string word = text.substr(at + 1, end - at - 1);
            const auto* reason =
                std::find_if(std::begin(kReasons), std::end(kReasons),
                             [&word](const char* each) { return lower_ascii(each) == lower_ascii(word); });
            result += reason != std::end(kReasons)
                          ? std::string(",reason=") + *reason
                          : ",date=" + date_text(word, "--revoke SERIAL,DATE,REASON", kBegin);
            at = end;
        }
        return result;
    }

    std::string entries() const {
        std::string list;
        for (const std::string& each : revoked)
            list += (list.empty() ? "" : ";") + entry(each);
        return list;
    }

    Description description() const {
        Description text;
        const std::string begin = issued.empty() ? now_text(0) : date_text(issued, "--issued", kBegin);
        if (!issued.empty())
            text.pair("thisUpdate", begin);
        if (!next.empty()) {
            const std::string end = date_text(next, "--next", kBegin);
            if (begin > end)
                throw UsageError("--next lies before the list's own date");
            text.pair("nextUpdate", end);
        }
        if (days > 0)
            text.pair("days", std::to_string(days));
        if (delta)
            text.flag("delta");
        text.text(describe);
        return text;
    }

    void run() const {
        if (!next.empty() && days > 0)
            throw UsageError("--next and --days exclude each other");
        refuse_shared_input({is_standard_stream(issuer), is_standard_stream(earlier)});
        const std::string list = entries();
        Description text = description();
        key.refuse_output(issuer, out);
        const Key privateKey = signing_key(key, is_standard_stream(earlier) ? earlier : issuer);
        signing.put(text, privateKey);
        const ObjectArgument certificate = certificate_object(issuer);
        const std::unique_ptr<ObjectArgument> before =
            earlier.empty() ? nullptr : std::make_unique<ObjectArgument>(earlier);
        const ScratchFile made;
        accept_status(CERT_IssueCRL(made.path(), certificate.text(), privateKey.text(),
                                    before ? before->text() : nullptr, list.c_str(), text.c_str(),
                                    signing.der ? ZUL_CERT_DER : 0),
                      "revocation list");
        made.deliver(out);
    }
};

// time_of reads a UTCTime or GeneralizedTime (X.690, 11.7 and 11.8): "2026-01-31T12:30:00", empty for what is
// neither.
std::string time_of(const DerElement& element) {
    constexpr unsigned char kUtcTime = 0x17;
    std::string digits(reinterpret_cast<const char*>(element.header + element.headerSize), element.length);
    if (element.header[0] == kUtcTime && !digits.empty())
        digits.insert(0, digits[0] >= '5' ? "19" : "20");
    if (digits.size() == 13 && digits.ends_with('Z'))
        digits.insert(12, "00");
    if (digits.size() < 15 || !digits.ends_with('Z') || digits.find_first_not_of("0123456789") < 14)
        return {};
    const auto part = [&digits](size_t at) { return digits.substr(at, 2); };
    return digits.substr(0, 4) + "-" + part(4) + "-" + part(6) + "T" + part(8) + ":" + part(10) + ":" +
           part(12);
}

// ListDates are a list's thisUpdate and nextUpdate (RFC 5280, 5.1.2), empty if they are not there.
struct ListDates {
    std::string made, next;

    // head: the list, or the beginning of it.
    ListDates(const SecretBytes& head, const std::string& name) {
        const SecretBytes elements = without_outer_lengths(head);
        unsigned position = 0;
        DerElement element;
        try {
            for (DerWalk walk(elements, name); walk.next(element);) {
                if (element.level != 2)
                    continue;
                const bool isTime = element.header[0] == 0x17 || element.header[0] == 0x18;
                if (isTime && position == 0)
                    made = time_of(element);
                else if (isTime)
                    next = time_of(element);
                position += isTime ? 1 : 0;
                if (position == 2 || (position == 1 && !isTime))
                    break;
            }
        } catch (const Refused&) { // where the beginning ends; a damaged list the library refuses
        }
    }

  private:
    static SecretBytes without_outer_lengths(const SecretBytes& head) {
        size_t at = 0;
        for (int outer = 0; outer < 2; ++outer) {
            if (at + 2 > head.size() || head[at] != kSequence)
                return {};
            at += 2 + (head[at + 1] > 0x80 ? head[at + 1] - size_t{0x80} : size_t{0});
        }
        if (at > head.size())
            return {};
        SecretBytes result = {kSequence, 0x80, kSequence, 0x80};
        result.insert(result.end(), head.begin() + static_cast<std::ptrdiff_t>(at), head.end());
        return result;
    }

    static constexpr unsigned char kSequence = 0x30;
};

// list_head gives the first part of a list in a file, which may be large.
SecretBytes list_head(const std::string& file) {
    SecretBytes head(kChunk);
    Input input(file);
    head.resize(input.read(head.data(), head.size()));
    return !head.empty() && head[0] == 0x30 ? head : der_of(file);
}

struct CheckCrlCommand {
    std::string file, crl, issuer, date;
    bool json = false;

    // An old list does not know the latest revocations.
    static std::string age(const ListDates& dates, const std::string& moment, const std::string& name) {
        if (dates.made.empty()) {
            warn(name + ": when the list was made cannot be read");
            return " of unknown date";
        }
        if (dates.next.empty())
            warn(name + " does not say when the next list comes: this one may be old");
        else if (moment > dates.next)
            warn(name + " is out of date: the next list was due at " + dates.next + "Z");
        return " of " + dates.made + "Z";
    }

    void run() const {
        refuse_shared_input({is_standard_stream(file), is_standard_stream(crl), is_standard_stream(issuer)});
        bool isRevoked = false;
        JsonObject about;
        try {
            const std::string text = check(about, isRevoked);
            if (!json)
                Output("-").write(text);
            else if (isRevoked)
                throw Refused::by_system(BAD_KEY_ERROR, file, "The certificate is revoked.");
            else
                print_verdict(nullptr, about);
        } catch (const Refused& refused) {
            if (json)
                print_verdict(&refused, about);
            if (!json || !isRevoked)
                throw;
        }
        if (isRevoked)
            throw SilentFailure{};
    }

    std::string check(JsonObject& about, bool& isRevoked) const {
        about.add_file("file", file).add_file("crl", crl);
        const std::string moment = date.empty() ? "" : date_text(date, "--date", kEnd);
        const ObjectArgument certificate = certificate_object(file);
        std::error_code ignored;
        const bool isFile =
            !is_standard_stream(crl) && std::filesystem::is_regular_file(path_of(crl), ignored);
        const bool isChecked = !issuer.empty();
        const ObjectArgument signer = isChecked ? certificate_object(issuer) : certificate;
        const bool isNew = isChecked && has_new_key(signer);
        const bool isLeftToLibrary = isFile && !isNew; // else what is verified here is what is searched
        const SecretBytes head = isLeftToLibrary ? list_head(crl) : der_of(crl);
        const ObjectArgument list = isLeftToLibrary ? ObjectArgument(crl) : ObjectArgument(crl, head);
        const ListDates dates(head, list.name());
        if (isNew)
            verify_with_new_key(head, list.name(), signer);
        const int result = accept_length(X509_CheckCertInCRL(certificate.text(), list.text(),
                                                             isChecked && !isNew ? signer.text() : nullptr,
                                                             moment.empty() ? nullptr : moment.c_str(), 0),
                                         list.name());
        isRevoked = result != 0;
        about.add("isRevoked", isRevoked).add("isSignatureChecked", isChecked);
        for (const auto& [name, time] : {std::pair("thisUpdate", dates.made),
                                         std::pair("nextUpdate", dates.next), std::pair("date", moment)})
            if (!time.empty())
                about.add(name, time + "Z");
        std::string text = certificate.name() + ": " +
                           (result == 0 ? styled(Style::good, "not revoked", stdout)
                                        : styled(Style::bad, "REVOKED", stdout));
        text += moment.empty() ? "" : " on " + moment + "Z";
        text += ", says " + list.name() + age(dates, moment.empty() ? now_text(0) : moment, list.name());
        return text + (isChecked ? "\n" : " (whose signature was not checked: --issuer FILE does)\n");
    }
};

} // namespace

void add_crl_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("crl", "Make, check and show certificate revocation lists");
    group->require_subcommand(1);
    group->footer("Example:\n  zul crl check alice.pem --crl ca.crl --issuer ca.pem");

    auto make = std::make_shared<MakeCrlCommand>();
    CLI::App* command = group->add_subcommand("make", "Make a revocation list");
    command->add_option("OUT", make->out, "Output file; - for standard output")->required()->option_text(" ");
    make->key.add_to(*command, "the issuer's private key");
    command->add_option("--issuer", make->issuer, "Needed: the issuer's certificate")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--revoke", make->revoked,
                     "Serial number, decimal or hex after 0x, date and reason; for each")
        ->allow_extra_args(false)
        ->option_text("N[,DATE][,REASON]");
    command->add_option("--earlier", make->earlier, "The list before, which this one goes on from")
        ->option_text("FILE");
    command->add_flag("--delta", make->delta, "A delta list: what changed since --earlier");
    command->add_option("--issued", make->issued, "Date of the list (now)")->option_text("DATE");
    command->add_option("--next", make->next, "Date of the next list")->option_text("DATE");
    command->add_option("--days", make->days, "Instead of --next: after how many days (30)")
        ->check(CLI::Range(1, 365000))
        ->option_text("N");
    command
        ->add_option("--describe", make->describe,
                     "More of the contents: keyword=value pairs of CERT_IssueCRL, joined by ;")
        ->option_text("TEXT");
    make->signing.add_to(*command);
    command->footer(
        "A list names every certificate that stays revoked: without --earlier those of --revoke alone.\n"
        "Reasons: unspecified, keyCompromise, cACompromise, affiliationChanged, superseded,\n"
        "cessationOfOperation, certificateHold, privilegeWithdrawn, aACompromise; removeFromCRL ends a\n"
        "hold of the earlier list. Dates: 2026-01-31 or 2026-01-31T12:30:00, UTC.\n\nExample:\n"
        "  zul crl make -k ca.key --issuer ca.pem --earlier old.crl --revoke 0x0a3f,keyCompromise ca.crl");
    command->callback([make] { make->run(); });

    auto check = std::make_shared<CheckCrlCommand>();
    command = group->add_subcommand("check", "Tell whether a certificate is revoked");
    command->add_option("CERT", check->file, "The certificate; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("--crl", check->crl, "Needed: its issuer's revocation list")
        ->required()
        ->option_text("FILE");
    command->add_option("--issuer", check->issuer, "The issuer's certificate, to check the list's signature")
        ->option_text("FILE");
    command->add_option("--date", check->date, "Was it revoked on this date?")->option_text("DATE");
    add_json_flag(*command, check->json);
    command->footer(
        "Without --date whatever the list names is revoked. A date without a time means the end of that\n"
        "day, UTC. A list that was not the latest at that moment is a warning only. Exit status 0: not\n"
        "revoked, 1: revoked, or it cannot be told (then with an error, and without --json nothing else).\n\n"
        "Example:\n  zul crl check alice.pem --crl ca.crl --issuer ca.pem");
    command->callback([check] { check->run(); });

    add_show_command(*group, "a revocation list", "zul crl show ca.crl");
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
