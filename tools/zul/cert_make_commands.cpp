#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "file_digest.h"
#include "hex_text.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kAuthorityUsage = ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN;

// What certificates of both kinds are made of.
struct Contents {
    std::string subject, serial, usage, email, from, until, subjectKeyId, out;
    int years = 1;
    bool utf8 = false, version1 = false, noBasic = false, noKeyIds = false;
    CLI::Option* yearsOption = nullptr;
    RsaKeyOption key;
    SigningOptions signing;

    void add_to(CLI::App& command) {
        command.add_option("OUT", out, "Output file; - for standard output")->required()->option_text(" ");
        command.add_option("-s,--subject", subject, "Name, as \"C=AU;O=Example;CN=Alice\"")
            ->option_text("NAME");
        command.add_option("--serial", serial, "Serial number, decimal or hex after 0x (random)")
            ->option_text("N");
        command.add_option("--from", from, "First day, or time, of the validity (now)")->option_text("DATE");
        command.add_option("--until", until, "Its last day, or time")->option_text("DATE");
        yearsOption = command.add_option("--years", years, "Instead of --until: how many years (1)")
                          ->check(CLI::Range(1, 1000))
                          ->option_text("N");
        command.add_option("--usage", usage, "What the key is for: names joined by commas, or none")
            ->option_text("USAGE");
        command.add_option("--email", email, "E-mail address (subjectAltName)")->option_text("ADDRESS");
        command.add_option("--subject-key-id", subjectKeyId, "Subject key identifier (SHA-1 of the key)")
            ->option_text("HEX");
        command.add_flag("--no-key-ids", noKeyIds, "Leave out both key identifiers");
        signing.add_to(command);
        command.add_flag("--utf8", utf8, "Write the name as UTF8String, as is done where it is not ASCII");
        command.add_flag("--no-basic", noBasic, "Leave out basicConstraints");
        command.add_flag("--version1", version1, "Version 1, which has no extensions");
    }

    void check() const {
        if (version1 && !(usage.empty() && email.empty() && subjectKeyId.empty()))
            throw UsageError("a certificate of version 1 has no --usage, --email or --subject-key-id");
        if (noKeyIds && !subjectKeyId.empty())
            throw UsageError("--no-key-ids and --subject-key-id exclude each other");
        if (!until.empty() && yearsOption->count() > 0)
            throw UsageError("--until and --years exclude each other");
    }

    // notBefore is always given: the library's default shifts with the time zone.
    std::string extensions() const {
        const std::string begin = from.empty() ? now_text(60) : date_text(from, "--from", "T00:00:01");
        std::string text = "notBefore=" + begin;
        if (!until.empty()) {
            const std::string end = date_text(until, "--until", "T23:59:59");
            if (begin > end)
                throw UsageError("--until lies before the beginning");
            text += ";notAfter=" + end;
        }
        const std::string number = serial.empty() ? random_serial() : serial_hex(serial, "--serial");
        constexpr size_t kDigits = 40;
        if (number == "00" || number.size() > kDigits || (number.size() == kDigits && number[0] > '7'))
            throw UsageError("--serial of a certificate is at least 1 and has at most 20 bytes, the first of "
                             "them below 0x80");
        text += ";serialNumber=" + number;
        if (!email.empty())
            text += ";rfc822Name=" + quote_value(checked_email());
        return text;
    }

    // key_id is the pair for the identifier of a key: that of RFC 5280, 4.2.1.2 (1), if none is given.
    std::string key_id(const RsaKey& certified) const {
        if (version1 || noKeyIds)
            return {};
        std::string id;
        if (subjectKeyId.empty()) {
            const ScratchFile saved;
            accept_status(RSA_SavePublicKey(saved.path(), certified.text(), 0), "key");
            id = file_digest(saved.path(), find_digest("sha1"));
        } else {
            const SecretBytes hex = hex_line(decode_hex(subjectKeyId, "--subject-key-id"));
            id.assign(hex.begin(), hex.end() - 1);
        }
        return ";subjectKeyIdentifier=" + id;
    }

    const std::string& checked_email() const {
        const size_t at = email.find('@');
        const bool isText =
            std::all_of(email.begin(), email.end(), [](char c) { return c > ' ' && c < 0x7F; });
        if (!isText || at == 0 || at == email.npos || at + 1 == email.size())
            throw UsageError("--email takes an ASCII address such as alice@example.com");
        return email;
    }

    int options(bool needsUtf8) const {
        return signing.algorithm() | ZUL_X509_FORMAT_PEM | (utf8 || needsUtf8 ? ZUL_X509_UTF8 : 0) |
               (noBasic ? ZUL_X509_NO_BASIC : 0) | (version1 ? ZUL_X509_VERSION1 : 0);
    }

    int usage_bits(bool isAuthority) const {
        if (usage.empty())
            return isAuthority ? kAuthorityUsage : 0;
        return key_usage(usage);
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
        const Name name = read_name(subject);
        const std::string dates = extensions();
        const int bits = usage_bits(true), choice = options(!name.isAscii);
        key.refuse_output("-", out);
        const RsaKey privateKey = signing_key(key, "");
        const std::string pairs = dates + key_id(privateKey);
        const ScratchFile made;
        accept_status(X509_MakeCertSelf(made.path(), privateKey.text(), 1, years, name.text.c_str(),
                                        pairs.c_str(), bits, kNoPassword, choice),
                      "certificate");
        deliver(made);
    }
};

struct IssueCommand : Contents {
    std::string issuer, request, publicKey;
    bool authority = false, authorityKeyId = false;

    void check_sources() const {
        check();
        if (request.empty() == publicKey.empty())
            throw UsageError("the key that is certified comes from --request FILE or --public-key FILE");
        if (request.empty() && subject.empty())
            throw UsageError("--subject is required; a request brings its own name");
        if (version1 && (authority || authorityKeyId))
            throw UsageError("a certificate of version 1 has no --ca or --authority-key-id");
        if (noBasic && authority)
            throw UsageError("--ca and --no-basic exclude each other");
        if (noKeyIds && authorityKeyId)
            throw UsageError("--no-key-ids and --authority-key-id exclude each other");
        refuse_shared_input(
            {is_standard_stream(issuer), is_standard_stream(request), is_standard_stream(publicKey)});
        for (const std::string& in : {issuer, request, publicKey})
            if (!in.empty())
                key.refuse_output(in, out);
    }

    // The library does not compare them. A signature with a wrong key would not verify.
    void check_issuer(const ObjectArgument& certificate, const RsaKey& privateKey) const {
        const RsaKey signer = RsaKey::read_certificate(certificate.text(), certificate.name());
        accept_status(RSA_KeyMatch(privateKey.text(), signer.text()), certificate.name(),
                      "The private key is not that of the issuer's certificate.");
        if (authorityKeyId && !has_key_id(certificate))
            throw UsageError("the issuer's certificate has no subject key identifier to repeat");
        const int version = X509_QueryCert(nullptr, 0, certificate.text(), "version", 0);
        const std::string others = ": others may refuse what it issues";
        if (version < 3)
            warn(certificate.name() + " is of version " + std::to_string(version) +
                 ", which has no authorities (CA)" + others);
        else if (X509_QueryCert(nullptr, 0, certificate.text(), "isCA", 0) == 0)
            warn(certificate.name() + " is not the certificate of an authority (CA)" + others);
        if (X509_CertIsValidNow(certificate.text(), 0) == -1)
            warn(certificate.name() + " has expired or is not valid yet" + others);
    }
    static bool has_key_id(const ObjectArgument& certificate) {
        return !query(certificate, "subjectKeyIdentifier").empty();
    }

    // certified_request gives the key of a request after checking its signature. The check needs a temporary
    // certificate of the key.
    RsaKey certified_request(const RequestParts& parts, const ObjectArgument& object,
                             const ObjectArgument& issuerCertificate, const RsaKey& privateKey) const {
        RsaKey certified = RsaKey::read_public(parts.publicKey, object.name());
        const ScratchFile holder;
        accept_status(X509_MakeCert(holder.path(), issuerCertificate.text(), certified.text(),
                                    privateKey.text(), 1, 1, "CN=key", nullptr, 0, kNoPassword,
                                    signing.algorithm_option()),
                      object.name());
        const int result = X509_VerifyCert(object.text(), holder.path());
        accept_status(result == -1 ? SIGNATURE_ERROR : result, object.name(),
                      result == -1 ? "It was not signed with its own key, or it was changed." : "");
        return certified;
    }

    void run() const {
        check_sources();
        Name name = subject.empty() ? Name{} : read_name(subject);
        const std::string dates = extensions();
        const int bits = usage_bits(authority);
        int choice = options(false) | (authority ? ZUL_X509_SET_CA : 0);
        const std::string other = is_standard_stream(request) || is_standard_stream(publicKey) ? "-" : issuer;
        const RsaKey privateKey = signing_key(key, other);
        const ObjectArgument issuerCertificate = certificate_object(issuer);
        check_issuer(issuerCertificate, privateKey);
        if (!version1 && !noKeyIds && has_key_id(issuerCertificate))
            choice |= ZUL_X509_AUTHKEYID;

        RsaKey certified;
        if (request.empty()) {
            certified = RsaKey::read(publicKey, {}).without_private();
        } else {
            const SecretBytes content = der_of(request);
            const ObjectArgument object(request, content);
            const RequestParts parts(content, object.name());
            certified = certified_request(parts, object, issuerCertificate, privateKey);
            if (subject.empty())
                name = parts.subject();
            if (parts.asksExtensions)
                warn(object.name() +
                     " asks for extensions, which are not taken over: say what the certificate "
                     "shall have with --usage, --email, --ca");
        }
        const std::string pairs = dates + key_id(certified);
        const ScratchFile made;
        accept_status(X509_MakeCert(made.path(), issuerCertificate.text(), certified.text(),
                                    privateKey.text(), 1, years, name.text.c_str(), pairs.c_str(), bits,
                                    kNoPassword, choice | (name.isAscii ? 0 : ZUL_X509_UTF8)),
                      "certificate");
        const auto last_day = [](const ObjectArgument& certificate) {
            return query(certificate, "notAfter").substr(0, 10);
        };
        if (last_day(ObjectArgument(made.path())) > last_day(issuerCertificate))
            warn("the certificate outlives its issuer's, " + issuerCertificate.name());
        deliver(made);
    }
};

std::string footer(const char* text) {
    return std::string(
               "Names: CN, C, O, OU, L, ST, E (e-mail), SN, G, T, DC, each with = and a value, joined by ;\n"
               "in quotes (') a value may hold ;. Usages: digitalSignature, nonRepudiation,\n"
               "keyEncipherment, dataEncipherment, keyAgreement, keyCertSign, cRLSign, encipherOnly,\n"
               "decipherOnly. Dates: 2026-01-31 or 2026-01-31T12:30:00, UTC.\n") +
           text;
}

} // namespace

void add_cert_make_commands(CLI::App& group) {
    auto self = std::make_shared<SelfCommand>();
    CLI::App* command = group.add_subcommand("self", "Make the self-signed certificate of an authority (CA)");
    self->key.add_to(*command, "the authority's private key");
    self->add_to(*command);
    command->get_option("--subject")->required();
    command->footer(
        footer("Without --usage the key is for keyCertSign,cRLSign.\n\nExample:\n"
               "  zul cert self -k ca.key -s \"C=AU;O=Example;CN=Example Root\" --years 10 ca.pem"));
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
    command->add_option("--public-key", issue->publicKey, "The key, if there is no request")
        ->option_text("FILE");
    command->add_flag("--ca", issue->authority, "The certificate may issue others");
    command->add_flag("--authority-key-id", issue->authorityKeyId,
                      "Insist on repeating the issuer's key identifier");
    issue->add_to(*command);
    command->footer(footer(
        "With --ca and without --usage the key is for keyCertSign,cRLSign. A request's signature is\n"
        "checked; look at its name first: 'zul request show'. The extensions that it asks for are not taken\n"
        "over. Key identifiers are written, the authority's if the issuer has one.\n\nExample:\n"
        "  zul cert issue --issuer ca.pem -k ca.key --request alice.req --years 2 alice.pem"));
    command->callback([issue] { issue->run(); });
}

} // namespace tool
