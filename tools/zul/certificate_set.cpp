#include "certificate_set.h"

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

} // namespace tool
