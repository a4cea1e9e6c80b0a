#include <CLI/CLI.hpp>
#include <memory>

#include "algorithms.h"
#include "commands.h"
#include "failures.h"
#include "file_digest.h"
#include "key_option.h"
#include "streams.h"

namespace tool {

namespace {

constexpr int kMaxShake = 1 << 16;

struct HashCommand {
    std::string algorithm;
    std::vector<std::string> files;
    DigestForm form;

    void run() const {
        const Digest& digest = find_digest(algorithm, DigestUse::hash);
        if (form.bytes != 0 && !digest.isExtendable)
            throw UsageError("--length is for shake128 and shake256");
        bool failed = false;
        Output out("-");
        for (const std::string& file : files.empty() ? std::vector<std::string>{"-"} : files) {
            try {
                out.write(digest_line(file_digest(file, digest, form), file));
            } catch (const Refused& refused) { // the other files are still processed
                print_error(refused.what());
                failed = true;
            }
        }
        if (failed)
            throw SilentFailure{};
    }
};

struct HmacCommand {
    std::string algorithm, file;
    KeyOption key;

    void run() const {
        const Digest& digest = find_digest(algorithm, DigestUse::hmac);
        if (key.is_standard_input() && is_standard_stream(file))
            throw UsageError("the key and FILE cannot both come from standard input");
        const SecretBytes keyBytes = key.read_any();
        Output("-").write(digest_line(file_hmac(file, digest, keyBytes), file));
    }
};

} // namespace

void add_digest_commands(CLI::App& app) {
    auto hash = std::make_shared<HashCommand>();
    CLI::App* command = app.add_subcommand("hash", "Print the digest of files");
    command
        ->add_option(
            "ALG", hash->algorithm,
            "sha1, sha224, sha256, sha384, sha512, sha512-256, sha3-224 ... sha3-512, shake128/256, md5, md2")
        ->required()
        ->option_text(" ");
    command->add_option("FILE", hash->files, "Files; - or none for standard input")->option_text(" ");
    command->add_flag("--text", hash->form.foldsLineEnds, "Count each CR LF as LF");
    command->add_option("--length", hash->form.bytes, "Bytes that shake128 (32) or shake256 (64) gives")
        ->check(CLI::Range(1, kMaxShake))
        ->option_text("BYTES");
    command->footer(
        "A line begins with a backslash if the file's name is escaped in it, as with sha256sum: a\n"
        "backslash is \\\\, a line feed is \\n, a carriage return is \\r.\n\n"
        "Example:\n  zul hash sha256 report.pdf notes.txt");
    command->callback([hash] { hash->run(); });

    auto hmac = std::make_shared<HmacCommand>();
    command = app.add_subcommand("hmac", "Print the keyed digest (HMAC) of a file");
    command->add_option("ALG", hmac->algorithm, "A digest, all but md2, shake128 and shake256")
        ->required()
        ->option_text(" ");
    command->add_option("FILE", hmac->file, "The file; - for standard input")->required()->option_text(" ");
    hmac->key.add_to(*command, "key", "Key of any length,");
    command->footer("A key file is taken byte for byte, whatever it holds.\n\n"
                    "Example:\n  zul hmac sha256 --key-file secret.key report.pdf");
    command->callback([hmac] { hmac->run(); });
}

} // namespace tool
