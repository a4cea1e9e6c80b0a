#include <CLI/CLI.hpp>
#include <limits>
#include <memory>

#include "activity.h"
#include "commands.h"
#include "derived_key.h"
#include "failures.h"
#include "key_option.h"

namespace tool {

namespace {

constexpr int kMaxInt = std::numeric_limits<int>::max();

// KdfCommand is what all have; Function has the parameters and calls the library.
template<class Function>
struct KdfCommand {
    Function function;
    SaltOption salt;
    DerivedOutput output;
    int length = 32;

    void run() const {
        function.secret.refuse_output(output.file());
        if (!salt.file().empty())
            refuse_same_file(salt.file(), output.file(), "The output would replace the salt.");
        refuse_shared_input({function.secret.is_standard_input(), is_standard_stream(salt.file())});
        const SecretBytes saltBytes = salt.read(Function::kNeedsSalt);
        const SecretBytes secret = function.read_secret();
        SecretBytes key(static_cast<size_t>(length));
        {
            const Activity activity("deriving the key");
            accept_length(function.derive(key, secret, saltBytes), "key");
        }
        output.write(key);
    }
};

// FromPassword is a function of a password, whose length does not count its NUL.
struct FromPassword {
    static constexpr bool kNeedsSalt = true;
    PasswordOption secret;

    void add_secret(CLI::App& command) { secret.add_to(command, "password", "Password"); }
    SecretBytes read_secret() const {
        SecretBytes password = secret.read("the key");
        password.pop_back();
        return password;
    }
};

struct Pbkdf2 : FromPassword {
    int iterations = 600000;
    std::string digest = "sha256";

    void add_to(CLI::App& command) {
        command.add_option("--iterations", iterations, "Iterations (600000)")
            ->check(CLI::Range(1, kMaxInt))
            ->option_text("N");
        command.add_option("-d,--digest", digest, "Digest of HMAC (sha256)")->option_text("DIGEST");
    }
    int derive(SecretBytes& key, const SecretBytes& password, const SecretBytes& salt) const {
        return KDF_Pbkdf2(key.data(), int_length(key), password.data(), int_length(password), salt.data(),
                          int_length(salt), iterations, digest.c_str());
    }
};

struct Scrypt : FromPassword {
    int cost = 1 << 17, blockSize = 8, parallel = 1;

    void add_to(CLI::App& command) {
        command.add_option("-N,--cost", cost, "Cost, a power of 2 (131072: 128 MiB)")->option_text("N");
        command.add_option("-r,--block-size", blockSize, "Block size (8)")->option_text("N");
        command.add_option("-p,--parallel", parallel, "Parallelization (1)")->option_text("N");
    }
    int derive(SecretBytes& key, const SecretBytes& password, const SecretBytes& salt) const {
        return KDF_Scrypt(key.data(), int_length(key), password.data(), int_length(password), salt.data(),
                          int_length(salt), cost, blockSize, parallel);
    }
};

struct Argon2id : FromPassword {
    int memory = 65536, passes = 3, lanes = 4;

    void add_to(CLI::App& command) {
        command.add_option("-m,--memory", memory, "Memory in KiB (65536)")->option_text("N");
        command.add_option("-t,--passes", passes, "Passes (3)")->option_text("N");
        command.add_option("-p,--lanes", lanes, "Lanes (4)")->option_text("N");
    }
    int derive(SecretBytes& key, const SecretBytes& password, const SecretBytes& salt) const {
        return KDF_Argon2id(key.data(), int_length(key), password.data(), int_length(password), salt.data(),
                            int_length(salt), memory, passes, lanes);
    }
};

struct Hkdf {
    static constexpr bool kNeedsSalt = false;
    KeyOption secret;
    std::string digest = "sha256", info;

    void add_secret(CLI::App& command) { secret.add_to(command, "key", "Key of any length,"); }
    SecretBytes read_secret() const { return secret.read_any(); }
    void add_to(CLI::App& command) {
        command.add_option("-d,--digest", digest, "Digest of HMAC (sha256)")->option_text("DIGEST");
        command.add_option("--info", info, "What the key is for, as text (nothing)")->option_text("TEXT");
    }
    int derive(SecretBytes& key, const SecretBytes& from, const SecretBytes& salt) const {
        return KDF_Hkdf(key.data(), int_length(key), from.data(), int_length(from), salt.data(),
                        int_length(salt), info.data(), static_cast<int>(info.size()), digest.c_str());
    }
};

template<class Function>
void add(CLI::App& group, const char* name, const char* what, const char* example) {
    auto state = std::make_shared<KdfCommand<Function>>();
    CLI::App* command = group.add_subcommand(name, what);
    state->output.add_to(*command);
    state->function.add_secret(*command);
    state->salt.add_to(*command);
    state->function.add_to(*command);
    command->add_option("--length", state->length, "Bytes of the key (32)")
        ->check(CLI::Range(1, 1 << 20))
        ->option_text("N");
    state->output.add_json_to(*command);
    command->footer(std::string("Example:\n  ") + example);
    command->callback([state] { state->run(); });
    command->group("Commands");
}

} // namespace

void add_kdf_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("kdf", "Derive a key from a password or from another key");
    group->require_subcommand(1);
    group->footer("The same arguments give the same key. Choose another random salt for each password.\n"
                  "'zul kdf COMMAND --help' shows a command's options.\n\nExample:\n"
                  "  zul kdf argon2id --salt-file salt.bin master.key");
    add<Pbkdf2>(*group, "pbkdf2", "PBKDF2 of a password (RFC 8018)",
                "zul kdf pbkdf2 --salt 0001020304050607");
    add<Hkdf>(*group, "hkdf", "HKDF of a key (RFC 5869)",
              "zul kdf hkdf --key-file master.key --info files file.key");
    add<Scrypt>(*group, "scrypt", "scrypt of a password (RFC 7914)",
                "zul kdf scrypt --password-file pw --salt-file salt.bin file.key");
    add<Argon2id>(*group, "argon2id", "Argon2id of a password (RFC 9106)",
                  "zul kdf argon2id --salt-file salt.bin file.key");
}

} // namespace tool
