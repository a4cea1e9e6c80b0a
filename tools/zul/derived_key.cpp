#include "derived_key.h"

#include <CLI/CLI.hpp>

#include "hex_text.h"
#include "json_output.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

void SaltOption::add_to(CLI::App& command) {
    command.add_option("--salt", hex_, "Salt in hex")->option_text("HEX");
    command.add_option("--salt-file", file_, "Salt: the bytes of a file")->option_text("FILE");
}

SecretBytes SaltOption::read(bool isNeeded) const {
    if (!hex_.empty() && !file_.empty())
        throw UsageError("give --salt or --salt-file, not both");
    if (isNeeded && hex_.empty() && file_.empty())
        throw UsageError("a salt is needed: --salt HEX or --salt-file FILE; 'zul random 16 --hex' makes one");
    if (!file_.empty())
        return Input(file_).read_all();
    return hex_.empty() ? SecretBytes() : decode_hex(hex_, "--salt");
}

void DerivedOutput::add_to(CLI::App& command) {
    command
        .add_option("OUT", file_, "File for the raw bytes; - for standard output; without it hex is printed")
        ->option_text(" ");
}

void DerivedOutput::add_json_to(CLI::App& command) {
    add_json_flag(command, json_);
}

void DerivedOutput::write(const SecretBytes& secret) const {
    if (json_ && !file_.empty())
        throw UsageError("--json prints the key in hex; leave out OUT");
    if (json_)
        return print_json(JsonObject().add_hex("key", secret.data(), secret.size()));
    if (file_.empty()) {
        Output out("-");
        out.write(hex_line(secret));
        out.finish();
        return;
    }
    if (is_standard_stream(file_) && output_is_terminal())
        throw UsageError("raw bytes would disturb the terminal; leave out OUT to see hex");
    write_file(file_, secret, true);
}

} // namespace tool
