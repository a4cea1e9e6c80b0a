#include <cstdlib>
#include <cstring>
#include <string>

#include "ec/ed25519.h"
#include "encode/base64.h"
#include "key/signature.h"
#include "zulcore.h"

// The input is the extensions of an authority, the subject and the extensions of a certificate that it has
// issued, and conditions. Both are signed here, so that validation goes beyond the signatures. The result is
// the same again, and what the report says.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

namespace {

std::string tlv(char identifier, const std::string& content) {
    const size_t size = content.size();
    std::string head(1, identifier);
    if (size < 0x80)
        head += static_cast<char>(size);
    else
        head += std::string("\x83", 1) + static_cast<char>(size >> 16) + static_cast<char>(size >> 8) +
                static_cast<char>(size);
    // Three octets of length are not the fewest for what is short.
    if (size >= 0x80 && size < 0x100)
        head = std::string(1, identifier) + "\x81" + static_cast<char>(size);
    else if (size >= 0x100 && size < 0x10000)
        head = std::string(1, identifier) + "\x82" + static_cast<char>(size >> 8) + static_cast<char>(size);
    return head + content;
}

const std::string kEd25519 = tlv(0x30, std::string("\x06\x03\x2B\x65\x70", 5));

struct FixedKey : Key {
    explicit FixedKey(uint8_t seed) {
        kind = KeyKind::ed25519;
        isPrivate = true;
        memset(secret.data(), seed, kEd25519Key);
        key_make_public(*this);
    }
};

std::string name_of(const char* text) {
    return tlv(0x30, tlv(0x31, tlv(0x30, std::string("\x06\x03\x55\x04\x03", 5) + tlv(0x0C, text))));
}

std::string certificate(const Key& issuerKey, const std::string& issuer, const Key& key,
                        const std::string& subject, const std::string& extensions) {
    const std::string bits(reinterpret_cast<const char*>(key.point), kEd25519Key);
    const std::string tbs =
        tlv(0x30, tlv('\xA0', std::string("\x02\x01\x02", 3)) + std::string("\x02\x01\x01", 3) + kEd25519 +
                      issuer + tlv(0x30, tlv(0x17, "250101000000Z") + tlv(0x17, "350101000000Z")) + subject +
                      tlv(0x30, kEd25519 + tlv(3, std::string(1, '\0') + bits)) +
                      (extensions.empty() ? "" : tlv('\xA3', tlv(0x30, extensions))));
    SecretBuffer signature;
    SignatureBytes input(reinterpret_cast<const uint8_t*>(tbs.data()), tbs.size());
    SignatureAlgorithm algorithm{SignatureScheme::ed25519, 0, 0, PssSalt::digest, 0};
    require(signature_make(signature, issuerKey, algorithm, input, 0) == 0);
    const std::string der =
        tlv(0x30,
            tbs + kEd25519 + tlv(3, std::string(1, '\0') + std::string(signature.text(), signature.size())));
    std::string text(b64_encoded_length(der.size()) + 1, '\0');
    text.resize(
        b64_encode(text.data(), text.size(), reinterpret_cast<const uint8_t*>(der.data()), der.size()));
    return "-----BEGIN X-----\n" + text + "\n-----END X-----\n";
}

// take cuts a field off, whose length stands before it in two bytes.
std::string take(std::string& rest) {
    if (rest.size() < 2)
        return {};
    const size_t size =
        static_cast<size_t>(static_cast<uint8_t>(rest[0])) << 8 | static_cast<uint8_t>(rest[1]);
    const std::string field = rest.substr(2, size);
    rest.erase(0, 2 + field.size());
    return field;
}

constexpr const char* kConditions[] = {
    "time=2026-01-01",
    "time=2026-01-01;explicitPolicy;policy=1.2.3,1.2.4",
    "time=2026-01-01;explicitPolicy;inhibitMapping;inhibitAnyPolicy",
    "time=2026-01-01;host=www.example.com;purpose=server",
    "time=2026-01-01;email=a@example.com;purpose=email;revocation=known",
    "time=2026-01-01;ip=192.0.2.1;purpose=ocsp;anchor=key",
    "time=2026-01-01;purpose=timestamp;maxDepth=1;revocation=all",
    "time=2036-01-01;purpose=code",
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const FixedKey rootKey(1), authorityKey(2), leafKey(3);
    static const std::string rootName = name_of("Root"), authorityName = name_of("CA"),
                             basicConstraints = tlv(
                                 0x30, std::string("\x06\x03\x55\x1D\x13\x04\x05\x30\x03\x01\x01\xFF", 12)),
                             root = certificate(rootKey, rootName, rootKey, rootName, basicConstraints);
    if (size < 1)
        return 0;
    const char* conditions = kConditions[data[0] & 7];
    const int options = ((data[0] & 8) != 0 ? ZUL_CERT_WEB : 0) | ((data[0] & 16) != 0 ? ZUL_CERT_JSON : 0);
    std::string rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string authorityExtensions = take(rest), subject = take(rest);
    const std::string authority =
        certificate(rootKey, rootName, authorityKey, authorityName, basicConstraints + authorityExtensions);
    const std::string leaf = certificate(authorityKey, authorityName, leafKey, subject, rest);

    const auto check = [&](std::string& report) {
        report.assign(100000, '\0');
        const int code = CERT_CheckPath(report.data(), 99999, leaf.c_str(), authority.c_str(), root.c_str(),
                                        nullptr, conditions, options);
        report.resize(strlen(report.c_str()));
        return code;
    };
    std::string first, second;
    const int code = check(first);
    require(check(second) == code && first == second);
    const std::string valid =
        (options & ZUL_CERT_JSON) != 0 ? "\"result\":\"valid\"" : "  result                      valid\n";
    require((first.find(valid) != std::string::npos) == (code == 0) || code == SHORT_BUF_ERROR);
    return 0;
}
