#include <algorithm>
#include <sstream>
#include <zulcore.h>

#include "algorithms.h"
#include "command_tree.h"

namespace tool {

namespace {

// A row is for the parameter of one command, or of all commands that begin so. The first one that fits
// counts.
struct WordRow {
    std::string_view command, parameter, words;
    ValueKind kind = ValueKind::word;
};

constexpr std::string_view kSigningDigests = "sha256 sha384 sha512 sha224 sha1";
constexpr std::string_view kSignatures =
    "rsa-sha1 rsa-sha224 rsa-sha256 rsa-sha384 rsa-sha512 rsa-pss-sha1 rsa-pss-sha224 rsa-pss-sha256 "
    "rsa-pss-sha384 rsa-pss-sha512 ecdsa-sha1 ecdsa-sha224 ecdsa-sha256 ecdsa-sha384 ecdsa-sha512 ed25519";
constexpr std::string_view kReasons = "unspecified keyCompromise cACompromise affiliationChanged superseded "
                                      "cessationOfOperation certificateHold "
                                      "privilegeWithdrawn aACompromise removeFromCRL";
constexpr WordRow kRows[] = {
    {"zul wrap", "--algorithm", "aes-128 aes-192 aes-256 3des"},
    {"zul unwrap", "--algorithm", "aes-128 aes-192 aes-256 3des"},
    {"zul cms encrypt", "--cipher", "aes-128 aes-192 aes-256 3des"},
    {"zul mail encrypt", "--cipher", "aes-128 aes-192 aes-256 3des"},
    {"zul key make", "--type", "rsa p-256 p-384 p-521 ed25519 x25519"},
    {"zul key make", "--exponent", "3 5 17 257 65537"},
    {"zul key make", "--format", "pem der pem-alt"},
    {"zul key convert", "--format", "pem pem-alt der xml"},
    {"zul key convert", "--structure", "spki pkcs8 pkcs1 sec1"},
    {"zul pfx extract", "--encrypt", "aes-128 aes-192 aes-256 3des"},
    {"zul key", "--encrypt", "aes-128 aes-192 aes-256 3des p12-3des sha1-des md5-des md2-des"},
    {"zul agree", "--kdf", "hkdf-sha256 hkdf-sha384 hkdf-sha512 hkdf-sha224 hkdf-sha1"},
    {"zul", "--kdf", "pbkdf2 scrypt"},
    {"zul", "--prf", "sha256 sha1 sha384 sha512"},
    {"zul rsa-", "--padding", "oaep v1.5"},
    {"zul ca", "--type", "p-256 p-384 p-521 ed25519 rsa rsa-3072 rsa-4096"},
    {"zul ca revoke", "--reason", kReasons},
    {"zul", "--profile", "server client email code ocsp timestamp ca"},
    {"zul", "--purpose", "server client email code timestamp ocsp any"},
    {"zul", "--revocation", "all leaf known none"},
    {"zul", "--usage",
     "digitalSignature nonRepudiation keyEncipherment dataEncipherment keyAgreement keyCertSign cRLSign "
     "encipherOnly decipherOnly",
     ValueKind::wordList},
    {"zul", "--copy", "subjectAltName keyUsage extKeyUsage", ValueKind::wordList},
    {"zul", "--alg", kSignatures},
    {"zul", "--digest", kSigningDigests},
    {"zul encode", "FORMAT", "hex base64 pem"},
    {"zul decode", "FORMAT", "hex base64 pem"},
    {"zul completions", "SHELL", "bash zsh fish powershell"},
    {"zul mail", "--as", "message text attachment"},
    {"zul hash", "--check", "", ValueKind::file},
    {"zul cert check-name", "NAME", "", ValueKind::text},
    {"zul random", "N", "", ValueKind::text},
    {"zul help", "COMMAND", "", ValueKind::text}, // its words depend on those before
};

std::vector<std::string> split(std::string_view text) {
    std::istringstream in{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        if (word.back() == ',')
            word.pop_back();
        words.push_back(word);
    }
    return words;
}

std::vector<std::string> cipher_names() {
    std::vector<std::string> names;
    for (const char* cipher : {"aes-128", "aes-192", "aes-256", "3des"})
        for (const char* mode : {"-cbc", "-ctr", "-cfb", "-ofb", "-ecb"})
            names.push_back(cipher + std::string(mode));
    return names;
}

std::vector<std::string> error_codes() {
    std::vector<std::string> codes;
    for (int code = 0; code <= MISC_ERROR; ++code)
        if (ZUL_ErrorLookup(nullptr, 0, code) > 0)
            codes.push_back(std::to_string(code));
    return codes;
}

// listed_words gives the lines of a footer that are one word each, moved in.
std::vector<std::string> listed_words(const std::string& footer) {
    std::vector<std::string> words;
    std::istringstream in(footer);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with("  ") && line.find(' ', 2) == line.npos)
            words.push_back(line.substr(2));
    return words;
}

// computed_words are those that another place has.
std::vector<std::string> computed_words(const Command& command, const std::string& parameter) {
    const std::string& name = command.name;
    if (name == "zul hash" && parameter == "ALG")
        return split(digest_names(DigestUse::hash));
    if ((name == "zul hmac" && parameter == "ALG") ||
        (name.starts_with("zul kdf ") && parameter == "--digest"))
        return split(digest_names(DigestUse::hmac));
    if ((name == "zul encrypt" || name == "zul decrypt") && parameter == "--algorithm")
        return cipher_names();
    if ((name == "zul sign" || name == "zul verify") && parameter == "--alg") {
        std::vector<std::string> names = split(kSignatures);
        names.push_back("ed25519ph");
        return names;
    }
    if (name == "zul cert query" && parameter == "NAME")
        return listed_words(command.footer);
    if (name == "zul error" && parameter == "CODE")
        return error_codes();
    return {};
}

ValueKind kind_of(const Parameter& parameter) {
    static constexpr std::string_view kFiles[] = {"FILE", "CERT", "CA", "OUT"};
    if (parameter.values == 0)
        return ValueKind::none;
    if (parameter.value == "DIR")
        return ValueKind::folder;
    const bool isFile = parameter.names.empty() ||
                        std::find(std::begin(kFiles), std::end(kFiles), parameter.value) != std::end(kFiles);
    return isFile ? ValueKind::file : ValueKind::text;
}

} // namespace

void find_words(const Command& command, Parameter& parameter) {
    parameter.kind = kind_of(parameter);
    if (parameter.values == 0)
        return;
    const std::string& name = parameter.names.empty() ? parameter.value : parameter.names.back();
    parameter.words = computed_words(command, name);
    if (!parameter.words.empty()) {
        parameter.kind = ValueKind::word;
        return;
    }
    for (const WordRow& row : kRows)
        if (command.name.starts_with(row.command) && name == row.parameter) {
            parameter.kind = row.kind;
            parameter.words = split(row.words);
            return;
        }
}

} // namespace tool
