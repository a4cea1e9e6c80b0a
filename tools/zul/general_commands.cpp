#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "json_output.h"
#include "library.h"
#include "streams.h"

namespace tool {

namespace {

void wipe(const std::vector<std::string>& files, bool json) {
    bool failed = false;
    JsonArray results;
    for (const std::string& file : files) {
        JsonObject one;
        one.add_file("file", file);
        const int result = WIPE_File(file.c_str(), 0);
        one.add("wiped", result == 0);
        if (result != 0) { // the other files are still wiped
            const Refused refused = Refused::by_library(result, file);
            print_error(refused.what());
            one.add("error", error_object(refused));
            failed = true;
        }
        results.add(one);
    }
    if (json)
        print_json(JsonObject().add("files", results));
    if (failed)
        throw SilentFailure{};
}

void print_error_codes(const std::vector<int>& codes, bool json) {
    std::string text;
    JsonArray errors;
    for (const int code : codes) {
        std::string number = std::to_string(std::abs(code));
        number.insert(0, number.size() < 4 ? 4 - number.size() : 0, ' ');
        text += number + "  " + error_text(code) + "\n";
        JsonObject one;
        one.add("code", std::abs(code)).add("name", error_name(std::abs(code))).add("text", error_text(code));
        errors.add(one);
    }
    print_report(json, JsonObject().add("errors", errors), text);
}

void explain_error(const std::string& code, bool json) {
    constexpr int kLastCode = MISC_ERROR;
    if (code.empty()) {
        std::vector<int> all;
        for (int each = 0; each <= kLastCode; ++each)
            if (ZUL_ErrorLookup(nullptr, 0, each) > 0)
                all.push_back(each);
        print_error_codes(all, json);
        return;
    }
    int number = 0;
    if (!CLI::detail::lexical_cast(code, number) || number < -kLastCode ||
        ZUL_ErrorLookup(nullptr, 0, number) <= 0)
        throw UsageError("there is no error code " + in_quotes(code) + "; 'zul error' alone lists all");
    print_error_codes({number}, json);
}

void print_version(bool json) {
    const Library library = about_library();
    JsonObject object;
    object.add("zulcore", library.version).add("built", library.built);
    object.add_file("module", library.module).add("platform", library.platform);
    print_report(json, object,
                 "zulcore " + library.version + "\nbuilt     " + library.built + "\nmodule    " +
                     library.module + "\nplatform  " + library.platform + "\n");
}

} // namespace

void add_general_commands(CLI::App& app) {
    auto json = std::make_shared<bool>(false);
    auto files = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("wipe", "Overwrite files seven times and delete them");
    command->add_option("FILE", *files, "Files to wipe")->required()->option_text(" ");
    command->footer("Media that remap blocks, snapshots and backups can keep older copies.\n\n"
                    "Example:\n  zul wipe aes.key plain.txt");
    add_json_flag(*command, *json);
    command->callback([files, json] { wipe(*files, *json); });

    auto code = std::make_shared<std::string>();
    command = app.add_subcommand("error", "Say what an error code means");
    command->add_option("CODE", *code, "The code, of either sign; none lists all codes")->option_text(" ");
    command->footer("Example:\n  zul error 15");
    add_json_flag(*command, *json);
    command->callback([code, json] { explain_error(*code, *json); });

    app.add_flag_callback(
        "--version",
        [] {
            print_version(false);
            throw CLI::Success();
        },
        "The same as 'zul version'");
    command = app.add_subcommand("version", "Print version, build time and place of the library");
    command->footer("Example:\n  zul version");
    add_json_flag(*command, *json);
    command->callback([json] { print_version(*json); });
}

} // namespace tool
