#include "interop/shell_test.h"
#include "support/key_calls.h"

// Keys and signatures of every kind, exchanged with openssl both ways.

using namespace test;

namespace {

struct Kind {
    const char *name, *genpkey;
    bool signs = true;
};
const Kind kKinds[] = {
    {"rsa", "-algorithm RSA -pkeyopt rsa_keygen_bits:1536"},
    {"rsa-pss", "-algorithm RSA-PSS -pkeyopt rsa_keygen_bits:1536 -pkeyopt rsa_pss_keygen_md:sha384 -pkeyopt "
                "rsa_pss_keygen_mgf1_md:sha256 -pkeyopt rsa_pss_keygen_saltlen:24"},
    {"rsa-pss plain", "-algorithm RSA-PSS -pkeyopt rsa_keygen_bits:1536"},
    {"p-256", kP256},
    {"p-384", "-algorithm EC -pkeyopt ec_paramgen_curve:P-384"},
    {"p-521", "-algorithm EC -pkeyopt ec_paramgen_curve:P-521"},
    {"ed25519", "-algorithm ED25519"},
    {"x25519", "-algorithm X25519", false},
};

class KeyInterop : public test::ShellTest {
  protected:
    // make_key_file makes key.pem and pub.pem and gives the fingerprint.
    std::string make_key_file(const Kind& kind) const {
        run(std::string("openssl genpkey ") + kind.genpkey +
            " -out key.pem && openssl pkey -in key.pem -pubout -out pub.pem");
        run("openssl pkey -in key.pem -pubout -outform DER | openssl dgst -sha256 -r >print");
        return read_text(file("print")).substr(0, 64);
    }
};

} // namespace

TEST_F(KeyInterop, TheirKeysAreReadInEveryForm) {
    const std::vector<std::string> every = {
        "cp key.pem f",
        "openssl pkey -in key.pem -outform DER -out f",
        "openssl pkcs8 -topk8 -in key.pem -passout pass:pw -v2 aes-256-cbc -v2prf hmacWithSHA512 -out f",
        "openssl pkcs8 -topk8 -in key.pem -passout pass:pw -v2 des3 -outform DER -out f",
        "openssl pkcs8 -topk8 -in key.pem -passout pass:pw -scrypt -scrypt_N 1024 -scrypt_r 8 -scrypt_p 2 "
        "-out f",
        "openssl pkcs8 -topk8 -in key.pem -passout pass:pw -v1 PBE-SHA1-3DES -out f",
        "cp pub.pem f",
        "openssl pkey -in key.pem -pubout -outform DER -out f"};
    const std::vector<std::string> ofSigners = {
        "openssl req -x509 -new -key key.pem -subj /CN=a -out f",
        "openssl req -new -key key.pem -subj /CN=a -out f",
        "{ openssl req -x509 -new -key key.pem -subj /CN=a; cat key.pem; } >f"};
    const std::vector<std::string> ofRsa = {
        "openssl rsa -in key.pem -traditional -out f",
        "openssl rsa -in key.pem -traditional -outform DER -out f",
        "openssl rsa -in key.pem -traditional -aes128 -passout pass:pw -out f",
        "openssl rsa -in key.pem -traditional -des -passout pass:pw -provider legacy -provider default -out "
        "f",
        "openssl rsa -in key.pem -RSAPublicKey_out -out f"};
    const std::vector<std::string> ofEc = {
        "openssl ec -in key.pem -out f",
        "openssl ec -in key.pem -outform DER -out f",
        "openssl ec -in key.pem -no_public -out f",
        "openssl ec -in key.pem -aes256 -passout pass:pw -out f",
        "openssl ec -in key.pem -aes-192-cbc -passout pass:pw -out f",
        "openssl ec -in key.pem -des3 -passout pass:pw -out f",
        "openssl ec -in key.pem -conv_form compressed -out f",
        "openssl ec -in key.pem -pubout -conv_form compressed -out f",
        "{ printf -- '-----BEGIN EC PARAMETERS-----\\nBggqhkjOPQMBBw==\\n-----END EC PARAMETERS-----\\n'; "
        "cat key.pem; } "
        ">f"};
    for (const Kind& kind : kKinds) {
        std::vector<std::string> commands = every;
        if (kind.signs)
            commands.insert(commands.end(), ofSigners.begin(), ofSigners.end());
        const std::vector<std::string> own = kind.name == std::string("rsa") ? ofRsa
                                             : kind.name[0] == 'p'           ? ofEc
                                                                             : std::vector<std::string>();
        commands.insert(commands.end(), own.begin(), own.end());
        const std::string fingerprint = make_key_file(kind);
        for (const std::string& command : commands) {
            SCOPED_TRACE(kind.name + std::string(": ") + command);
            run(command);
            const std::string key = read_key(file("f"), "pw");
            EXPECT_EQ(ask_key(key, "fingerprint"), fingerprint);
            bool isPublic = command.starts_with("openssl req");
            for (const char* part : {"pub.pem", "-pubout", "RSAPublicKey_out"})
                isPublic |= command.find(part) != std::string::npos;
            EXPECT_EQ(ask_key(key, "isPrivate"), isPublic ? "0" : "1");
            if (command.find("pass:pw") != std::string::npos) {
                int code = 0;
                read_key(file("f"), "pz", &code);
                EXPECT_EQ(code, DECRYPT_ERROR);
            }
        }
    }
    run("openssl ecparam -name prime256v1 -genkey -param_enc explicit -out f");
    int code = 0;
    read_key(file("f"), nullptr, &code);
    EXPECT_EQ(code, NOT_SUPPORTED_ERROR);
}

TEST_F(KeyInterop, OurKeysAreReadInEveryForm) {
    const struct {
        const char *password, *parameters;
        int options;
    } forms[] = {{nullptr, nullptr, 0},
                 {nullptr, nullptr, ZUL_KEY_FORMAT_PEM},
                 {nullptr, nullptr, ZUL_KEY_FORMAT_OWN},
                 {nullptr, nullptr, ZUL_KEY_FORMAT_OWN | ZUL_KEY_FORMAT_PEM},
                 {"pass word", nullptr, ZUL_KEY_FORMAT_PEM},
                 {"pass word", "iterations=1000;cipher=aes-128-cbc;hash=sha1", 0},
                 {"pass word", "iterations=1000;cipher=tdea-cbc;hash=sha512", 0},
                 {"pass word", "kdf=scrypt;cipher=aes-192-cbc", ZUL_KEY_FORMAT_PEM},
                 {"pass word", "kdf=scrypt;n=1024;r=4;p=3", 0}};
    for (const Kind& kind : kKinds) {
        const std::string fingerprint = make_key_file(kind), key = read_key(file("key.pem"));
        for (const auto& form : forms) {
            SCOPED_TRACE(kind.name + std::string(form.parameters == nullptr ? "" : form.parameters));
            const int code =
                KEY_Save(file("ours").c_str(), key.c_str(), form.password, form.parameters, form.options);
            const bool hasOwn = kind.name == std::string("rsa") || kind.name[0] == 'p';
            if ((form.options & ZUL_KEY_FORMAT_OWN) != 0 && !hasOwn) {
                EXPECT_EQ(code, NOT_SUPPORTED_ERROR);
                continue;
            }
            ASSERT_EQ(code, 0) << last_error();
            run("openssl pkey -in ours -passin 'pass:pass word' -out back.pem && cmp back.pem key.pem");
            EXPECT_EQ(ask_key(read_key(file("ours"), form.password), "fingerprint"), fingerprint);
        }
        for (const int options : {0, ZUL_KEY_FORMAT_PEM}) {
            ASSERT_EQ(KEY_Save(file("ours").c_str(), public_of(key).c_str(), nullptr, nullptr, options), 0);
            run("openssl pkey -pubin -in ours -out back.pem && cmp back.pem pub.pem");
        }
    }
    for (const char* name : {"rsa-2048", "p-256", "p-384", "p-521", "ed25519", "x25519"}) {
        ASSERT_EQ(
            KEY_Save(file("ours").c_str(), make_key(name).c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_PEM), 0);
        run("openssl pkey -in ours -check -noout");
    }
}

TEST_F(KeyInterop, SignaturesAreExchanged) {
    const Bytes data = from_hex("00010203");
    dir.write("data", data);
    for (const Kind& kind : kKinds) {
        if (!kind.signs)
            continue;
        make_key_file(kind);
        const std::string key = read_key(file("key.pem")), publicKey = read_key(file("pub.pem"));
        std::vector<std::pair<std::string, std::string>> rows; // our name, their options
        const std::string pss = " -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:";
        if (kind.name == std::string("rsa-pss")) {
            rows = {{"", "-sha384" + pss + "48 -sigopt rsa_mgf1_md:sha256"},
                    {"rsa-pss-sha384;mgf=sha256;salt=24", "-sha384" + pss + "24 -sigopt rsa_mgf1_md:sha256"}};
            for (const char* forbidden :
                 {"rsa-pss-sha384;mgf=sha256;salt=23", "rsa-pss-sha384", "rsa-pss-sha256", "rsa-sha384"}) {
                int code = 0;
                sign_data(data, key, forbidden, 0, &code);
                EXPECT_EQ(code, BAD_KEY_ERROR) << forbidden;
            }
        } else if (kind.name[0] != 'e') {
            for (const std::string hash : {"sha1", "sha224", "sha256", "sha384", "sha512", "sha512-256",
                                           "sha3-224", "sha3-256", "sha3-384", "sha3-512"}) {
                if (kind.name[0] == 'p') {
                    rows.emplace_back("ecdsa-" + hash, "-" + hash);
                    continue;
                }
                if (kind.name == std::string("rsa"))
                    rows.emplace_back("rsa-" + hash, "-" + hash);
                rows.emplace_back("rsa-pss-" + hash, "-" + hash + pss + "digest");
                rows.emplace_back("rsa-pss-" + hash + ";salt=max;mgf=sha1",
                                  "-" + hash + pss + "max -sigopt rsa_mgf1_md:sha1");
            }
            rows.emplace_back("rsa-pss-sha256;salt=0", "-sha256" + pss + "0");
            if (kind.name[0] == 'r')
                rows.emplace_back("rsa-pss-sha1;mgf=sha3-512;salt=19",
                                  "-sha1" + pss + "19 -sigopt rsa_mgf1_md:sha3-512");
            if (kind.name[0] == 'p')
                rows.pop_back();
        } else {
            rows = {{"", ""}};
        }
        for (const auto& [ours, theirs] : rows) {
            SCOPED_TRACE(kind.name + (" " + ours) + " " + theirs);
            dir.write("ours", sign_data(data, key, ours));
            if (kind.name[0] == 'e') {
                run("openssl pkeyutl -verify -rawin -pubin -inkey pub.pem -sigfile ours -in data");
                run("openssl pkeyutl -sign -rawin -inkey key.pem -in data -out theirs");
            } else {
                run("openssl dgst " + theirs + " -verify pub.pem -signature ours data");
                run("openssl dgst " + theirs + " -sign key.pem -out theirs data");
            }
            const Bytes signature = read_file(file("theirs"));
            EXPECT_EQ(verify_data(signature, data, publicKey, ours), 0) << last_error();
            EXPECT_EQ(SIG_VerifyFile(signature.data(), static_cast<int>(signature.size()),
                                     file("data").c_str(), publicKey.c_str(), ours.c_str(), 0),
                      0);
            EXPECT_EQ(verify_data(signature, {}, publicKey, ours), SIGNATURE_ERROR);
        }
    }
}

TEST_F(KeyInterop, SecretsAreAgreedOn) {
    for (const Kind& kind : kKinds) {
        if (kind.name[0] != 'p' && kind.name[0] != 'x')
            continue;
        make_key_file(kind);
        const std::string own = make_key(kind.name), theirs = read_key(file("pub.pem"));
        ASSERT_EQ(
            KEY_Save(file("own.pem").c_str(), public_of(own).c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_PEM),
            0);
        run("openssl pkeyutl -derive -inkey key.pem -peerkey own.pem -out secret");
        Bytes secret(66);
        const int size = KEY_Agree(secret.data(), 66, own.c_str(), theirs.c_str(), 0);
        secret.resize(static_cast<size_t>(size));
        EXPECT_EQ(secret, read_file(file("secret"))) << kind.name;
    }
}
