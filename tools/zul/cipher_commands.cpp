#include <CLI/CLI.hpp>
#include <memory>

#include "algorithms.h"
#include "commands.h"
#include "failures.h"
#include "hex_text.h"
#include "key_option.h"
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

    void run_on_files(const Cipher& cipher, const SecretBytes& keyBytes, const SecretBytes& iv) const {
        const int result = CIPHER_File(encrypt, out.c_str(), in.c_str(), keyBytes.data(), iv.data(), nullptr,
                                       cipher.options);
        const int code = std::abs(result);
        accept_status(result, code == CREATE_ERROR || code == WRITE_ERROR ? out : in,
                      code == BAD_PARAM_ERROR ? "IN and OUT are the same file." : hint(result));
    }

    // run_in_memory gives byte for byte what run_on_files gives.
    void run_in_memory(const Cipher& cipher, const SecretBytes& keyBytes, const SecretBytes& iv) const {
        SecretBytes data = Input(in).read_all();
        const int block = static_cast<int>(cipher.blockBytes);
        if (encrypt && cipher.pads) {
            const int length = int_length(data);
            const int padded = accept_length(PAD_BytesBlock(nullptr, 0, data.data(), length, block, 0), in);
            data.resize(static_cast<size_t>(padded));
            accept_length(PAD_BytesBlock(data.data(), padded, data.data(), length, block, 0), in);
        }
        const int result = CIPHER_Bytes(encrypt, data.data(), data.data(), int_length(data), keyBytes.data(),
                                        iv.data(), nullptr, cipher.options);
        accept_status(result, in, hint(result));
        if (!encrypt && cipher.pads) {
            const int plain =
                PAD_UnpadBytes(data.data(), int_length(data), data.data(), int_length(data), block, 0);
            data.resize(static_cast<size_t>(accept_length(plain, in, hint(plain))));
        }
        write_file(out, data);
    }

    void run() const {
        const Cipher cipher = find_cipher_and_mode(algorithm);
        if (key.is_standard_input() && is_standard_stream(in))
            throw UsageError("the key and IN cannot both come from standard input");
        const SecretBytes iv = read_iv(cipher);
        const SecretBytes keyBytes = key.read_exactly(cipher.keyBytes, cipher.name);
        if (is_standard_stream(in) || is_standard_stream(out))
            run_in_memory(cipher, keyBytes, iv);
        else
            run_on_files(cipher, keyBytes, iv);
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
    const std::string choice = " -a aes-256-cbc --key-file aes.key --iv $iv ";
    command->footer(
        "A key file holds the raw bytes or hex text. An IV is no secret, but every message needs its own.\n"
        "CBC and ECB pad. No mode notices every change: 'zul hmac' does.\n\nExample:\n" +
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
