#include "json_output.h"

#include <CLI/CLI.hpp>

#include "streams.h"

namespace tool {

CLI::Option* add_json_flag(CLI::App& command, bool& json) {
    return command.add_flag("--json", json, "Print JSON");
}

void print_json(JsonObject document) {
    JsonArray texts;
    for (const std::string& text : warnings())
        texts.add(text);
    if (!texts.is_empty())
        document.add("warnings", texts);
    Output output("-");
    output.write(document.text());
    output.finish();
}

void print_report(bool json, const JsonObject& object, const std::string& text) {
    if (json)
        print_json(object);
    else
        Output("-").write(text);
}

JsonObject error_object(const Refused& refused) {
    JsonObject object;
    object.add("code", refused.code()).add("name", error_name(refused.code()));
    object.add("text", refused.meaning()).add("subject", refused.subject());
    if (!refused.hint().empty())
        object.add("hint", refused.hint());
    return object;
}

void print_verdict(const Refused* refused, const JsonObject& about) {
    JsonObject document;
    document.add("valid", refused == nullptr);
    if (refused != nullptr)
        document.add("error", error_object(*refused));
    print_json(document.join(about));
}

void report_verdict(bool json, const std::function<std::string(JsonObject& about)>& check) {
    JsonObject about;
    std::string text;
    try {
        text = check(about);
    } catch (const Refused& refused) {
        if (json)
            print_verdict(&refused, about);
        throw;
    }
    if (json)
        print_verdict(nullptr, about);
    else
        Output("-").write(text);
}

} // namespace tool
