#include <CLI/CLI.hpp>
#include <memory>

#include "algorithms.h"
#include "commands.h"
#include "failures.h"
#include "letters.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

struct RsaCipherCommand {
    bool encrypt;
    std::string padding = "oaep", digest = "sha256", in, out;
    RsaKeyOption key;

    int options() const {
        const std::string lower = lower_ascii(padding);
        const int algorithm = find_digest(digest).option;
        if (lower == "oaep")
            return ZUL_EME_OAEP | algorithm;
        if (lower == "v1.5")
            return ZUL_EME_PKCSV1_5;
        throw UsageError("unknown padding " + in_quotes(padding) + "; paddings: oaep, v1.5");
    }

    void run_encrypt() const {
        const int choice = options();
        key.refuse_output(in, out);
        const RsaKey publicKey = key.read_public(in);
        const SecretBytes message = Input(in).read_all();
        SecretBytes block(publicKey.bytes());
        const int result =
            RSA_EncodeMsg(block.data(), int_length(block), message.data(), int_length(message), choice);
        accept_length(result, in,
                      "With this key and padding it must be shorter; 'zul encrypt' takes files of any size.");
        accept_status(RSA_RawPublic(block.data(), int_length(block), publicKey.text(), 0), in);
        write_file(out, block);
    }

    // The text is the same for every fault of the block, so that it does not help to decrypt a message.
    void run_decrypt() const {
        const int choice = options();
        key.refuse_output(in, out);
        const RsaKey privateKey = key.read_private(in);
        SecretBytes block = Input(in).read_all();
        SecretBytes message(privateKey.bytes());
        int length = -1;
        if (block.size() == message.size() &&
            RSA_RawPrivate(block.data(), int_length(block), privateKey.text(), 0) == 0)
            length =
                RSA_DecodeMsg(message.data(), int_length(message), block.data(), int_length(block), choice);
        if (length < 0)
            throw Refused::by_system(
                DECRYPT_ERROR, in,
                "The key, the padding or the digest is not the right one, or the data was "
                "damaged.");
        message.resize(static_cast<size_t>(length));
        write_file(out, message);
    }

    void run() const { encrypt ? run_encrypt() : run_decrypt(); }
};

void add_rsa_cipher_command(CLI::App& app, bool encrypt) {
    auto state = std::make_shared<RsaCipherCommand>();
    state->encrypt = encrypt;
    CLI::App* command =
        app.add_subcommand(encrypt ? "rsa-encrypt" : "rsa-decrypt",
                           encrypt ? "Encrypt a short message, such as a key, with a public key"
                                   : "Decrypt what 'zul rsa-encrypt' made");
    command->add_option("IN", state->in, "Input file; - for standard input")->required()->option_text(" ");
    command->add_option("OUT", state->out, "Output file; - for standard output")
        ->required()
        ->option_text(" ");
    state->key.add_to(*command, encrypt ? "public key or certificate" : "private key");
    command->add_option("-p,--padding", state->padding, "oaep (the default) or v1.5")->option_text("PADDING");
    command->add_option("-d,--digest", state->digest, "Digest of oaep (sha256)")->option_text("DIGEST");
    command->footer(encrypt ? "Example:\n  zul rsa-encrypt -k public.pem aes.key aes.encrypted"
                            : "Example:\n  zul rsa-decrypt -k private.pem aes.encrypted aes.key");
    command->callback([state] { state->run(); });
}

} // namespace

void add_rsa_commands(CLI::App& app) {
    add_rsa_cipher_command(app, true);
    add_rsa_cipher_command(app, false);
}

} // namespace tool
