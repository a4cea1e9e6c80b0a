#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstring>
#include <deque>

#include "zul_tool.h"

namespace tool {

namespace {

std::deque<SecretBytes>& hidden_arguments() {
    static std::deque<SecretBytes> values;
    return values;
}

std::string hide(char* value) {
    const size_t length = std::strlen(value);
    hidden_arguments().emplace_back(value, value + length);
    std::memset(value, '*', length);
    return std::to_string(hidden_arguments().size() - 1);
}

bool is_white_space(unsigned char c) {
    return std::isspace(c) != 0;
}
bool is_hex_digit(unsigned char c) {
    return std::isxdigit(c) != 0;
}

std::string byte_count(size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

[[noreturn]] void wrong_length(const std::string& source, size_t got, size_t bytes,
                               const std::string& algorithm, const char* forms) {
    throw UsageError(source + " holds " + byte_count(got) + "; " + algorithm + " needs " + byte_count(bytes) +
                     forms + std::to_string(2 * bytes) + " hex digits)");
}

} // namespace

std::vector<std::string> take_arguments(int argc, char** argv) {
    static constexpr std::string_view kSecrets[] = {"--key", "--kek", "--data", "--password",
                                                    "--new-password"};
    const std::vector<std::string> exact = exact_arguments(argc, argv);
    std::vector<std::string> arguments;
    bool areOptions = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = exact[static_cast<size_t>(i)];
        if (argument.empty())
            throw UsageError("argument " + std::to_string(i) + " is empty");
        areOptions = areOptions && argument != "--";
        const std::string_view name = argument.substr(0, argument.find('='));
        const bool secret = std::find(std::begin(kSecrets), std::end(kSecrets), name) != std::end(kSecrets);
        if (secret && name.size() < argument.size()) {
            const std::string option(name);
            arguments.push_back(option + "=" + hide(argv[i] + name.size() + 1));
            continue;
        }
        if (areOptions && argument.starts_with("--") && name.size() + 1 == argument.size())
            throw UsageError("the value of " + std::string(name) + " is empty");
        arguments.emplace_back(argument);
        if (secret && i + 1 < argc) // whatever it begins with
            arguments.push_back(hide(argv[++i]));
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

const SecretBytes& hidden_argument(const std::string& mark) {
    return hidden_arguments().at(std::stoul(mark));
}

SecretBytes decode_hex(const unsigned char* text, size_t length, const std::string& source) {
    SecretBytes digits;
    digits.reserve(length + 1);
    for (size_t i = 0; i < length; ++i) {
        if (is_hex_digit(text[i]))
            digits.push_back(text[i]);
        else if (!is_white_space(text[i]) && text[i] != ':')
            throw UsageError(source + " is not hex: character " + std::to_string(i + 1) +
                             " is not one of 0-9, a-f");
    }
    if (digits.size() % 2 != 0)
        throw UsageError(source + " holds " + std::to_string(digits.size()) +
                         " hex digits; every byte takes two, so an even number is needed");
    SecretBytes bytes(digits.size() / 2 + 1);
    digits.push_back('\0');
    const int count =
        CNV_BytesFromHexStr(bytes.data(), int_length(bytes), reinterpret_cast<const char*>(digits.data()));
    bytes.resize(static_cast<size_t>(accept_length(count, source)));
    return bytes;
}

SecretBytes decode_hex(std::string_view text, const std::string& source) {
    return decode_hex(reinterpret_cast<const unsigned char*>(text.data()), text.size(), source);
}

SecretBytes hex_line(const SecretBytes& bytes) {
    SecretBytes text(2 * bytes.size() + 1);
    accept_length(CNV_HexStrFromBytes(reinterpret_cast<char*>(text.data()), int_length(text) - 1,
                                      bytes.data(), int_length(bytes)),
                  "hex");
    text.back() = '\n';
    return text;
}

SecretBytes hex_or_raw(SecretBytes content, const std::string& source) {
    const bool isHex = std::any_of(content.begin(), content.end(), is_hex_digit) &&
                       std::all_of(content.begin(), content.end(),
                                   [](unsigned char c) { return is_hex_digit(c) || is_white_space(c); });
    if (!isHex)
        return content;
    return decode_hex(content.data(), content.size(), source);
}

void KeyOption::add_to(CLI::App& command, const std::string& name, const std::string& what) {
    name_ = "--" + name;
    command
        .add_option(name_, mark_, what + " in hex (--" + name + "-file keeps it out of the shell's history)")
        ->type_name("HEX");
    command.add_option(name_ + "-file", file_, what + " from a file")->type_name("FILE");
}

void KeyOption::require_one() const {
    if (mark_.empty() && file_.empty())
        throw UsageError("a key is needed: " + name_ + " HEX or " + name_ + "-file FILE");
    if (!mark_.empty() && !file_.empty())
        throw UsageError("give " + name_ + " or " + name_ + "-file, not both");
}

SecretBytes KeyOption::read_exactly(size_t bytes, const std::string& algorithm) const {
    require_one();
    if (!mark_.empty()) {
        const SecretBytes& text = hidden_argument(mark_);
        SecretBytes key = decode_hex(text.data(), text.size(), name_);
        if (key.size() != bytes)
            wrong_length(name_, key.size(), bytes, algorithm, " (");
        return key;
    }
    const std::string source = name_ + "-file " + in_quotes(file_);
    SecretBytes content = Input(file_).read_all();
    if (content.size() == bytes)
        return content;
    SecretBytes key = hex_or_raw(std::move(content), source);
    if (key.size() != bytes)
        wrong_length(source, key.size(), bytes, algorithm, " (raw, or as ");
    return key;
}

SecretBytes KeyOption::read_any() const {
    require_one();
    if (!file_.empty())
        return Input(file_).read_all();
    const SecretBytes& text = hidden_argument(mark_);
    return decode_hex(text.data(), text.size(), name_);
}

} // namespace tool
