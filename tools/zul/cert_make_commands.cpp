#include <CLI/CLI.hpp>
#include <memory>

#include "certificate_old_forms.h"
#include "commands.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kAuthorityUsage = ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN;

// What certificates of both kinds are made of.
struct Contents {
    std::string subject, serial, usage, profile, from, until, out;
    int years = 0, days = 0;
    DescriptionOptions described;
    OldForms old;
    KeyFileOption key;
    SigningOptions signing;

    void add_to(CLI::App& command) {
        command.add_option("OUT", out, "Output file; - for standard output")->required()->option_text(" ");
        command.add_option("-s,--subject", subject, "Name, as \"C=AU;O=Example;CN=Alice\"")
            ->option_text("NAME");
        command
            .add_option("--profile", profile,
                        "What it is for: server, client, email, code, ca, ocsp or timestamp")
            ->option_text("PROFILE");
        described.add_to(command);
        command.add_option("--usage", usage, "What the key is for: names joined by commas, or none")
            ->option_text("USAGE");
        command.add_option("--from", from, "First day, or time, of the validity (now)")->option_text("DATE");
        command.add_option("--until", until, "Its last day, or time")->option_text("DATE");
        command.add_option("--days", days, "Instead of --until: how many days (90; an authority 10 years)")
            ->check(CLI::Range(1, 365000))
            ->option_text("N");
        command.add_option("--years", years, "Instead of --until: how many years")
            ->check(CLI::Range(1, 1000))
            ->option_text("N");
        command.add_option("--serial", serial, "Serial number, decimal or hex after 0x (random)")
            ->option_text("N");
        signing.add_to(command);
        old.add_to(command);
    }

    bool is_old() const { return old.are_asked() || usage == "none"; }

    void check() const {
        if (is_old())
            old.check(usage, described);
        refuse_period(until, years, days);
    }

    std::string begin() const { return from.empty() ? "" : date_text(from, "--from", "T00:00:01"); }
    std::string end() const {
        std::string end = until.empty() ? "" : date_text(until, "--until", "T23:59:59");
        if (!end.empty() && (from.empty() ? now_text(60) : begin()) > end)
            throw UsageError("--until lies before the beginning");
        return end;
    }

    std::string checked_serial() const {
        std::string number = serial_hex(serial, "--serial");
        constexpr size_t kDigits = 40;
        if (number == "00" || number.size() > kDigits || (number.size() == kDigits && number[0] > '7'))
            throw UsageError("--serial of a certificate is at least 1 and has at most 20 bytes, the first of "
                             "them below 0x80");
        return number;
    }

    Description description() const {
        Description text;
        if (!subject.empty())
            text.pair("subject", read_name(subject, is_old() ? NameForm::old : NameForm::any).text);
        if (!profile.empty())
            text.pair("profile", profile);
        if (!from.empty())
            text.pair("notBefore", begin());
        if (!until.empty())
            text.pair("notAfter", end());
        if (days > 0)
            text.pair("days", std::to_string(days));
        if (years > 0)
            text.pair("valid", std::to_string(years) + "y");
        if (!serial.empty())
            text.pair("serial", checked_serial());
        if (!usage.empty() && key_usage(usage) != 0)
            text.text("keyUsage=" + usage);
        described.put(text);
        return text;
    }

    // certificate: what was just made as it is made today.
    OldCertificate old_certificate(const ScratchFile& certificate, bool isAuthority) const {
        OldCertificate contents;
        contents.begin = from.empty() ? now_text(60) : begin();
        contents.end = end();
        if (contents.end.empty() && years == 0) {
            contents.end = query(ObjectArgument(certificate.path()), "notAfter");
            contents.end.pop_back(); // its "Z"
        }
        contents.years = years == 0 ? 1 : years;
        contents.serial = serial.empty() ? random_serial() : checked_serial();
        contents.email = described.email.empty() ? "" : described.email[0];
        contents.isAuthority = isAuthority;
        contents.usage = !usage.empty() ? key_usage(usage) : isAuthority ? kAuthorityUsage : 0;
        return contents;
    }

    void deliver(const ScratchFile& made) const {
        if (signing.der)
            made.deliver_der(out);
        else
            made.deliver(out);
    }
};

struct SelfCommand : Contents {
    void run() const {
        check();
        if (subject.empty() && described.describe.empty())
            throw UsageError("--subject is required");
        Description text = description();
        if (profile.empty() && described.describe.empty())
            text.flag("ca");
        key.refuse_output("-", out);
        const Key privateKey = signing_key(key, "");
        if (!is_old())
            signing.put(text, privateKey);
        const ScratchFile made;
        accept_status(CERT_SelfSign(made.path(), privateKey.text(), text.c_str(), 0), "certificate");
        if (is_old()) {
            OldCertificate contents = old_certificate(made, true);
            contents.subject = read_name(subject, NameForm::old);
            contents.self(made.path(), {privateKey, key.file()}, old, signing.algorithm());
        }
        deliver(made);
    }
};

struct IssueCommand : Contents {
    std::string issuer, request, publicKey;
    std::vector<std::string> copies;
    bool authority = false, authorityKeyId = false, beyond = false;

    void check_sources() const {
        check();
        if (request.empty() == publicKey.empty())
            throw UsageError("the key that is certified comes from --request FILE or --public-key FILE");
        if (request.empty() && subject.empty() && !described.has_names() && described.describe.empty())
            throw UsageError("--subject is required; a request brings its own name");
        if (request.empty() && !copies.empty())
            throw UsageError("--copy takes over what a request asks for");
        if (old.version1 && (authority || authorityKeyId))
            throw UsageError("a certificate of version 1 has no --ca or --authority-key-id");
        if (old.noBasic && authority)
            throw UsageError("--ca and --no-basic exclude each other");
        if (old.noKeyIds && authorityKeyId)
            throw UsageError("--no-key-ids and --authority-key-id exclude each other");
        refuse_shared_input(
            {is_standard_stream(issuer), is_standard_stream(request), is_standard_stream(publicKey)});
        for (const std::string& in : {issuer, request, publicKey})
            if (!in.empty())
                key.refuse_output(in, out);
    }

    void run() const {
        check_sources();
        Description text = description();
        if (authority)
            text.flag("ca");
        text.list("copy", copies);
        const std::string other = is_standard_stream(request) || is_standard_stream(publicKey) ? "-" : issuer;
        const Key privateKey = signing_key(key, other);
        if (!is_old())
            signing.put(text, privateKey);
        const ObjectArgument issuerCertificate = certificate_object(issuer);
        if (authorityKeyId && query(issuerCertificate, "subjectKeyIdentifier").empty())
            throw UsageError("the issuer's certificate has no subject key identifier to repeat");
        const ScratchFile made;
        const auto make = [&](const char* certified) {
            accept_status(CERT_Issue(made.path(), issuerCertificate.text(), privateKey.text(), certified,
                                     text.c_str(), beyond ? ZUL_CERT_BEYOND_ISSUER : 0),
                          "certificate");
        };
        if (request.empty()) {
            const Key certified = Key::read(publicKey, {}).without_private();
            make(certified.text());
            if (is_old())
                make_old(made, issuerCertificate, privateKey, {certified, publicKey},
                         read_name(subject, NameForm::old));
        } else {
            const RequestArgument asked(request);
            make(asked.text());
            asked.warn_of_extensions(copies);
            if (is_old())
                make_old(made, issuerCertificate, privateKey,
                         RsaKey::read_public(asked.parts().publicKey, asked.name()),
                         subject.empty() ? asked.parts().subject() : read_name(subject, NameForm::old));
        }
        const auto last_day = [](const ObjectArgument& certificate) {
            return query(certificate, "notAfter").substr(0, 10);
        };
        if (last_day(ObjectArgument(made.path())) > last_day(issuerCertificate))
            warn("the certificate outlives its issuer's, " + issuerCertificate.name());
        deliver(made);
    }

    void make_old(const ScratchFile& made, const ObjectArgument& issuerCertificate, const Key& privateKey,
                  const RsaKey& certified, const Name& name) const {
        OldCertificate contents = old_certificate(made, authority);
        contents.subject = name;
        contents.issue(made.path(), issuerCertificate, {privateKey, key.file()}, certified, old,
                       signing.algorithm());
    }
};

std::string footer(const char* text) {
    return std::string(
               "Names: CN, C, O, OU, L, ST, E (e-mail), SN, G, T, DC and others, or a dotted number, each "
               "with\n"
               "= and a value, joined by ;. In quotes (') a value may hold ;. Usages: digitalSignature,\n"
               "nonRepudiation, keyEncipherment, dataEncipherment, keyAgreement, keyCertSign, cRLSign,\n"
               "encipherOnly, decipherOnly; without --usage what fits the key and the profile.\n"
               "Dates: 2026-01-31 or 2026-01-31T12:30:00, UTC. Keys of any kind, but X25519 signs "
               "nothing.\n") +
           text;
}

} // namespace

void add_cert_make_commands(CLI::App& group) {
    auto self = std::make_shared<SelfCommand>();
    CLI::App* command =
        group.add_subcommand("self", "Make a self-signed certificate, as of an authority (CA)");
    self->key.add_to(*command, "the private key");
    self->add_to(*command);
    command->footer(
        footer("Without --profile and --describe it is that of an authority.\n\nExample:\n"
               "  zul cert self -k ca.key -s \"C=AU;O=Example;CN=Example Root\" --years 10 ca.pem\n"
               "  zul cert self -k test.key -s CN=localhost --profile server --dns localhost test.pem"));
    command->callback([self] { self->run(); });

    auto issue = std::make_shared<IssueCommand>();
    command = group.add_subcommand("issue", "Make a certificate for a request or a public key");
    issue->key.add_to(*command, "the issuer's private key");
    command->add_option("--issuer", issue->issuer, "Needed: the issuer's certificate")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--request", issue->request,
                     "The request, which brings the key, and the name unless --subject gives one")
        ->option_text("FILE");
    command
        ->add_option("--copy", issue->copies,
                     "Extensions of the request to take over: subjectAltName, keyUsage, extKeyUsage, ...")
        ->allow_extra_args(false)
        ->delimiter(',')
        ->option_text("LIST");
    command->add_option("--public-key", issue->publicKey, "The key, if there is no request")
        ->option_text("FILE");
    command->add_flag("--ca", issue->authority, "The certificate may issue others");
    command->add_flag("--beyond-issuer", issue->beyond, "It may outlive the issuer's certificate");
    command->add_flag("--authority-key-id", issue->authorityKeyId,
                      "Insist on repeating the issuer's key identifier");
    issue->add_to(*command);
    command->footer(footer(
        "A request's signature is checked; look at its name first: 'zul request show'. Of the extensions\n"
        "that it asks for only those of --copy are taken over. The issuer has to be an authority (CA).\n"
        "'zul ca' keeps an authority with its records.\n\nExample:\n"
        "  zul cert issue --issuer ca.pem -k ca.key --request alice.req --profile client alice.pem"));
    command->callback([issue] { issue->run(); });
}

} // namespace tool
