#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "streams.h"

namespace tool {

namespace {

void wipe(const std::vector<std::string>& files) {
    bool failed = false;
    for (const std::string& file : files) {
        const int result = WIPE_File(file.c_str(), 0);
        if (result != 0) { // the other files are still wiped
            print_error(Refused::by_library(result, file).what());
            failed = true;
        }
    }
    if (failed)
        throw SilentFailure{};
}

void print_error_code(int code) {
    std::string number = std::to_string(std::abs(code));
    number.insert(0, number.size() < 4 ? 4 - number.size() : 0, ' ');
    Output("-").write(number + "  " + error_text(code) + "\n");
}

void explain_error(const std::string& code) {
    constexpr int kLastCode = MISC_ERROR;
    if (code.empty()) {
        for (int each = 0; each <= kLastCode; ++each)
            if (ZUL_ErrorLookup(nullptr, 0, each) > 0)
                print_error_code(each);
        return;
    }
    int number = 0;
    if (!CLI::detail::lexical_cast(code, number) || number < -kLastCode ||
        ZUL_ErrorLookup(nullptr, 0, number) <= 0)
        throw UsageError("there is no error code " + in_quotes(code) + "; 'zul error' alone lists all");
    print_error_code(number);
}

std::string module_name(int option) {
    char text[261] = {};
    accept_length(ZUL_ModuleName(text, sizeof text - 1, option), "name of the module");
    return text;
}

void print_version() {
    const int version = ZUL_Version(nullptr, nullptr);
    char built[32] = {};
    accept_length(ZUL_CompileTime(built, sizeof built - 1), "time of the build");
    Output("-").write("zulcore " + std::to_string(version / 100) + "." + std::to_string(version / 10 % 10) +
                      "." + std::to_string(version % 10) + "\nbuilt     " + built + "\nmodule    " +
                      module_name(0) + "\nplatform  " + module_name(ZUL_MODULE_PLATFORM) + "\n");
}

} // namespace

void add_general_commands(CLI::App& app) {
    auto files = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("wipe", "Overwrite files eight times and delete them");
    command->add_option("FILE", *files, "Files to wipe")->required()->option_text(" ");
    command->footer("Media that remap blocks, snapshots and backups can keep older copies.\n\n"
                    "Example:\n  zul wipe aes.key plain.txt");
    command->callback([files] { wipe(*files); });

    auto code = std::make_shared<std::string>();
    command = app.add_subcommand("error", "Say what an error code means");
    command->add_option("CODE", *code, "The code, of either sign; none lists all codes")->option_text(" ");
    command->footer("Example:\n  zul error 15");
    command->callback([code] { explain_error(*code); });

    app.add_flag_callback(
        "--version",
        [] {
            print_version();
            throw CLI::Success();
        },
        "The same as 'zul version'");
    command = app.add_subcommand("version", "Print version, build time and place of the library");
    command->footer("Example:\n  zul version");
    command->callback(print_version);
}

} // namespace tool
