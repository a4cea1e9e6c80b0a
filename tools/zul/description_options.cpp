#include "description_options.h"

#include <CLI/CLI.hpp>

#include "certificates.h"

namespace tool {

void Description::text(const std::string& pairs) {
    if (!text_.empty() && !pairs.empty())
        text_ += ";";
    text_ += pairs;
}

void Description::pair(const std::string& keyword, std::string_view value) {
    text(keyword + "=" + quote_value(value));
}

void Description::list(const std::string& keyword, const std::vector<std::string>& values) {
    std::string joined;
    for (const std::string& value : values)
        joined += (joined.empty() ? "" : ",") + quote_value(value);
    if (!joined.empty())
        text(keyword + "=" + joined);
}

void DescriptionOptions::add_to(CLI::App& command) {
    const auto add = [&command](const char* name, std::vector<std::string>& values, const char* what,
                                const char* shown) {
        command.add_option(name, values, what)->allow_extra_args(false)->option_text(shown);
    };
    add("--dns", dns, "Host name, perhaps with * as first label; once for each", "NAME");
    add("--ip", ip, "IP address; once for each", "ADDRESS");
    add("--email", email, "E-mail address; once for each", "ADDRESS");
    add("--uri", uri, "URI; once for each", "URI");
    command
        .add_option("--describe", describe,
                    "More of the contents: keyword=value pairs of CERT_SelfSign, joined by ;")
        ->option_text("TEXT");
}

void DescriptionOptions::put(Description& description) const {
    for (const std::string& address : email)
        if (const size_t at = address.rfind('@'); at == 0 || at >= address.size() - 1)
            throw UsageError("--email takes an address such as alice@example.com");
    description.list("dns", dns);
    description.list("ip", ip);
    description.list("email", email);
    description.list("uri", uri);
    description.text(describe);
}

std::string DescriptionOptions::names() const {
    std::string text;
    const auto add = [&text](const char* kind, const std::vector<std::string>& values) {
        for (const std::string& value : values)
            text += (text.empty() ? "" : ",") + std::string(kind) + ":" + value;
    };
    add("dns", dns);
    add("ip", ip);
    add("email", email);
    add("uri", uri);
    return text;
}

void refuse_period(const std::string& until, int years, int days) {
    if ((until.empty() ? 0 : 1) + (years > 0 ? 1 : 0) + (days > 0 ? 1 : 0) > 1)
        throw UsageError("--until, --years and --days exclude each other");
}

} // namespace tool
