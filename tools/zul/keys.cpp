#include "keys.h"

#include <CLI/CLI.hpp>

#include "activity.h"
#include "failures.h"
#include "key_forms.h"
#include "streams.h"

namespace tool {

SecretBytes key_string(const std::string& name, const std::function<int(char* out, int room)>& call) {
    constexpr int kRoom = 90000; // more than the longest key string
    SecretBytes text(kRoom + 1);
    const int result = call(reinterpret_cast<char*>(text.data()), kRoom);
    if (result == -DECRYPT_ERROR)
        throw Refused::by_system(DECRYPT_ERROR, name,
                                 "The password is not the right one, or the file was damaged.");
    text.resize(static_cast<size_t>(accept_length(result, name)) + 1);
    return text;
}

Key Key::from_xml(const SecretBytes& content, const std::string& name) {
    SecretBytes xml = content;
    xml.push_back('\0');
    Key key;
    key.text_ =
        key_string(name, [&](char* out, int room) { return RSA_FromXMLString(out, room, as_text(xml), 0); });
    key.form_ = key.is_private() ? "private key (XML)" : "public key (XML)";
    return key;
}

Key Key::read(const std::string& file, const PasswordOption& password) {
    const std::string name = shown_name(file);
    return read_content(Input(file).read_all(), name, [&] { return password.read(in_quotes(name)); });
}

Key Key::read_content(const SecretBytes& content, const std::string& name,
                      const std::function<SecretBytes()>& ask) {
    if (is_key_xml(content))
        return from_xml(content, name);
    const KeyText source = key_text(content, name);
    const SecretBytes secret = source.isEncrypted ? ask() : SecretBytes(1);
    Key key;
    key.form_ = source.form;
    const Activity activity("reading the key");
    key.text_ = key_string(name, [&](char* out, int room) {
        return KEY_Read(out, room, as_text(source.text), as_text(secret), 0);
    });
    return key;
}

Key Key::make(const std::string& type) {
    Key key;
    key.form_ = "private key";
    const Activity activity("making the key");
    key.text_ = key_string(type, [&](char* out, int room) { return KEY_Make(out, room, type.c_str(), 0); });
    return key;
}

Key Key::without_private() const {
    if (!is_private())
        return *this;
    Key key;
    key.form_ = "public key";
    key.text_ = key_string("key", [&](char* out, int room) { return KEY_Public(out, room, text()); });
    return key;
}

std::string Key::kind() const {
    const std::string curve = query("curve");
    return curve.empty() ? type() : curve;
}

std::string Key::query(const char* what) const {
    return as_text(
        key_string("key", [&](char* out, int room) { return KEY_Query(out, room, text(), what, 0); }));
}

void Key::check(const std::string& file) const {
    const Activity activity("checking the key");
    if (is_rsa()) // compares the two exponents too
        accept_length(RSA_CheckKey(text(), 0), file, "It does not undo its public part.");
    else
        accept_status(KEY_Check(text(), 0), file);
}

int Key::number(const char* query) const {
    return accept_length(KEY_Query(nullptr, 0, text(), query, 0), "key");
}

void KeyFileOption::add_to(CLI::App& command, const std::string& what) {
    command.add_option("-k,--key-file", file_, "Needed: " + what)->required()->option_text("FILE");
    password_.add_to(command, "password", "Password of an encrypted key");
}

void KeyFileOption::refuse_output(const std::string& in, const std::string& out) const {
    refuse_same_file(in, out, "The output would replace the input.");
    refuse_same_file(file_, out, "The output would replace the key.");
    password_.refuse_output(out);
}

Key KeyFileOption::read(const std::string& in) const {
    refuse_shared_input({is_standard_stream(file_), is_standard_stream(in), password_.is_standard_input()});
    return Key::read(file_, password_);
}

Key KeyFileOption::read_private(const std::string& in) const {
    Key key = read(in);
    if (!key.is_private())
        throw Refused::by_system(BAD_FORMAT_ERROR, file_,
                                 "This takes a private key; here is a " + key.form() + ".");
    return key;
}

Key KeyFileOption::read_public(const std::string& in) const {
    return read(in).without_private();
}

} // namespace tool
