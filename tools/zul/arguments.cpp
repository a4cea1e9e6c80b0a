#include "arguments.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <string_view>

#include "failures.h"

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

} // namespace

std::vector<std::string> take_arguments(int argc, char** argv) {
    static constexpr std::string_view kSecrets[] = {"--key", "--kek", "--data", "--password",
                                                    "--new-password"};
    std::vector<std::string> arguments;
    bool areOptions = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
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

} // namespace tool
