#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "hex_text.h"
#include "rsa_keys.h"
#include "streams.h"

namespace tool {

namespace {

SecretBytes digest_of(const std::string& file, const Digest& digest) {
    return decode_hex(file_digest(file, digest.option), file);
}

struct RsaSignCommand {
    std::string digest = "sha256", in, out;
    RsaKeyOption key;

    void run() const {
        const Digest& algorithm = find_digest(digest);
        key.refuse_output(in, out);
        const RsaKey privateKey = key.read_private(in);
        // A key with contradictory values would reveal its factors in a signature.
        accept_length(RSA_CheckKey(privateKey.text(), 0), "key", "It does not undo its public part.");
        const SecretBytes hash = digest_of(in, algorithm);
        SecretBytes block(privateKey.bytes());
        accept_length(RSA_EncodeMsg(block.data(), int_length(block), hash.data(), int_length(hash),
                                    ZUL_EMSIG_PKCSV1_5 | ZUL_EMSIG_DIGESTONLY | algorithm.option),
                      "signature", std::string("The key is too short to sign with ") + algorithm.name + ".");
        accept_status(RSA_RawPrivate(block.data(), int_length(block), privateKey.text(), 0), "signature");
        write_file(out, block);
    }
};

struct RsaVerifyCommand {
    std::string digest = "sha256", in, signature;
    RsaKeyOption key;

    // is_signed is true for the one block that the digest has: same algorithm, same digest, nothing more.
    static bool is_signed(SecretBytes block, const RsaKey& publicKey, const SecretBytes& hash,
                          int algorithm) {
        const int size = int_length(block);
        if (block.size() != publicKey.bytes() || RSA_RawPublic(block.data(), size, publicKey.text(), 0) != 0)
            return false;
        if (RSA_DecodeMsg(nullptr, 0, block.data(), size, ZUL_EMSIG_PKCSV1_5 | ZUL_EMSIG_GETALG) != algorithm)
            return false;
        SecretBytes found(block.size());
        const int length =
            RSA_DecodeMsg(found.data(), size, block.data(), size, ZUL_EMSIG_PKCSV1_5 | algorithm);
        return length == int_length(hash) && std::equal(hash.begin(), hash.end(), found.begin());
    }

    void run() const {
        const Digest& algorithm = find_digest(digest);
        refuse_shared_input({is_standard_stream(in), is_standard_stream(signature)});
        const RsaKey publicKey = key.read_public(is_standard_stream(in) ? in : signature);
        const SecretBytes hash = digest_of(in, algorithm);
        if (!is_signed(Input(signature).read_all(), publicKey, hash, algorithm.option))
            throw Refused::by_system(
                SIGNATURE_ERROR, in,
                "The file or the signature was changed, or the key or the digest is not the "
                "signer's.");
        Output("-").write(shown_name(in) + ": good signature\n");
    }
};

struct RsaCipherCommand {
    bool encrypt;
    std::string padding = "oaep", digest = "sha256", in, out;
    RsaKeyOption key;

    int options() const {
        const std::string lower = CLI::detail::to_lower(padding);
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
    auto sign = std::make_shared<RsaSignCommand>();
    CLI::App* command = app.add_subcommand("sign", "Sign a file with a private key (PKCS #1 v1.5)");
    command->add_option("FILE", sign->in, "The file; - for standard input")->required()->option_text(" ");
    command->add_option("SIGNATURE", sign->out, "File for the signature; - for standard output")
        ->required()
        ->option_text(" ");
    sign->key.add_to(*command, "private key");
    command->add_option("-d,--digest", sign->digest, "Digest to sign (sha256)")->option_text("DIGEST");
    command->footer("Example:\n  zul sign -k private.pem report.pdf report.sig");
    command->callback([sign] { sign->run(); });

    auto verify = std::make_shared<RsaVerifyCommand>();
    command = app.add_subcommand("verify", "Check the signature of a file");
    command->add_option("FILE", verify->in, "The file; - for standard input")->required()->option_text(" ");
    command->add_option("SIGNATURE", verify->signature, "File with the signature; - for standard input")
        ->required()
        ->option_text(" ");
    verify->key.add_to(*command, "the signer's public key or certificate");
    command->add_option("-d,--digest", verify->digest, "Digest that was signed (sha256)")
        ->option_text("DIGEST");
    command->footer("Exit status 1 for a signature that is not good.\n\n"
                    "Example:\n  zul verify -k public.pem report.pdf report.sig");
    command->callback([verify] { verify->run(); });

    add_rsa_cipher_command(app, true);
    add_rsa_cipher_command(app, false);
}

} // namespace tool
