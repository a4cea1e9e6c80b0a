#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "certificates.h"
#include "der.h"

namespace tool {

namespace {

struct PathCommand {
    std::vector<std::string> files;
    std::string trusted;
    bool ignoreDates = false;

    static constexpr size_t kMost = 20; // of which the library knows

    // Certificate is one of the path. Its content was read once: what is looked at is what the library gets.
    struct Certificate {
        SecretBytes der;
        ObjectArgument argument;

        Certificate(const std::string& file, SecretBytes content)
            : der(std::move(content)), argument(file, der) {}
        bool operator==(const Certificate& other) const { return der == other.der; }
        int number(const char* name) const { return X509_QueryCert(nullptr, 0, argument.text(), name, 0); }
        bool was_signed_by(const Certificate& issuer) const {
            return X509_VerifyCert(argument.text(), issuer.argument.text()) == 0;
        }
    };

    // add takes a certificate, or those of a bundle (SignedData, RFC 5652, 5.1), which the library would
    // check without telling which they are.
    static void add(std::vector<Certificate>& certificates, const std::string& file, SecretBytes content) {
        constexpr unsigned char kOid = 0x06, kSequence = 0x30, kCertificates = 0xA0;
        const std::string name = is_standard_stream(file) ? "standard input" : file;
        std::vector<DerPart> parts;
        try {
            parts = der_parts(content, name, 4);
        } catch (const Refused&) { // the library will say what is wrong
        }
        if (parts.size() < 2 || parts[1].tag != kOid) {
            certificates.emplace_back(file, std::move(content));
            return;
        }
        const size_t before = certificates.size();
        bool isInside = false;
        for (const DerPart& part : parts) {
            if (part.level == 4 && isInside) {
                if (part.tag != kSequence)
                    throw Refused::by_system(NOT_SUPPORTED_ERROR, name,
                                             "The bundle holds a certificate of another kind than X.509.");
                certificates.emplace_back(file, SecretBytes(part.all.begin(), part.all.end()));
            } else if (part.level < 4) {
                isInside = part.level == 3 && part.tag == kCertificates;
            }
        }
        if (certificates.size() == before)
            throw Refused::by_system(NO_DATA_ERROR, name, "It holds no certificate.");
    }

    // add_file takes a file's blocks of PEM, or else the file as one.
    static void add_file(std::vector<Certificate>& certificates, const std::string& file) {
        constexpr std::string_view kBegin = "-----BEGIN";
        const bool isFile = !is_standard_stream(file);
        const std::string name = isFile ? file : "standard input";
        const SecretBytes content = Input(file).read_all();
        if (content.empty())
            throw Refused::by_system(NO_DATA_ERROR, name);
        const std::string_view all(as_text(content), content.size());
        const size_t first = all.find(kBegin);
        if (first == all.npos || content[0] == 0x30) {
            add(certificates, file, binary_content(content, name));
            return;
        }
        for (size_t begin = first, next; begin != all.npos; begin = next) {
            next = all.find(kBegin, begin + kBegin.size());
            const std::string_view block = all.substr(begin, next == all.npos ? next : next - begin);
            add(certificates, file, binary_content(SecretBytes(block.begin(), block.end()), name));
        }
    }

    // refusal says why a certificate may not issue others, or nothing. isAnchor: the path begins with it, and
    // somebody trusts it whatever it says.
    static std::string refusal(const Certificate& issuer, bool isAnchor) {
        constexpr std::string_view kKeyUsage = "\x06\x03\x55\x1D\x0F"; // its OID (RFC 5280, 4.2.1.3)
        const int version = issuer.number("version");
        if (version < 3)
            return isAnchor ? ""
                            : "is of version " + std::to_string(version) + ", which has no authorities (CA)";
        if (issuer.number("isCA") != 1)
            return "is not the certificate of an authority (CA)";
        const int usage = issuer.number("keyUsageFlags");
        const bool hasUsage =
            usage != 0 || std::string_view(as_text(issuer.der), issuer.der.size()).find(kKeyUsage) !=
                              std::string_view::npos;
        if (hasUsage && (usage < 0 || (usage & ZUL_KEYUSAGE_KEYCERTSIGN) == 0))
            return "holds a key that is not for signing certificates (keyCertSign)";
        return "";
    }

    // The library does not ask whether a certificate may issue others.
    void check_authorities(const std::vector<Certificate>& certificates) const {
        for (const Certificate& issuer : certificates) {
            const bool isAnchor =
                trusted.empty() ? issuer.was_signed_by(issuer) : issuer == certificates.back();
            const std::string reason = refusal(issuer, isAnchor);
            if (reason.empty())
                continue;
            for (const Certificate& issued : certificates)
                if (issued != issuer && issued.was_signed_by(issuer))
                    throw Refused::by_system(ISSUER_ERROR, issuer.argument.name(),
                                             "It issued another certificate of the path, but " + reason +
                                                 ".");
        }
    }

    void check_arguments() const {
        const auto standard = std::count(files.begin(), files.end(), "-");
        if (standard + (is_standard_stream(trusted) ? 1 : 0) > 1)
            throw UsageError("only one thing can come from standard input");
        if (files.size() > kMost)
            too_many(files.size());
    }
    [[noreturn]] static void too_many(size_t count) {
        throw UsageError("a path has at most 20 certificates; here are " + std::to_string(count));
    }

    void run() const {
        check_arguments();
        std::vector<Certificate> certificates;
        for (const std::string& file : files)
            add_file(certificates, file);
        const size_t listed = certificates.size();
        if (listed > kMost)
            too_many(listed);
        if (!trusted.empty())
            certificates.emplace_back(trusted, der_of(trusted));
        std::string list;
        for (size_t i = 0; i < certificates.size(); ++i) {
            const Certificate& each = certificates[i];
            accept_length(each.number("version"), each.argument.name());
            if (i < listed)
                list += (list.empty() ? "" : ";") + std::string(each.argument.text());
        }
        accept_length(X509_ValidatePath(list.c_str(),
                                        trusted.empty() ? nullptr : certificates.back().argument.text(),
                                        ignoreDates ? 1 : 0),
                      "path");
        check_authorities(certificates);
        Output("-").write(std::string("valid path, from ") +
                          (trusted.empty() ? "a self-signed certificate of its own, which is for you to trust"
                                           : "the trusted " + certificates.back().argument.name()) +
                          " (not checked: " + (ignoreDates ? "dates, " : "") +
                          "revocation, path lengths, what else extensions say)\n");
    }
};

} // namespace

void add_cert_path_command(CLI::App& group) {
    auto path = std::make_shared<PathCommand>();
    CLI::App* command = group.add_subcommand("path", "Order certificates into a path and check it");
    command->callback([path] { path->run(); });
    command
        ->add_option("FILE", path->files,
                     "Certificates in any order, a PKCS #7 bundle, or PEM with several certificates")
        ->required()
        ->option_text(" ");
    command
        ->add_option("--trusted", path->trusted, "The certificate, or its issuer, that the path begins with")
        ->option_text("FILE");
    command->add_flag("--ignore-dates", path->ignoreDates, "Accept what has expired or is not valid yet");
    command->footer(
        "Checked: signatures, names, dates, whether issuers are authorities (CA) and their keys for signing\n"
        "certificates (keyCertSign). Not checked: revocation, path lengths, name constraints and all other\n"
        "extensions. An issuer of version 1 or 2, which knows no authorities, must be the path's first\n"
        "certificate, self-signed or --trusted. Exit status 1 for a path that is not valid.\n\n"
        "Example:\n  zul cert path --trusted root.pem alice.pem intermediate.pem");
}

} // namespace tool
