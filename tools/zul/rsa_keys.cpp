#include "rsa_keys.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "armour.h"
#include "der.h"
#include "failures.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kRoom = 90000; // more than the longest key string

// outline gives a letter for each element at level 1 and one for the first element at level 2: what tells the
// structures of keys apart. Empty if the bytes are not DER.
std::string outline(const SecretBytes& bytes, const std::string& name) try {
    std::string letters;
    DerWalk walk(bytes, name);
    for (DerElement element; walk.next(element);)
        if (element.level == 1)
            switch (element.header[0]) {
            case 0x02:
                letters += 'i'; // INTEGER
                break;
            case 0x03:
                letters += 'b'; // BIT STRING
                break;
            case 0x04:
            case 0x24:
                letters += 'o'; // OCTET STRING
                break;
            case 0x30:
                letters += 's'; // SEQUENCE
                break;
            default:
                letters += '?';
            }
    return letters;
} catch (const Refused&) {
    return {};
}

SecretBytes base64_text(const SecretBytes& bytes, const std::string& name) {
    SecretBytes text((bytes.size() + 2) / 3 * 4 + 1);
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(text.data()), int_length(text) - 1,
                                      bytes.data(), int_length(bytes)),
                  name);
    return text;
}

// What may be the reason if a decryption gave no key; other failures speak for themselves.
std::string decryption_hint() {
    const std::string error = last_error();
    return error.starts_with("Decryption error") || error.find("Not valid PrivateKeyInfo") != error.npos
               ? "The password is not the right one, or the file was damaged."
               : "";
}

// filled calls a function of the library that writes a text of at most kRoom characters.
template<class Call>
SecretBytes filled(const std::string& name, Call call) {
    SecretBytes text(kRoom + 1);
    const int result = call(reinterpret_cast<char*>(text.data()), kRoom);
    const int length = accept_length(result, name, result < 0 ? decryption_hint() : "");
    text.resize(static_cast<size_t>(length) + 1);
    return text;
}

// holds_private_key looks for the outline of one, encrypted or not, or of a PKCS #12 file.
bool holds_private_key(const SecretBytes& content, const std::string& name) try {
    const std::string_view all(as_text(content), content.size());
    if (all.find("PRIVATE KEY-----") != all.npos || all.find("<RSAKeyPair") != all.npos ||
        all.find("<D>") != all.npos)
        return true;
    const std::string letters = outline(binary_content(content, name), name);
    return letters == "so" || letters.starts_with("iso") || letters.starts_with("iiii") || letters == "iss";
} catch (const Refused&) {
    return false;
}

} // namespace

RsaKey RsaKey::from_xml(const SecretBytes& content, const std::string& name) {
    SecretBytes xml = content;
    xml.push_back('\0');
    RsaKey key;
    key.text_ =
        filled(name, [&](char* out, int room) { return RSA_FromXMLString(out, room, as_text(xml), 0); });
    key.form_ = std::string_view(key.text()).starts_with("PVT") ? "private key (XML)" : "public key (XML)";
    return key;
}

RsaKey RsaKey::read(const std::string& file, const PasswordOption& password) {
    const std::string name = shown_name(file);
    const SecretBytes content = Input(file).read_all();
    const std::string_view all(as_text(content), content.size());
    if (all.find("RSAKeyValue") != all.npos || all.find("RSAKeyPair") != all.npos)
        return from_xml(content, name);
    const SecretBytes der = binary_content(content, name);
    if (der.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    const SecretBytes base64 = base64_text(der, name);
    const char* source = as_text(base64);

    const std::string letters = outline(der, name);
    RsaKey key;
    const auto take = [&](const char* form, auto reader) {
        key.form_ = form;
        key.text_ = filled(name, [&](char* out, int room) { return reader(out, room, source); });
    };
    if (letters == "so") {
        key.form_ = "private key, encrypted (PKCS #8)";
        const SecretBytes secret = password.read(in_quotes(name));
        key.text_ = filled(name, [&](char* out, int room) {
            return RSA_ReadEncPrivateKey(out, room, source, as_text(secret), 0);
        });
    } else if (letters == "ii") {
        take("public key (PKCS #1)", RSA_ReadPublicKey);
    } else if (letters == "sb") {
        take("public key (X.509)", RSA_ReadPublicKey);
    } else if (letters == "ssb") {
        take("public key of a certificate", RSA_GetPublicKeyFromCert);
    } else if (letters.starts_with("iso")) {
        take("private key (PKCS #8)", RSA_ReadPrivateKeyInfo);
    } else if (letters.starts_with("iii")) {
        take("private key (PKCS #1)", RSA_ReadPrivateKeyInfo);
    } else {
        throw Refused::by_system(BAD_FORMAT_ERROR, name, "It holds no RSA key and no certificate.");
    }
    return key;
}

RsaKey RsaKey::read_certificate(const char* fileOrText, const std::string& name) {
    RsaKey key;
    key.form_ = "public key of a certificate";
    key.text_ =
        filled(name, [&](char* out, int room) { return RSA_GetPublicKeyFromCert(out, room, fileOrText); });
    return key;
}

RsaKey RsaKey::read_public(const SecretBytes& der, const std::string& name) {
    const SecretBytes base64 = base64_text(der, name);
    RsaKey key;
    key.form_ = "public key (X.509)";
    key.text_ =
        filled(name, [&](char* out, int room) { return RSA_ReadPublicKey(out, room, as_text(base64)); });
    return key;
}

SecretBytes RsaKey::xml(int options) const {
    return filled("key", [&](char* out, int room) { return RSA_ToXMLString(out, room, text(), options); });
}

RsaKey RsaKey::without_private() const {
    if (!is_private())
        return *this;
    return from_xml(xml(ZUL_XML_PUBLIC_ONLY), "key");
}

int RsaKey::bits() const {
    return accept_length(RSA_KeyBits(text()), "key");
}

size_t RsaKey::bytes() const {
    return static_cast<size_t>(accept_length(RSA_KeyBytes(text()), "key"));
}

void RsaKeyOption::add_to(CLI::App& command, const std::string& what) {
    command.add_option("-k,--key-file", file_, "Needed: " + what)->required()->option_text("FILE");
    password_.add_to(command, "password", "Password of an encrypted key");
}

void RsaKeyOption::refuse_output(const std::string& in, const std::string& out) const {
    refuse_same_file(in, out, "The output would replace the input.");
    refuse_same_file(file_, out, "The output would replace the key.");
    password_.refuse_output(out);
}

RsaKey RsaKeyOption::read(const std::string& in) const {
    refuse_shared_input({is_standard_stream(file_), is_standard_stream(in), password_.is_standard_input()});
    return RsaKey::read(file_, password_);
}

RsaKey RsaKeyOption::read_private(const std::string& in) const {
    RsaKey key = read(in);
    if (!key.is_private())
        throw Refused::by_system(BAD_FORMAT_ERROR, file_,
                                 "This takes a private key; here is a " + key.form() + ".");
    return key;
}

RsaKey RsaKeyOption::read_public(const std::string& in) const {
    return read(in).without_private();
}

void KeyEncryption::add_to(CLI::App& command, const std::string& schemeText) {
    command.add_option("--encrypt", scheme, schemeText)->option_text("SCHEME");
    command
        .add_option("--prf", prf,
                    "PBES2: digest of the key derivation, sha256 (the default), sha1, sha384 or sha512")
        ->option_text("DIGEST");
    command.add_option("--count", count, "Iterations of the key derivation (100000)")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()))
        ->option_text("N");
}

void ReplaceOption::add_to(CLI::App& command) {
    command.add_flag("--force", force, "Replace an output file that exists, a private key too");
}

void ReplaceOption::for_private(const std::string& out) const {
    std::error_code ignored;
    if (!force && is_on_disk(out) && std::filesystem::file_size(path_of(out), ignored) > 0)
        throw Refused::by_system(CREATE_ERROR, out, "The file exists already; --force replaces it.");
}

void ReplaceOption::for_public(const std::string& out) const {
    if (!force && is_on_disk(out) && holds_private_key(Input(out).read_all(), out))
        throw Refused::by_system(CREATE_ERROR, out, "The file holds a private key; --force replaces it.");
}

int find_key_format(const std::string& name) {
    const std::string lower = CLI::detail::to_lower(name);
    if (lower == "der")
        return 0;
    if (lower == "pem")
        return ZUL_KEY_FORMAT_PEM;
    if (lower == "pem-alt")
        return ZUL_KEY_FORMAT_PEM_ALT;
    throw UsageError("unknown format " + in_quotes(name) + "; formats: der, pem, pem-alt");
}

} // namespace tool
