#include "object_signature.h"

#include "der.h"
#include "object_lists.h"

namespace tool {

namespace {

constexpr std::string_view kEd25519 = "id-Ed25519";

// signature_algorithm gives the name that SIG_Verify has for an object's algorithm.
std::string signature_algorithm(const ObjectArgument& object) {
    constexpr std::string_view kEcdsa = "ecdsa-with-SHA";
    const std::string name = cert_query(object.text(), object.name(), "signatureAlgorithm");
    if (name == kEd25519)
        return "ed25519";
    return name.starts_with(kEcdsa) ? "ecdsa-sha" + name.substr(kEcdsa.size()) : name;
}

} // namespace

std::string not_signed_by(const ObjectArgument& signer) {
    return "It was not signed with the key of " + signer.name() + ", or it was changed.";
}

bool has_new_key(const ObjectArgument& certificate) {
    char algorithm[32] = "";
    const int length =
        CERT_Query(algorithm, sizeof algorithm - 1, certificate.text(), "publicKeyAlgorithm", 0);
    const std::string_view name = algorithm;
    return length > 0 && (name == "id-ecPublicKey" || name == kEd25519);
}

void verify_with_new_key(const SecretBytes& object, const std::string& name, const ObjectArgument& signer) {
    constexpr unsigned char kBitString = 0x03;
    const std::string publicKey = cert_query(signer.text(), signer.name(), "publicKey");
    const SecretBytes key = key_string(signer.name(), [&publicKey](char* out, int room) {
        return KEY_Read(out, room, publicKey.c_str(), nullptr, 0);
    });
    const std::string algorithm = signature_algorithm(ObjectArgument(name, object));
    if (algorithm != "ed25519" && !algorithm.starts_with("ecdsa-"))
        throw Refused::by_system(SIGNATURE_ERROR, name, not_signed_by(signer));
    std::vector<DerPart> parts;
    for (const DerPart& part : der_parts(object, name, 1))
        if (part.level == 1)
            parts.push_back(part);
    // tbsCertificate or the like, signatureAlgorithm, signature: whole octets
    if (parts.size() != 3 || parts[2].tag != kBitString || parts[2].content.empty() ||
        parts[2].content[0] != 0)
        throw Refused::by_system(BAD_FORMAT_ERROR, name);
    const auto bytes = [](std::string_view text) {
        return reinterpret_cast<const unsigned char*>(text.data());
    };
    const std::string_view signature = parts[2].content.substr(1), data = parts[0].all;
    const int result = SIG_Verify(bytes(signature), static_cast<int>(signature.size()), bytes(data),
                                  static_cast<int>(data.size()), as_text(key), algorithm.c_str(), 0);
    // A signature of another algorithm is none of this key.
    if (result == SIGNATURE_ERROR || result == BAD_KEY_ERROR)
        throw Refused::by_library(SIGNATURE_ERROR, name, not_signed_by(signer));
    accept_status(result, name);
}

} // namespace tool
