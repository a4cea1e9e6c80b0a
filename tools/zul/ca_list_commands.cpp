#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "ca_commands.h"
#include "ca_index.h"
#include "certificates.h"
#include "der.h"
#include "json_output.h"
#include "letters.h"
#include "streams.h"

namespace tool {

namespace {

// Names of CRLReason (RFC 5280, 5.3.1), by number.
constexpr const char* kReasonNames[] = {
    "unspecified",   "keyCompromise",        "cACompromise",    "affiliationChanged",
    "superseded",    "cessationOfOperation", "certificateHold", "7",
    "removeFromCRL", "privilegeWithdrawn",   "aACompromise"};

std::string hex_of_part(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(c));
        text += digits;
    }
    return text;
}

// day_of gives the day of a UTCTime or GeneralizedTime.
std::string day_of(const DerPart& time) {
    constexpr unsigned char kUtcTime = 0x17;
    std::string digits(time.content);
    if (time.tag == kUtcTime && !digits.empty())
        digits.insert(0, digits[0] >= '5' ? "19" : "20");
    return digits.size() < 8 ? "?"
                             : digits.substr(0, 4) + "-" + digits.substr(4, 2) + "-" + digits.substr(6, 2);
}

// revoked_of reads the entries of a CRL (RFC 5280, 5.1): day and reason by serial number. An entry is the
// only place that has an INTEGER at level 4, after which come its time and, at level 6, its extensions.
std::map<std::string, std::string> revoked_of(const std::string& list) {
    constexpr unsigned char kInteger = 0x02, kUtcTime = 0x17, kGeneralizedTime = 0x18, kOctets = 0x04;
    constexpr std::string_view kReasonCode = "\x55\x1D\x15", kEnumerated = "\x0A\x01";
    const SecretBytes content = der_of(list);
    std::map<std::string, std::string> revoked;
    std::string* entry = nullptr;
    bool isReason = false;
    for (const DerPart& part : der_parts(content, list, 6)) {
        if (part.level <= 3)
            entry = nullptr;
        if (part.level == 4 && part.tag == kInteger)
            entry = &revoked[hex_of_part(part.content)];
        if (entry == nullptr)
            continue;
        if (part.level == 4 && (part.tag == kUtcTime || part.tag == kGeneralizedTime))
            *entry = day_of(part);
        if (part.level == 6 && isReason && part.tag == kOctets && part.content.starts_with(kEnumerated) &&
            part.content.size() == 3 && static_cast<uint8_t>(part.content[2]) < std::size(kReasonNames))
            *entry += std::string(" ") + kReasonNames[static_cast<uint8_t>(part.content[2])];
        isReason = part.level == 6 && part.content == kReasonCode;
    }
    return revoked;
}

struct CaRevokeCommand {
    std::string folder, certificate, reason, invalidity;
    int days = 0;
    bool json = false;
    PasswordOption password;

    // The number of a certificate of this authority: that of a file, which has to be the copy's equal, or in
    // hex.
    IndexLine find(const AuthorityFolder& files) const {
        if (is_on_disk(certificate) || is_standard_stream(certificate)) {
            const SecretBytes content = der_of(certificate);
            const ObjectArgument object(certificate, content);
            IndexLine line = index_find(files, query(object, "serialNumber"));
            if (der_of(files.issued(line.serial)) != content)
                throw Refused::by_system(NO_MATCH_ERROR, object.name(),
                                         "This authority has made another certificate with its number.");
            return line;
        }
        std::string hex;
        for (const char c : lower_ascii(certificate))
            if (c != ':')
                hex += c;
        if (hex.starts_with("0x"))
            hex.erase(0, 2);
        if (hex.find_first_not_of("0123456789abcdef") != std::string::npos)
            throw Refused::by_system(OPEN_ERROR, shown_name(certificate),
                                     "It is neither a file nor a serial number in hex.");
        return index_find(files, hex);
    }

    std::string entry(const IndexLine& line) const {
        std::string text = "serial=" + line.serial;
        if (!reason.empty())
            text += ",reason=" + quote_value(reason);
        if (!invalidity.empty())
            text += ",invalidity=" + date_text(invalidity, "--invalidity", "T00:00:00");
        return text;
    }

    void run() const {
        refuse_shared_input({is_standard_stream(certificate), password.is_standard_input()});
        const AuthorityFolder files = AuthorityFolder::open(folder);
        const AuthoritySettings settings(files);
        const IndexLine line = find(files);
        const std::string revoked = entry(line);
        const Key key = files.key(line.issuer, password);
        const AuthorityLock lock(files);
        files.make_list(line.issuer, key, revoked, days > 0 ? days : settings.list_days(line.issuer), false);
        const std::string list = files.file(line.issuer + ".crl");
        print_report(json, JsonObject().add("serialNumber", line.serial).add_file("crl", list),
                     "revoked " + line.serial + ": " + list + "\n");
    }
};

struct CaListCommand {
    std::string folder;
    int days = 0;
    bool ofRoot = false, json = false;
    PasswordOption password;

    void renew() const {
        const AuthorityFolder files = AuthorityFolder::open(folder);
        const AuthoritySettings settings(files);
        const Signer& signer = ofRoot ? kRoot : kIssuing;
        const Key key = files.key(signer, password);
        const AuthorityLock lock(files);
        files.make_list(signer, key, "", days > 0 ? days : settings.list_days(signer), false);
        if (json)
            print_json(JsonObject().add_file("crl", files.file(signer + ".crl")));
    }

    void show() const {
        const AuthorityFolder files = AuthorityFolder::open(folder);
        std::map<Signer, std::map<std::string, std::string>> revoked;
        for (const Signer& signer : {kRoot, kIssuing})
            revoked[signer] = revoked_of(files.file(signer + ".crl"));
        const std::string now = now_text(0);
        std::string text;
        JsonArray certificates;
        for (const IndexLine& line : index_read(files)) {
            const auto& of = revoked[line.issuer];
            const auto found = of.find(line.serial);
            const std::string status = found != of.end()  ? "revoked " + found->second
                                       : line.until < now ? "expired"
                                                          : "valid";
            text += line.serial + "\t" + status + "\tuntil " + line.until + "\t" + line.profile + "\t" +
                    line.subject + "\t" + line.names + "\n";
            JsonObject one;
            one.add("serialNumber", line.serial).add("status", status.substr(0, status.find(' ')));
            if (found != of.end())
                add_revocation(one, found->second);
            one.add("notBefore", line.from).add("notAfter", line.until).add("issuer", line.issuer);
            one.add("profile", line.profile)
                .add("subject", index_value(line.subject))
                .add("names", index_value(line.names));
            certificates.add(one);
        }
        print_report(json, JsonObject().add_file("folder", folder).add("certificates", certificates), text);
    }

    // revocation: the day, and perhaps a blank and the reason.
    static void add_revocation(JsonObject& object, const std::string& revocation) {
        const size_t blank = revocation.find(' ');
        object.add("revokedOn", revocation.substr(0, blank));
        if (blank != revocation.npos)
            object.add("reason", revocation.substr(blank + 1));
    }
};

CLI::App* add_list_command(CLI::App& group, const char* name, const char* what, std::string& folder) {
    CLI::App* command = group.add_subcommand(name, what);
    command->add_option("DIR", folder, "Folder of the authority")->required()->option_text(" ");
    return command;
}

void add_list_days(CLI::App& command, int& days) {
    command.add_option("--days", days, "When the list after this one is due (as settings.txt says: 30)")
        ->check(CLI::Range(1, 365000))
        ->option_text("N");
}

} // namespace

void add_ca_list_commands(CLI::App& group) {
    auto revoke = std::make_shared<CaRevokeCommand>();
    CLI::App* command =
        add_list_command(group, "revoke", "Revoke a certificate and make the new list", revoke->folder);
    command->add_option("CERT", revoke->certificate, "The certificate's file, or its serial number in hex")
        ->required()
        ->option_text(" ");
    command->add_option("--reason", revoke->reason, "Why (unspecified)")->option_text("REASON");
    command->add_option("--invalidity", revoke->invalidity, "Since when others may have known the key")
        ->option_text("DATE");
    add_list_days(*command, revoke->days);
    revoke->password.add_to(*command, "password", "Password of the authority's key");
    add_json_flag(*command, revoke->json);
    command->footer(
        "Reasons: unspecified, keyCompromise, cACompromise, affiliationChanged, superseded,\n"
        "cessationOfOperation, certificateHold, privilegeWithdrawn, aACompromise; removeFromCRL ends a\n"
        "hold. What the root issued (ca.pem) its own list revokes, with root.key. Publish the new list.\n\n"
        "Example:\n  zul ca revoke pki www.pem --reason keyCompromise");
    command->callback([revoke] { revoke->run(); });

    auto list = std::make_shared<CaListCommand>();
    command = add_list_command(group, "crl", "Make a new list that goes on from the last one", list->folder);
    command->add_flag("--root", list->ofRoot, "The root's list, root.crl, instead of ca.crl");
    add_list_days(*command, list->days);
    list->password.add_to(*command, "password", "Password of the authority's key");
    add_json_flag(*command, list->json);
    command->footer("To be made anew and published before the last one is out of date.\n\n"
                    "Example:\n  zul ca crl pki --days 7");
    command->callback([list] { list->renew(); });

    auto show = std::make_shared<CaListCommand>();
    command = add_list_command(group, "list", "Show the certificates and which are revoked", show->folder);
    add_json_flag(*command, show->json);
    command->footer(
        "Fields are parted by tabs: serial number, status (valid, expired, or revoked with day and\n"
        "reason), end of the validity, profile, subject, other names.\n\n"
        "Example:\n  zul ca list pki");
    command->callback([show] { show->show(); });
}

} // namespace tool
