#include "pfx_input.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>

#include "operating_system.h"

namespace tool {

void PfxPassword::add_to(CLI::App& command, const std::string& what) {
    option.add_to(command, "password", what);
    command.add_flag("--empty-password", isEmpty, "The password of the file is the empty one");
}

void PfxPassword::check(const std::vector<std::string>& inputs) const {
    if (isEmpty && option.is_given())
        throw UsageError("--empty-password and --password exclude each other");
    const auto fromInput = std::count_if(inputs.begin(), inputs.end(), is_standard_stream);
    refuse_shared_input({fromInput > 0, fromInput > 1, option.is_standard_input()});
}

SecretBytes PfxPassword::read(const std::string& subject) const {
    return isEmpty ? SecretBytes(1, 0) : option.read(subject);
}

void PfxInput::add_to(CLI::App& command) {
    command.add_option("FILE", file, "The PKCS #12 file; - for standard input")->required()->option_text(" ");
    password.add_to(command, "Password of FILE");
    command.add_flag("--need-mac", needsMac, "Refuse a file without a MAC");
    command.add_flag("--trust", isTrusted, "Take a file without a MAC without a warning");
}

void PfxInput::check() const {
    password.check({file});
    if (needsMac && isTrusted)
        throw UsageError("--need-mac and --trust exclude each other");
}

// The first call demands a MAC: whether the file has one is then known of the very bytes that are used.
int PfxInput::read(const ObjectArgument& pfx, const std::function<int(int options)>& call) const {
    int result = call(ZUL_P12_NEED_MAC);
    if (std::abs(result) == SIGNATURE_ERROR && !needsMac) {
        if (!isTrusted)
            warn(pfx.name() + " has no MAC: anybody may have changed it");
        result = call(0);
    }
    return result;
}

std::vector<SecretBytes> certificate_blocks(const SecretBytes& text) {
    constexpr std::string_view kBegin = "-----BEGIN ", kEnd = "-----END ", kDashes = "-----";
    std::vector<SecretBytes> blocks;
    const std::string_view all(as_text(text), text.size());
    for (size_t begin = all.find(kBegin), next; begin != all.npos; begin = next) {
        next = all.find(kBegin, begin + kBegin.size());
        const std::string_view part = all.substr(begin, next == all.npos ? next : next - begin);
        const size_t labelEnd = part.find(kDashes, kBegin.size());
        const std::string_view label = part.substr(0, labelEnd).substr(kBegin.size());
        if (label != "CERTIFICATE" && label != "X509 CERTIFICATE")
            continue;
        const size_t end = part.find('\n', part.find(kEnd));
        const std::string_view block = part.substr(0, end == part.npos ? end : end + 1);
        blocks.emplace_back(block.begin(), block.end());
    }
    return blocks;
}

void refuse_der_at_terminal(const std::string& out, bool isDer, const std::string& instead) {
    if (isDer && is_standard_stream(out) && output_is_terminal())
        throw UsageError("DER would upset the terminal; " + instead);
}

} // namespace tool
