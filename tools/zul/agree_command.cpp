#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "derived_key.h"
#include "failures.h"
#include "keys.h"
#include "letters.h"

namespace tool {

namespace {

struct AgreeCommand {
    const CLI::App* command = nullptr;
    std::string peer, kdf, info;
    KeyFileOption key;
    SaltOption salt;
    DerivedOutput output;
    int length = 32;

    // derive hands the secret to HKDF if that was chosen.
    SecretBytes derive(const SecretBytes& secret) const {
        constexpr std::string_view kPrefix = "hkdf-";
        if (kdf.empty()) {
            for (const char* option : {"--salt", "--salt-file", "--info", "--length"})
                if (command->count(option) > 0)
                    throw UsageError(std::string(option) + " goes with --kdf");
            return secret;
        }
        if (!lower_ascii(kdf).starts_with(kPrefix))
            throw UsageError("--kdf is hkdf- and a digest, as in hkdf-sha256");
        const SecretBytes saltBytes = salt.read(false);
        SecretBytes derived(static_cast<size_t>(length));
        accept_length(KDF_Hkdf(derived.data(), length, secret.data(), int_length(secret), saltBytes.data(),
                               int_length(saltBytes), info.data(), static_cast<int>(info.size()),
                               kdf.c_str() + kPrefix.size()),
                      kdf);
        return derived;
    }

    void run() const {
        key.refuse_output(peer, output.file());
        if (!salt.file().empty())
            refuse_same_file(salt.file(), output.file(), "The output would replace the salt.");
        refuse_shared_input({is_standard_stream(peer), is_standard_stream(salt.file())});
        refuse_shared_input({is_standard_stream(key.file()), is_standard_stream(salt.file())});
        const Key own = key.read_private(peer);
        const Key other = Key::read(peer, {}).without_private();
        const auto agree = [&](unsigned char* room, int size) {
            const int result = KEY_Agree(room, size, own.text(), other.text(), 0);
            return static_cast<size_t>(accept_length(
                result, peer, "The keys are of type " + own.kind() + " and " + other.kind() + "."));
        };
        SecretBytes secret(agree(nullptr, 0));
        agree(secret.data(), int_length(secret));
        output.write(derive(secret));
    }
};

} // namespace

void add_agree_command(CLI::App& app) {
    auto state = std::make_shared<AgreeCommand>();
    CLI::App* command = app.add_subcommand("agree", "Compute the secret that two key pairs share");
    state->command = command;
    command->add_option("PEER", state->peer, "The other's public key or certificate")
        ->required()
        ->option_text(" ");
    state->output.add_to(*command);
    state->key.add_to(*command, "your private key");
    command->add_option("--kdf", state->kdf, "Derive a key from the secret: hkdf-sha256 or another digest")
        ->option_text("KDF");
    state->salt.add_to(*command);
    command->add_option("--info", state->info, "hkdf: what the key is for, as text (nothing)")
        ->option_text("TEXT");
    command->add_option("--length", state->length, "hkdf: bytes of the key (32)")
        ->check(CLI::Range(1, 1 << 20))
        ->option_text("N");
    state->output.add_json_to(*command);
    command->footer(
        "Both keys are on P-256, P-384 or P-521, or both are X25519. The plain secret is not evenly\n"
        "random; --kdf makes a key of it.\n\n"
        "Example:\n  zul agree -k alice.pem bob.pub --kdf hkdf-sha256 --info \"backup 2026\" shared.key");
    command->callback([state] { state->run(); });
}

} // namespace tool
