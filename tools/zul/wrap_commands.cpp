#include <CLI/CLI.hpp>
#include <memory>

#include "algorithms.h"
#include "arguments.h"
#include "commands.h"
#include "failures.h"
#include "hex_text.h"
#include "json_output.h"
#include "key_option.h"
#include "streams.h"

namespace tool {

namespace {

struct WrapCommand {
    bool wrap;
    std::string algorithm, dataMark, in, out = "-";
    bool json = false;
    KeyOption kek;

    SecretBytes read_data() const {
        if (dataMark.empty() == in.empty())
            throw UsageError(std::string("give the ") + (wrap ? "key to wrap" : "wrapped key") +
                             " either as --data HEX or as the file IN");
        if (!in.empty())
            return hex_or_raw(Input(in).read_all(), in_quotes(in));
        if (wrap)
            warn_of_secret("--data", "a file IN");
        const SecretBytes& text = hidden_argument(dataMark);
        return decode_hex(text.data(), text.size(), "--data");
    }

    std::string hint(int code, const Cipher& cipher) const {
        const bool tdea = cipher.options == ZUL_CIPHER_TDEA;
        if (code == BAD_LENGTH_ERROR && wrap)
            return tdea ? "3des wraps a key of 24 bytes."
                        : "AES wraps a key of 16 bytes or more, a multiple of 8.";
        if (code == BAD_LENGTH_ERROR)
            return tdea ? "A key wrapped with 3des has 40 bytes."
                        : "A key wrapped with AES has 24 bytes or more, a multiple of 8.";
        if (code == OPEN_ERROR && !wrap) // the library's code for a failed integrity check
            return "The check of the wrapped key failed: it was damaged, or the key-encryption key is not "
                   "the right one.";
        return {};
    }

    void run() const {
        const Cipher cipher = find_cipher(algorithm);
        if (kek.is_standard_input() && is_standard_stream(in))
            throw UsageError("the key-encryption key and IN cannot both come from standard input");
        const SecretBytes kekBytes = kek.read_exactly(cipher.keyBytes, cipher.name + " key wrap");
        const SecretBytes data = read_data();
        const auto call = wrap ? CIPHER_KeyWrap : CIPHER_KeyUnwrap;
        const std::string subject = wrap ? "key wrap" : "key unwrap";
        if (json && !is_standard_stream(out))
            throw UsageError("--json prints the key in hex; leave out --out");
        if (data.size() > kMaxLength - 24)
            throw UsageError("a key to wrap is less than 2 GiB long");
        SecretBytes result(data.size() + 24); // 8 bytes more with AES, 16 with Triple DES
        const int length = call(result.data(), int_length(result), data.data(), int_length(data),
                                kekBytes.data(), int_length(kekBytes), cipher.options);
        accept_length(length, subject, hint(std::abs(length), cipher));
        result.resize(static_cast<size_t>(length));

        if (json)
            return print_json(JsonObject().add_hex("key", result.data(), result.size()));
        write_file(out, is_standard_stream(out) ? hex_line(result) : result);
    }
};

void add_wrap_command(CLI::App& app, bool wrap) {
    auto state = std::make_shared<WrapCommand>();
    state->wrap = wrap;
    CLI::App* command =
        app.add_subcommand(wrap ? "wrap" : "unwrap",
                           wrap ? "Encrypt a key under another key" : "Recover a key that 'zul wrap' made");
    command->add_option("IN", state->in, "File with the key, raw or as hex text; - for standard input")
        ->option_text(" ");
    command
        ->add_option("-a,--algorithm", state->algorithm,
                     "Needed: aes-128, aes-192, aes-256 (RFC 3394) or 3des (RFC 3217)")
        ->required()
        ->option_text("ALG");
    state->kek.add_to(*command, "kek", "Key-encryption key");
    command->add_option("--data", state->dataMark, "The key in hex, instead of IN")->type_name("HEX");
    command->add_option("-o,--out", state->out, "Write the raw bytes to a file instead of printing hex")
        ->type_name("FILE");
    add_json_flag(*command, state->json);
    command->footer(wrap ? "Example:\n  zul wrap -a aes-256 --kek-file master.key -o aes.wrapped aes.key"
                         : "Example:\n  zul unwrap -a aes-256 --kek-file master.key -o aes.key aes.wrapped");
    command->callback([state] { state->run(); });
}

} // namespace

void add_wrap_commands(CLI::App& app) {
    add_wrap_command(app, true);
    add_wrap_command(app, false);
}

} // namespace tool
