#include <CLI/CLI.hpp>
#include <memory>

#include "activity.h"
#include "algorithms.h"
#include "commands.h"
#include "file_digest.h"
#include "hex_text.h"
#include "json_output.h"
#include "keys.h"
#include "letters.h"
#include "progress.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

constexpr size_t kMaxWhole = size_t{16} << 20; // of data that is not a file and has to be held in memory

constexpr const char* kAlgorithms =
    "Algorithms of --alg, with sha256 or any other digest:\n"
    "  rsa-sha256          RSA keys: PKCS #1 v1.5; the default, with --digest\n"
    "  rsa-pss-sha256      RSA and RSA-PSS keys: PSS; may be followed by \";salt=N\", \";salt=max\", "
    "\";mgf=sha1\"\n"
    "  ecdsa-sha256        P-256, P-384 and P-521 keys; default sha256, sha384 and sha512\n"
    "  ed25519, ed25519ph  Ed25519 keys; ed25519 is the default\n"
    "An RSA-PSS key's default is what its parameters demand. Data may have any size. Ed25519 needs it twice\n"
    "(as the default of an RSA-PSS key does, whose digest is not known here): it takes files of any size,\n"
    "but from standard input or a pipe no more than 16 MiB; ed25519ph has no such limit.\n\n";

// Method is what a signature is made with: the arguments of the library's functions.
struct Method {
    std::string algorithm;
    int options = 0;
    std::string digest; // of data in pieces; empty if the algorithm takes none or it is not known
};

// digest_of_algorithm gives the digest that a name of an algorithm names.
std::string digest_of_algorithm(const std::string& algorithm) {
    const std::string name = lower_ascii(algorithm.substr(0, algorithm.find(';')));
    if (name == "ed25519ph")
        return "sha512";
    for (const std::string_view prefix : {"rsa-pss-", "rsa-pkcs1-", "rsa-", "ecdsa-"})
        if (name.starts_with(prefix))
            return name.substr(prefix.size());
    return {};
}

struct MethodOption {
    std::string algorithm, digest;
    bool isRaw = false;

    void add_to(CLI::App& command) {
        command.add_option("-a,--alg", algorithm, "Algorithm; each kind of key has a default")
            ->option_text("ALG");
        command.add_option("-d,--digest", digest, "RSA keys, without --alg: digest (sha256)")
            ->option_text("DIGEST");
        command.add_flag("--raw", isRaw, "ECDSA: the signature is r and s, not DER");
    }

    // method is the choice for a key.
    Method method(const Key& key) const {
        if (!digest.empty() && (!algorithm.empty() || !key.is_rsa()))
            throw UsageError(
                "--digest goes with RSA keys and without --alg; name both as in --alg ecdsa-sha384");
        if (isRaw && key.type() != "ec")
            throw UsageError("--raw goes with ECDSA; the key is of type " + key.kind());
        std::string name = algorithm;
        if (name.empty() && key.is_rsa())
            name = std::string("rsa-") + find_digest(digest.empty() ? "sha256" : digest).name;
        else if (name.empty() && key.type() == "ec")
            name = key.bits() == 256 ? "ecdsa-sha256" : key.bits() == 384 ? "ecdsa-sha384" : "ecdsa-sha512";
        const std::string hash = digest_of_algorithm(name);
        if (!hash.empty())
            find_digest(hash, DigestUse::hash); // UsageError for an unknown one
        return {name, isRaw ? ZUL_SIG_RAW : 0, hash};
    }
};

std::string hint_for(int code, const Key& key, const std::string& algorithm) {
    switch (code) {
    case NOT_SUPPORTED_ERROR:
        return "Algorithms: rsa-sha256, rsa-pss-sha256, ecdsa-sha256, ed25519, ed25519ph, and with other "
               "digests.";
    case BAD_KEY_ERROR:
        if (algorithm.starts_with("rsa") && key.type() == "rsa-pss")
            return "The key's parameters forbid the algorithm.";
        return "The key is of type " + key.kind() + ".";
    case BAD_KEY_LEN_ERROR:
        return "The key is too short to sign with " + digest_of_algorithm(algorithm) + ".";
    default:
        return {};
    }
}

// SignedData is the data of a command, in the form in which the library takes it.
struct SignedData {
    enum Form { file, digest, whole } form;
    SecretBytes bytes; // the digest or the whole data

    SignedData(const std::string& name, const Method& method) : form(file) {
        // The library reads a file without a report of its progress: hashed here, it has one.
        const bool isShown = !method.digest.empty() && Progress::is_wanted(name);
        if (is_on_disk(name) && !isShown)
            return;
        form = method.digest.empty() ? whole : digest;
        if (form == digest) {
            bytes = decode_hex(file_digest(name, find_digest(method.digest, DigestUse::hash)), name);
            return;
        }
        Input input(name);
        bytes.resize(kMaxWhole + 1);
        bytes.resize(input.read(bytes.data(), bytes.size()));
        if (bytes.size() > kMaxWhole)
            throw Refused::by_system(
                OUT_OF_RANGE_ERROR, name,
                "This algorithm needs the data twice: at most 16 MiB that is no file. Name a "
                "file, or an algorithm such as ed25519ph.");
    }
};

struct SignCommand {
    std::string in, out;
    MethodOption choice;
    KeyFileOption key;

    void run() const {
        key.refuse_output(in, out);
        const Key privateKey = key.read_private(in);
        privateKey.check(key.file());
        const Method method = choice.method(privateKey);
        const char* algorithm = method.algorithm.c_str();
        const auto sign = [&](const SignedData& data, unsigned char* room, int size) {
            switch (data.form) {
            case SignedData::file:
                return SIG_SignFile(room, size, in.c_str(), privateKey.text(), algorithm, method.options);
            case SignedData::digest:
                return SIG_SignDigest(room, size, data.bytes.data(), int_length(data.bytes),
                                      privateKey.text(), algorithm, method.options);
            default:
                return SIG_Sign(room, size, data.bytes.data(), int_length(data.bytes), privateKey.text(),
                                algorithm, method.options);
            }
        };
        const auto accept = [&](int result) {
            const std::string hint = result < 0 ? hint_for(-result, privateKey, method.algorithm) : "";
            return static_cast<size_t>(accept_length(result, in, hint));
        };
        const SignedData data(in, method);
        SecretBytes signature(accept(sign(data, nullptr, 0)));
        {
            const Activity activity("signing");
            signature.resize(accept(sign(data, signature.data(), int_length(signature))));
        }
        write_file(out, signature);
    }
};

struct VerifyCommand {
    std::string in, signature;
    bool json = false;
    MethodOption choice;
    KeyFileOption key;

    int verify(const SecretBytes& made, const Key& publicKey, const Method& method) const {
        const char *algorithm = method.algorithm.c_str(), *keyText = publicKey.text();
        const SignedData data(in, method);
        const int size = int_length(data.bytes);
        const Activity activity("checking the signature");
        switch (data.form) {
        case SignedData::file:
            return SIG_VerifyFile(made.data(), int_length(made), in.c_str(), keyText, algorithm,
                                  method.options);
        case SignedData::digest:
            return SIG_VerifyDigest(made.data(), int_length(made), data.bytes.data(), size, keyText,
                                    algorithm, method.options);
        default:
            return SIG_Verify(made.data(), int_length(made), data.bytes.data(), size, keyText, algorithm,
                              method.options);
        }
    }

    void run() const {
        refuse_shared_input({is_standard_stream(in), is_standard_stream(signature)});
        report_verdict(json, [this](JsonObject& about) { return check(about); });
    }

    std::string check(JsonObject& about) const {
        about.add_file("file", in).add_file("signature", signature).add_file("key", key.file());
        const Key publicKey = key.read_public(is_standard_stream(in) ? in : signature);
        const Method method = choice.method(publicKey);
        if (!method.algorithm.empty())
            about.add("algorithm", method.algorithm);
        const int result = verify(Input(signature).read_all(), publicKey, method);
        if (result == SIGNATURE_ERROR)
            throw Refused::by_system(
                SIGNATURE_ERROR, in,
                "The file or the signature was changed, or the key, the algorithm or the "
                "digest is not the signer's.");
        accept_status(result, in, hint_for(result, publicKey, method.algorithm));
        return shown_name(in) + ": " + styled(Style::good, "good signature", stdout) + "\n";
    }
};

} // namespace

void add_sign_commands(CLI::App& app) {
    auto sign = std::make_shared<SignCommand>();
    CLI::App* command = app.add_subcommand("sign", "Sign a file with a private key");
    command->add_option("FILE", sign->in, "The file; - for standard input")->required()->option_text(" ");
    command->add_option("SIGNATURE", sign->out, "File for the signature; - for standard output")
        ->required()
        ->option_text(" ");
    sign->key.add_to(*command, "private key");
    sign->choice.add_to(*command);
    command->footer(std::string(kAlgorithms) +
                    "Example:\n  zul sign -k private.pem report.pdf report.sig\n"
                    "  zul sign -k rsa.pem --alg rsa-pss-sha256 report.pdf report.sig");
    command->callback([sign] { sign->run(); });

    auto verify = std::make_shared<VerifyCommand>();
    command = app.add_subcommand("verify", "Check the signature of a file");
    command->add_option("FILE", verify->in, "The file; - for standard input")->required()->option_text(" ");
    command->add_option("SIGNATURE", verify->signature, "File with the signature; - for standard input")
        ->required()
        ->option_text(" ");
    verify->key.add_to(*command, "the signer's public key or certificate");
    verify->choice.add_to(*command);
    add_json_flag(*command, verify->json);
    command->footer(std::string(kAlgorithms) + "Exit status 1 for a signature that is not good.\n\n"
                                               "Example:\n  zul verify -k public.pem report.pdf report.sig");
    command->callback([verify] { verify->run(); });
}

} // namespace tool
