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

} // namespace
} // namespace test
