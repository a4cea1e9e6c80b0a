#include <CLI/CLI.hpp>
#include <memory>

#include "algorithms.h"
#include "commands.h"
#include "failures.h"
#include "file_digest.h"
#include "json_output.h"
#include "key_option.h"
#include "streams.h"

namespace tool {

namespace {

struct HmacCommand {
    std::string algorithm, file;
    bool json = false;
    KeyOption key;

    void run() const {
        const Digest& digest = find_digest(algorithm, DigestUse::hmac);
        if (key.is_standard_input() && is_standard_stream(file))
            throw UsageError("the key and FILE cannot both come from standard input");
        const SecretBytes keyBytes = key.read_any();
        const std::string hex = file_hmac(file, digest, keyBytes);
        JsonObject object;
        object.add("algorithm", digest.name).add_file("file", file).add("hmac", hex);
        print_report(json, object, digest_line(hex, file));
    }
};

} // namespace

void add_digest_commands(CLI::App& app) {
    add_hash_command(app);

    auto hmac = std::make_shared<HmacCommand>();
    CLI::App* command = app.add_subcommand("hmac", "Print the keyed digest (HMAC) of a file");
    command->add_option("ALG", hmac->algorithm, "A digest, all but md2, shake128 and shake256")
        ->required()
        ->option_text(" ");
    command->add_option("FILE", hmac->file, "The file; - for standard input")->required()->option_text(" ");
    hmac->key.add_to(*command, "key", "Key of any length,");
    add_json_flag(*command, hmac->json);
    command->footer("A key file is taken byte for byte, whatever it holds.\n\n"
                    "Example:\n  zul hmac sha256 --key-file secret.key report.pdf");
    command->callback([hmac] { hmac->run(); });
}

} // namespace tool
