#include "certificate_path.h"

#include <algorithm>

#include "armour.h"
#include "der.h"
#include "streams.h"

namespace tool {

namespace {

// add takes a certificate, or those of a bundle (SignedData, RFC 5652, 5.1), which the library would check
// without telling which they are.
void add(std::vector<Certificate>& certificates, const std::string& file, SecretBytes content) {
    constexpr unsigned char kOid = 0x06, kSequence = 0x30, kCertificates = 0xA0;
    const std::string name = shown_name(file);
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

// refusal says why a certificate may not issue others, or nothing. isAnchor: the path begins with it, and
// somebody trusts it whatever it says.
std::string refusal(const Certificate& issuer, bool isAnchor) {
    constexpr std::string_view kKeyUsage = "\x06\x03\x55\x1D\x0F"; // its OID (RFC 5280, 4.2.1.3)
    const int version = issuer.number("version");
    if (version < 3)
        return isAnchor ? "" : "is of version " + std::to_string(version) + ", which has no authorities (CA)";
    if (issuer.number("isCA") != 1)
        return "is not the certificate of an authority (CA)";
    const int usage = issuer.number("keyUsageFlags");
    const bool hasUsage =
        usage != 0 ||
        std::string_view(as_text(issuer.der), issuer.der.size()).find(kKeyUsage) != std::string_view::npos;
    if (hasUsage && (usage < 0 || (usage & ZUL_KEYUSAGE_KEYCERTSIGN) == 0))
        return "holds a key that is not for signing certificates (keyCertSign)";
    return "";
}

// The library does not ask whether a certificate may issue others.
void check_authorities(const std::vector<Certificate>& certificates, const Certificate* trusted) {
    const auto check = [&](const Certificate& issuer) {
        const bool isAnchor = trusted == nullptr ? issuer.was_signed_by(issuer) : issuer == *trusted;
        const std::string reason = refusal(issuer, isAnchor);
        if (reason.empty())
            return;
        for (const Certificate& issued : certificates)
            if (issued != issuer && issued.was_signed_by(issuer))
                throw Refused::by_system(ISSUER_ERROR, issuer.name(),
                                         "It issued another certificate of the path, but " + reason + ".");
    };
    std::for_each(certificates.begin(), certificates.end(), check);
    if (trusted != nullptr)
        check(*trusted);
}

} // namespace

Certificate read_certificate(const std::string& file) {
    Certificate certificate(file, der_of(file));
    accept_length(certificate.number("version"), certificate.name());
    return certificate;
}

void add_certificates(std::vector<Certificate>& certificates, const std::string& file) {
    constexpr std::string_view kBegin = "-----BEGIN";
    const std::string name = shown_name(file);
    const SecretBytes content = Input(file).read_all();
    if (content.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    const size_t before = certificates.size();
    const std::string_view all(as_text(content), content.size());
    const size_t first = all.find(kBegin);
    if (first == all.npos || content[0] == 0x30) {
        add(certificates, file, binary_content(content, name));
    } else {
        for (size_t begin = first, next; begin != all.npos; begin = next) {
            next = all.find(kBegin, begin + kBegin.size());
            const std::string_view block = all.substr(begin, next == all.npos ? next : next - begin);
            add(certificates, file, binary_content(SecretBytes(block.begin(), block.end()), name));
        }
    }
    for (size_t i = before; i < certificates.size(); ++i)
        accept_length(certificates[i].number("version"), name);
}

std::string certificate_list(const std::vector<Certificate>& certificates) {
    std::string list;
    for (const Certificate& each : certificates)
        list += (list.empty() ? "" : ";") + std::string(each.argument.text());
    return list;
}

void check_path(const std::vector<Certificate>& certificates, const Certificate* trusted, bool ignoreDates,
                const std::string& hint) {
    accept_length(X509_ValidatePath(certificate_list(certificates).c_str(),
                                    trusted == nullptr ? nullptr : trusted->argument.text(),
                                    ignoreDates ? 1 : 0),
                  "path", hint);
    check_authorities(certificates, trusted);
}

std::vector<Certificate> path_to_trusted(const Certificate& last, const std::vector<Certificate>& others,
                                         const Certificate& trusted) {
    struct Step {
        const Certificate* certificate;
        size_t issued; // the step that it was reached from
    };
    std::vector<Step> steps = {{&last, 0}};
    for (size_t at = 0; at < steps.size(); ++at) {
        const Certificate& here = *steps[at].certificate;
        if (here == trusted || here.was_signed_by(trusted)) {
            std::vector<Certificate> path;
            for (size_t i = at; i != 0; i = steps[i].issued)
                path.push_back(*steps[i].certificate);
            path.push_back(last);
            return path;
        }
        for (const Certificate& other : others) {
            const bool isNew = std::none_of(steps.begin(), steps.end(),
                                            [&](const Step& step) { return *step.certificate == other; });
            if (isNew && here.was_signed_by(other))
                steps.push_back({&other, at});
        }
    }
    return {last};
}

} // namespace tool
