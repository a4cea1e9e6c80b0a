#include "interop/x509_interop.h"

// PFX files, made by one side and read by the other.
namespace test {
namespace {

class PfxInterop : public X509Interop {
  protected:
    PfxInterop() {
        make_pair("alice");
        run("openssl req -new -x509 -key alice.key -subj /CN=Alice -days 9 -outform DER -out alice.cer");
    }
    int make(const char* name, int options, const char* password = kX509Password) const {
        return PFX_MakeFile(file("made.p12").c_str(), file("alice.cer").c_str(), file("alice.enc").c_str(),
                            password, name, options);
    }
    // Reads both back into files.
    void expect_back(const std::string& pfx, const std::string& password) const {
        done(PFX_VerifySig(file(pfx).c_str(), password.c_str(), 0));
        EXPECT_EQ(PFX_VerifySig(file(pfx).c_str(), "other", 0), SIGNATURE_ERROR);
        done(X509_GetCertFromPFX(file("back.cer").c_str(), file(pfx).c_str(), 0));
        EXPECT_EQ(read("back.cer"), read("alice.cer"));
        expect_key_back(pfx, password);
    }
    void expect_key_back(const std::string& pfx, const std::string& password) const {
        done(RSA_GetPrivateKeyFromPFX(file("back.enc").c_str(), file(pfx).c_str(), 0));
        const std::string key = encrypted_key("back.enc", password);
        EXPECT_EQ(RSA_KeyMatch(key.c_str(), public_key("alice.pub").c_str()), 0);
    }
};

TEST_F(PfxInterop, OthersReadOurs) {
    done(make("Alice M\xfcller", 0));
    const std::string alone = " -in made.p12 -nodes -passin pass:" + std::string(kX509Password);
    shows("openssl pkcs12 -info -noout" + alone,
          {"MAC: sha1, Iteration 2000", "PKCS7 Data", "Certificate bag", "Shrouded Keybag: PBES2"},
          {"Encrypted"});
    shows("openssl pkcs12" + alone,
          {"localKeyID: 01 00 00 00", "friendlyName: Alice M", "subject=CN = Alice"});
    run("openssl pkcs12 -nocerts" + alone + " | openssl pkey -out back.key && cmp back.key alice.key");
    run("openssl pkcs12 -nokeys" + alone +
        " | openssl x509 -outform DER -out back.cer && cmp back.cer alice.cer");
    shows("certtool --p12-info --inder --infile made.p12 --password " + std::string(kX509Password),
          {"BEGIN CERTIFICATE", "BEGIN ENCRYPTED PRIVATE KEY", "Friendly name: Alice M\u00fcller"},
          {"verify_mac", "There were errors"});
    run("keytool -list -storetype pkcs12 -keystore made.p12 -storepass " + std::string(kX509Password));

    done(make("", ZUL_PFX_NO_PRIVKEY, "")); // empty password, certificate alone
    shows("openssl pkcs12 -in made.p12 -passin pass:", {"BEGIN CERTIFICATE", "friendlyName: \n"},
          {"PRIVATE KEY"});
    done(make("Alice", ZUL_KEY_FORMAT_PEM));
    run("grep -v PKCS12 made.p12 | openssl base64 -d -out made.der");
    run("openssl pkcs12 -in made.der -noout -passin pass:" + std::string(kX509Password));
}

TEST_F(PfxInterop, WeReadOthers) {
    const std::string openssl =
        "openssl pkcs12 -export -inkey alice.key -in alice.pem -iter 100 -out their.p12 ";
    run("openssl x509 -inform DER -in alice.cer -out alice.pem");
    for (const std::string options :
         {"-legacy", "-keypbe AES-128-CBC", "-macalg sha256", "-macalg sha384 -nomaciter", "-macalg sha512",
          "-name Alice -caname x -CSP y", "-keypbe PBE-SHA1-RC2-40 -legacy"}) {
        SCOPED_TRACE(options);
        run(openssl + options + " -certpbe NONE -passout 'pass:a \xe4 b'");
        expect_back("their.p12", "a \xe4 b");
    }
    for (const std::string options : {"--password 'two words'", "--empty-password", "--null-password"}) {
        SCOPED_TRACE(options);
        run("certtool --to-p12 --load-certificate alice.pem --load-privkey alice.key --p12-name a --outder "
            "--outfile their.p12 " +
            options);
        const std::string password = options[2] == 'p' ? "two words" : "";
        done(PFX_VerifySig(file("their.p12").c_str(), password.c_str(), 0));
        EXPECT_EQ(X509_GetCertFromPFX(file("back.cer").c_str(), file("their.p12").c_str(), 0),
                  NOT_SUPPORTED_ERROR);
        if (options != "--null-password") // its key is not encrypted
            expect_key_back("their.p12", password);
    }
}

} // namespace
} // namespace test
