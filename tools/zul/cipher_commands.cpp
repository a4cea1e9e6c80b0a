#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "algorithms.h"
#include "commands.h"
#include "contexts.h"
#include "failures.h"
#include "hex_text.h"
#include "key_option.h"
#include "progress.h"
#include "streams.h"

namespace tool {

namespace {

struct CipherCommand {
    bool encrypt;
    std::string algorithm, ivHex, in, out;
    KeyOption key;

    SecretBytes read_iv(const Cipher& cipher) const {
        if (!cipher.takesIv) {
            if (!ivHex.empty())
                throw UsageError(cipher.name + " takes no IV; leave out --iv");
            return {};
        }
        const std::string size = std::to_string(cipher.blockBytes);
        if (ivHex.empty())
            throw UsageError(cipher.name + " needs an IV of " + size + " bytes: --iv HEX; 'zul random " +
                             size + " --hex' makes one");
        SecretBytes iv = decode_hex(ivHex, "--iv");
        if (iv.size() != cipher.blockBytes)
            throw UsageError("--iv holds " + std::to_string(iv.size()) + " bytes; " + cipher.name +
                             " needs " + size + " (" + std::to_string(2 * cipher.blockBytes) +
                             " hex digits)");
        return iv;
    }

    // hint puts into words what a code most likely means here.
    std::string hint(int result) const {
        if (encrypt)
            return {};
        switch (std::abs(result)) {
        case DECRYPT_ERROR:
            return "The key or the IV is not the right one, or the data was damaged.";
        case BAD_LENGTH_ERROR:
            return "What was encrypted in this mode is a whole number of blocks: some of it is missing.";
        default:
            return {};
        }
    }

    // The end of a text to decrypt may be wrong, so what is ready is written one piece late: of data that
    // fits into one piece nothing is written before all is known to be good.
    void run_on_data(const Cipher& cipher, const SecretBytes& keyBytes, const SecretBytes& iv) const {
        Input input(in);
        input.refuse_output(out);
        const int64_t size = input.bytes_left();
        if (!encrypt && cipher.pads && size > 0 && size % static_cast<int64_t>(cipher.blockBytes) != 0)
            throw Refused::by_system(BAD_LENGTH_ERROR, in, hint(BAD_LENGTH_ERROR));
        SecretBytes context = make_context(in, [&](unsigned char* memory, int length) {
            return CIPHER_Begin(memory, length, encrypt, keyBytes.data(), int_length(keyBytes), iv.data(),
                                int_length(iv), cipher.algorithm.c_str(), 0);
        });
        std::optional<Output> output;
        SecretBytes piece(kChunk), ready(kChunk + 2 * cipher.blockBytes);
        int readyBytes = 0;
        const auto write_ready = [&] {
            if (!output)
                output.emplace(out);
            output->write(ready.data(), static_cast<size_t>(readyBytes));
        };
        Progress progress(input, out);
        for (size_t count = kChunk; count == kChunk;) {
            count = input.read(piece.data(), kChunk);
            if (readyBytes > 0)
                write_ready();
            readyBytes = accept_length(CIPHER_Add(ready.data(), int_length(ready), context.data(),
                                                  piece.data(), static_cast<int>(count)),
                                       in);
            progress.add(count);
        }
        const int end = CIPHER_End(ready.data() + readyBytes, int_length(ready) - readyBytes, context.data());
        readyBytes += accept_length(end, in, hint(end));
        write_ready();
        output->finish();
    }

    void run() const {
        const Cipher cipher = find_cipher_and_mode(algorithm);
        if (key.is_standard_input() && is_standard_stream(in))
            throw UsageError("the key and IN cannot both come from standard input");
        const SecretBytes iv = read_iv(cipher);
        const SecretBytes keyBytes = key.read_exactly(cipher.keyBytes, cipher.name);
        run_on_data(cipher, keyBytes, iv);
    }
};

void add_cipher_command(CLI::App& app, bool encrypt) {
    auto cipher = std::make_shared<CipherCommand>();
    cipher->encrypt = encrypt;
    CLI::App* command =
        app.add_subcommand(encrypt ? "encrypt" : "decrypt",
                           encrypt ? "Encrypt a file with AES or Triple DES" : "Decrypt a file");
    command->add_option("IN", cipher->in, "Input file; - for standard input")->required()->option_text(" ");
    command->add_option("OUT", cipher->out, "Output file; - for standard output")
        ->required()
        ->option_text(" ");
    command
        ->add_option("-a,--algorithm", cipher->algorithm,
                     "Needed: aes-128, aes-192, aes-256 or 3des, with -cbc, -ctr, -cfb, -ofb or -ecb")
        ->required()
        ->option_text("ALG");
    cipher->key.add_to(*command, "key", "Key");
    command
        ->add_option("--iv", cipher->ivHex, "Initialization vector, one block; every mode but ecb needs it")
        ->type_name("HEX");
    const std::string late =
        "A wrong key shows at the end of the data: what was written to a pipe by then cannot\n"
        "be taken back, and the exit status alone tells. An output file is removed.\n";
    const std::string choice = " -a aes-256-cbc --key-file aes.key --iv $iv ";
    command->footer(
        "A key file holds the raw bytes or hex text. An IV is no secret, but every message needs its own.\n"
        "CBC and ECB pad. No mode notices every change: 'zul hmac' does.\n" +
        (encrypt ? "" : late) + "\nExample:\n" +
        (encrypt ? "  zul random 32 aes.key\n  iv=$(zul random 16 --hex)\n  zul encrypt" + choice +
                       "plain.txt secret.bin"
                 : "  zul decrypt" + choice + "secret.bin plain.txt"));
    command->callback([cipher] { cipher->run(); });
}

} // namespace

void add_cipher_commands(CLI::App& app) {
    add_cipher_command(app, true);
    add_cipher_command(app, false);
}

} // namespace tool
