#include "rsa_keys.h"

#include "failures.h"

namespace tool {

RsaKey::RsaKey(Key key, const std::string& file) : Key(std::move(key)) {
    if (!is_rsa())
        throw Refused::by_system(BAD_KEY_ERROR, file,
                                 "This takes an RSA key; here is one of type " + kind() + ".");
}

RsaKey RsaKey::read_certificate(const char* fileOrText, const std::string& name) {
    RsaKey key;
    key.form_ = "public key of a certificate";
    key.text_ = key_string(
        name, [&](char* out, int room) { return RSA_GetPublicKeyFromCert(out, room, fileOrText); });
    return key;
}

RsaKey RsaKey::read_public(const SecretBytes& der, const std::string& name) {
    SecretBytes base64((der.size() + 2) / 3 * 4 + 1);
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(base64.data()), int_length(base64) - 1,
                                      der.data(), int_length(der)),
                  name);
    RsaKey key;
    key.form_ = "public key (X.509)";
    key.text_ =
        key_string(name, [&](char* out, int room) { return RSA_ReadPublicKey(out, room, as_text(base64)); });
    return key;
}

SecretBytes RsaKey::xml(int options) const {
    return key_string("key",
                      [&](char* out, int room) { return RSA_ToXMLString(out, room, text(), options); });
}

size_t RsaKey::bytes() const {
    return static_cast<size_t>(accept_length(RSA_KeyBytes(text()), "key"));
}

} // namespace tool
