#include <cstdio>
#include <functional>

#include "support/der_bytes.h"
#include "support/key_calls.h"

using test::Bytes, test::element;
using test::last_error;
using test::operator+;

namespace {

std::string data(const std::string& file) {
    return test::data_path("pfx/" + file);
}

std::string chars(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

void expect_text(const test::Vector& v, const std::string& name) {
    if (v.has(name)) {
        EXPECT_EQ(last_error(), v.text(name));
    }
}

// A certificate and its key, encrypted, as files and what is made of them.
class Pfx : public testing::Test {
  protected:
    Pfx() {
        RSA_GetPrivateKeyFromPFX(key.c_str(), data("openssl_sha256.p12").c_str(), 0);
        key_ = test::read_file(key);
        cert_ = test::read_file(cert);
    }
    int make(const char* name, int options, const char* password = "simple") const {
        return PFX_MakeFile(out.c_str(), cert.c_str(), key.c_str(), password, name, options);
    }

    test::TempDir dir;
    const std::string cert = data("cert.der"), key = dir.file("key"), out = dir.file("out");
    Bytes cert_, key_;
};

constexpr auto hex = test::from_hex;

} // namespace

TEST(PfxRead, ProducersAndStructures) {
    const test::TempDir dir;
    const std::string out = dir.file("out"), cert = data("cert.der");
    const std::string publicKey = test::read_key(cert);
    for (const auto& v : test::read_vectors("pfx/cases.txt")) {
        SCOPED_TRACE(v.text("What"));
        const std::string file = v.has("File") ? data(v.text("File")) : dir.write("in", v.hex("Pfx"));
        const std::string password = chars(v.hex("Password"));
        EXPECT_EQ(PFX_VerifySig(file.c_str(), password.c_str(), 0), v.number("Verify")) << last_error();
        expect_text(v, "VerifyText");
        if (v.has("File")) {
            EXPECT_EQ(PFX_VerifySig(file.c_str(), (password + "x").c_str(), 0),
                      v.number("Verify") == 0 ? int{SIGNATURE_ERROR} : v.number("Verify"));
        }

        EXPECT_EQ(X509_GetCertFromPFX(out.c_str(), file.c_str(), 0), v.number("Cert")) << last_error();
        expect_text(v, "CertText");
        EXPECT_EQ(test::file_exists(out), v.number("Cert") == 0);
        if (v.number("Cert") == 0) {
            EXPECT_EQ(test::read_file(out), v.has("File") ? test::read_file(cert) : v.hex("CertIs"));
            ASSERT_EQ(std::remove(out.c_str()), 0);
        }
        EXPECT_EQ(RSA_GetPrivateKeyFromPFX(out.c_str(), file.c_str(), 0), v.number("Key")) << last_error();
        expect_text(v, "KeyText");
        EXPECT_EQ(test::file_exists(out), v.number("Key") == 0);
        if (v.number("Key") != 0)
            continue;
        if (v.has("File")) {
            const std::string keyPassword = v.has("KeyPassword") ? chars(v.hex("KeyPassword")) : password;
            EXPECT_EQ(RSA_KeyMatch(test::read_key(out, keyPassword.c_str()).c_str(), publicKey.c_str()), 0);
        } else {
            EXPECT_EQ(test::read_file(out), v.hex("KeyIs"));
        }
        ASSERT_EQ(std::remove(out.c_str()), 0);
    }
}

// The whole file but for salt and MAC, put together here.
TEST_F(Pfx, MakesTheStructure) {
    const Bytes oidData = hex("06092a864886f70d010701");
    const auto data = [&](const Bytes& content) {
        return element(0x30, oidData + element(0xA0, element(4, content)));
    };
    const Bytes keyId = hex("3013 06092a864886f70d010915 3106040401000000");
    const Bytes name = hex("3019 06092a864886f70d010914 310c 1e0a 0041 00fc 0062 0020 0031");
    const Bytes noName = hex("300f 06092a864886f70d010914 3102 1e00");
    const struct {
        const char* name;
        Bytes attributes;
        int options;
        const char* password;
        bool hasKey;
    } cases[] = {
        {"A\xfc\x62 1", element(0x31, keyId + name), 0, "simple", true},
        {"", element(0x31, keyId + noName), 0, "simple", true},
        {nullptr, element(0x31, keyId + noName), ZUL_PFX_NO_PRIVKEY, "other", false},
        {"x", element(0x31, keyId + hex("3011 06092a864886f70d010914 3104 1e02 0078")), 0, "", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.options);
        ASSERT_RESULT(make(c.name, c.options, c.password), 0);
        const auto bag = [&](const char* type, const Bytes& value) {
            return data(element(0x30, element(0x30, hex(type) + element(0xA0, value) + c.attributes)));
        };
        const Bytes first =
            bag("060b2a864886f70d010c0a0103",
                element(0x30, hex("060a2a864886f70d01091601") + element(0xA0, element(4, cert_))));
        const Bytes second = bag("060b2a864886f70d010c0a0102", key_);
        const Bytes safe = element(0x30, c.hasKey ? first + second : first);
        const Bytes got = test::read_file(out);
        const Bytes macHead = hex("303b 301f 3007 06052b0e03021a 0414"), saltHead = hex("0414");
        ASSERT_GT(got.size(), 61U);
        const auto mac = got.end() - 46, salt = got.end() - 24, end = got.end() - 4;
        EXPECT_EQ(test::to_hex(got),
                  test::to_hex(element(0x30, hex("020103") + data(safe) + macHead + Bytes(mac, mac + 20) +
                                                 saltHead + Bytes(salt, end) + hex("020207d0"))));
        EXPECT_EQ(PFX_VerifySig(out.c_str(), c.password, 0), 0);
        EXPECT_EQ(PFX_VerifySig(out.c_str(), "wrong", 0), SIGNATURE_ERROR);

        ASSERT_EQ(make(c.name, c.options, c.password), 0); // differs in salt and MAC alone
        const Bytes again = test::read_file(out);
        EXPECT_EQ(Bytes(again.begin(), again.end() - 46), Bytes(got.begin(), mac));
        EXPECT_NE(Bytes(again.end() - 24, again.end()), Bytes(salt, got.end()));
    }
}

// What a key file holds is carried as it stands, whatever the form of the file and of the arguments.
TEST_F(Pfx, KeysComeBackAsTheyWere) {
    const std::string back = dir.file("back"), indefinite = dir.file("ber");
    ASSERT_EQ(RSA_GetPrivateKeyFromPFX(indefinite.c_str(), data("ber.p12").c_str(), 0), 0);
    ASSERT_EQ(test::read_file(indefinite)[1], 0x80);
    const std::string pemKey = dir.file("pem");
    ASSERT_EQ(PEM_FileFromBinFile(pemKey.c_str(), key.c_str(), "ENCRYPTED PRIVATE KEY", 64), 0);
    const struct {
        std::string keyFile;
        Bytes expected;
        int options;
    } cases[] = {{indefinite, test::read_file(indefinite), 0},
                 {pemKey, key_, ZUL_KEY_FORMAT_PEM},
                 {test::read_text(pemKey), key_, 0}};
    for (const auto& c : cases) {
        ASSERT_RESULT(PFX_MakeFile(out.c_str(), cert.c_str(), c.keyFile.c_str(), "simple", "", c.options), 0);
        EXPECT_RESULT(PFX_VerifySig(out.c_str(), "simple", 0), 0);
        EXPECT_RESULT(RSA_GetPrivateKeyFromPFX(back.c_str(), out.c_str(), 0), 0);
        EXPECT_EQ(test::read_file(back), c.expected);
        EXPECT_RESULT(X509_GetCertFromPFX(back.c_str(), out.c_str(), 0), 0);
        EXPECT_EQ(test::read_file(back), cert_);
        const bool isPem = test::read_text(out).starts_with("-----BEGIN PKCS12-----\r\nMII");
        EXPECT_EQ(isPem, c.options != 0);
    }
}

TEST_F(Pfx, SaysWhatIsWrong) {
    const std::string none = dir.file("none"), nowhere = dir.file("no/where");
    const std::string pfx = data("openssl_sha256.p12"), copy = dir.write("copy", test::read_file(pfx));
    const std::string cannotOpen = "Cannot open file '" + none + "'";
    const auto made = [&](const std::string& to, const std::string& certificate, const std::string& keyFile,
                          const char* password) {
        return
            [=] { return PFX_MakeFile(to.c_str(), certificate.c_str(), keyFile.c_str(), password, "", 0); };
    };
    const auto extracted = [](auto function, const std::string& to, const std::string& from) {
        return [=] { return function(to.c_str(), from.c_str(), 0); };
    };
    const struct {
        const char* what;
        std::function<int()> call;
        int expected;
        std::string text;
    } cases[] = {
        {"no output", made("", cert, key, "simple"), BAD_PARAM_ERROR, ""},
        {"no certificate", made(out, "", key, "simple"), BAD_PARAM_ERROR, ""},
        {"certificate is missing", made(out, none, key, "simple"), INVALID_DATA_ERROR,
         "Unable to open file '" + none + "'; Invalid ASN.1 data in " + none},
        {"certificate is none", made(out, key, key, "simple"), INVALID_DATA_ERROR,
         "Not a valid X.509 certificate; Invalid ASN.1 data in " + key},
        {"key is missing", made(out, cert, none, "simple"), OPEN_ERROR, cannotOpen},
        {"wrong password", made(out, cert, key, "wrong"), DECRYPT_ERROR,
         "Decryption error; Could not decrypt key"},
        {"key is none", made(out, cert, cert, "simple"), DECRYPT_ERROR,
         "Invalid EncryptedPrivateKeyInfo format; Could not decrypt key"},
        {"output cannot be made", made(nowhere, cert, key, "simple"), CREATE_ERROR,
         "Cannot create file " + nowhere},
        {"output is the key", made(key, cert, key, "simple"), CREATE_ERROR, "Cannot create file " + key},
        {"nothing to verify", [] { return PFX_VerifySig("", "x", 0); }, BAD_PARAM_ERROR, ""},
        {"PFX is missing", [&] { return PFX_VerifySig(none.c_str(), "x", 0); }, OPEN_ERROR, cannotOpen},
        {"no file to extract to", extracted(X509_GetCertFromPFX, "", pfx), BAD_PARAM_ERROR, ""},
        {"no file to extract from", extracted(RSA_GetPrivateKeyFromPFX, out, ""), BAD_PARAM_ERROR, ""},
        {"extracted to nowhere", extracted(X509_GetCertFromPFX, nowhere, pfx), CREATE_ERROR,
         "Cannot create " + nowhere},
        {"extracted to itself", extracted(RSA_GetPrivateKeyFromPFX, copy, copy), CREATE_ERROR,
         "Cannot create " + copy},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FAILURE(c.call(), c.expected, c.text);
        EXPECT_FALSE(test::file_exists(out));
    }
    EXPECT_EQ(test::read_file(key), key_);
    EXPECT_EQ(test::read_file(copy), test::read_file(pfx));
}
