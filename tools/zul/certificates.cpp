#include "certificates.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <system_error>

#include "armour.h"
#include "description_options.h"
#include "json_output.h"
#include "object_lists.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

SecretBytes pem_text(const SecretBytes& der) {
    SecretBytes base64((der.size() + 2) / 3 * 4 + 1);
    accept_length(CNV_B64StrFromBytes(reinterpret_cast<char*>(base64.data()), int_length(base64) - 1,
                                      der.data(), int_length(der)),
                  "standard input");
    base64.pop_back();
    SecretBytes text;
    const auto add = [&text](std::string_view part) { text.insert(text.end(), part.begin(), part.end()); };
    add("-----BEGIN DATA-----\n");
    for (size_t at = 0; at < base64.size(); at += 64) {
        add(std::string_view(as_text(base64) + at, std::min<size_t>(64, base64.size() - at)));
        add("\n");
    }
    add(std::string_view("-----END DATA-----\n\0", 20));
    return text;
}

} // namespace

SecretBytes der_of(const std::string& file) {
    const std::string name = shown_name(file);
    SecretBytes der = binary_content(Input(file).read_all(), name);
    if (der.empty())
        throw Refused::by_system(NO_DATA_ERROR, name);
    return der;
}

ObjectArgument::ObjectArgument(const std::string& file) : name_(shown_name(file)) {
    if (!is_on_disk(file)) {
        text_ = pem_text(der_of(file));
    } else {
        const Input readable(file); // or refused under its own name, which the library does not tell
        text_.assign(file.begin(), file.end());
        text_.push_back('\0');
    }
}

ObjectArgument::ObjectArgument(const std::string& file, const SecretBytes& content)
    : name_(shown_name(file)), text_(pem_text(content)) {}

ObjectArgument certificate_object(const std::string& file) {
    ObjectArgument object(file);
    accept_length(X509_QueryCert(nullptr, 0, object.text(), "version", 0), object.name());
    return object;
}

ScratchFile::ScratchFile(bool isSecret)
    : isSecret_(isSecret), folder_(temporary_folder() + "zul-" + random_serial()) {
    if (!create_folder_for_owner(folder_))
        throw Refused::by_system(CREATE_ERROR, folder_,
                                 "What is made goes to a folder for temporary files first; " +
                                     std::string(temporary_variable()) + " says which.");
    path_ = folder_ + "/made";
    remove_on_signal(folder_, path_);
}

ScratchFile::~ScratchFile() {
    remove();
}

void ScratchFile::remove() const {
    std::error_code ignored;
    if (isSecret_)
        WIPE_File(path_.c_str(), 0);
    std::filesystem::remove_all(path_of(folder_), ignored);
    keep_on_signal(folder_, path_);
}

void ScratchFile::deliver(const std::string& out) const {
    Input made(path_);
    Output output(out);
    copy_all(made, output);
}

void ScratchFile::deliver_der(const std::string& out) const {
    const SecretBytes der = der_of(path_);
    remove();
    write_file(out, der);
}

std::string readable(std::string_view latin1, bool keepLineFeeds) {
    std::string text;
    for (size_t i = 0; i < latin1.size(); ++i) {
        const char each = latin1[i];
        const auto c = static_cast<unsigned char>(each);
        if (keepLineFeeds && latin1.substr(i).starts_with("\r\n"))
            continue; // the line end of a text file on Windows
        if (each == '\n' ? keepLineFeeds : c >= 0x20 && c < 0x7F) {
            text += each;
        } else if (c < 0xA0) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02x", c);
            text += escape;
        } else {
            text += static_cast<char>(0xC0 | c >> 6);
            text += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return text;
}

std::string query(const ObjectArgument& certificate, const char* name) {
    const int options = ZUL_X509_LATIN1;
    const int room =
        accept_length(X509_QueryCert(nullptr, 0, certificate.text(), name, options), certificate.name());
    std::string text(static_cast<size_t>(room), '\0'); // its own NUL is the room for the terminator
    if (room > 0)
        accept_length(X509_QueryCert(text.data(), room, certificate.text(), name, options),
                      certificate.name());
    return readable(text);
}

Key signing_key(const KeyFileOption& key, const std::string& in) {
    Key privateKey = key.read_private(in);
    privateKey.check("key");
    return privateKey;
}

void SigningOptions::add_to(CLI::App& command) {
    command.add_option("-d,--digest", digest, "Digest of the signature (sha256, or what the curve has)")
        ->option_text("DIGEST");
    command.add_option("--alg", alg, "Algorithm of the signature, such as rsa-pss-sha256")
        ->option_text("ALG");
    command.add_flag("--pem", pem, "Write PEM (the default)");
    command.add_flag("--der", der, "Write DER");
}

const Digest& SigningOptions::checked_digest() const {
    if (der && pem)
        throw UsageError("--pem and --der exclude each other");
    if (!digest.empty() && !alg.empty())
        throw UsageError("--digest and --alg exclude each other");
    const Digest& algorithm = find_digest(digest_name());
    if (algorithm.option == ZUL_HASH_MD5 || algorithm.option == ZUL_HASH_MD2)
        warn(std::string(algorithm.name) + " signatures can be forged; take them for tests only");
    return algorithm;
}

void SigningOptions::put(Description& description, const Key& signer) const {
    const std::string name = checked_digest().name;
    if (!alg.empty())
        description.pair("signature", alg);
    if (digest.empty())
        return;
    const std::string type = signer.type();
    if (type != "rsa" && type != "rsa-pss" && type != "ec")
        throw UsageError("--digest is for RSA and EC keys; a key of type " + type + " has no choice there");
    description.pair("signature", (type == "ec" ? "ecdsa" : type) + "-" + name);
}

int SigningOptions::algorithm() const {
    if (!alg.empty())
        throw UsageError("the old forms take --digest, not --alg");
    return checked_digest().option;
}

void add_show_command(CLI::App& group, const std::string& what, const std::string& example) {
    struct Show {
        std::string file, out = "-";
        bool json = false;
    };
    auto show = std::make_shared<Show>();
    CLI::App* command = group.add_subcommand("show", "Describe " + what);
    command->add_option("FILE", show->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("-o,--out", show->out, "Output file (standard output)")->option_text("FILE");
    add_json_flag(*command, show->json);
    command->footer(
        "All objects in the file are shown: certificates, requests, revocation lists, OCSP responses.\n"
        "Nothing is checked: what is shown may be forged. The text is UTF-8; characters that could\n"
        "steer a terminal are escaped.\n\nExample:\n  " +
        example);
    command->callback([show] {
        refuse_same_file(show->file, show->out);
        const std::string report = cert_report(object_list({show->file}), show->file, show->json);
        Output out(show->out);
        out.write(report);
        out.finish();
    });
}

} // namespace tool
