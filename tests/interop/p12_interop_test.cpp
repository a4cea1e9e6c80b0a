#include "interop/x509_interop.h"
#include "support/key_calls.h"

// PKCS #12 files of every kind of key, made by openssl, certtool and keytool, and read by them.
namespace test {
namespace {

const char* const kKinds[] = {"RSA -pkeyopt rsa_keygen_bits:2048", "EC -pkeyopt ec_paramgen_curve:P-256",
                              "EC -pkeyopt ec_paramgen_curve:P-384", "EC -pkeyopt ec_paramgen_curve:P-521",
                              "ED25519"};

class P12Interop : public X509Interop {
  protected:
    P12Interop() {
        run("openssl req -x509 -newkey rsa:2048 -nodes -keyout ca.key -out ca.pem -subj /CN=Root -days 99");
    }
    // make_owner has openssl make own.key and its certificate own.pem, which the root has issued.
    void make_owner(const std::string& kind) const {
        run("openssl genpkey -algorithm " + kind + " -out own.key");
        run("openssl req -new -key own.key -subj /CN=Own -out own.csr");
        run("openssl x509 -req -in own.csr -CA ca.pem -CAkey ca.key -set_serial 7 -days 9 -out own.pem");
    }
    void pack(const std::string& password, const std::string& name, int options) const {
        done(P12_Pack(file("o.p12").c_str(), (file("ca.pem") + ";" + file("own.pem")).c_str(),
                      file("own.key").c_str(), password.c_str(), name.c_str(), options));
    }
    // reads checks that a file of others gives the key, its certificate and the root.
    void reads(const std::string& name, const std::string& password) const {
        SCOPED_TRACE(name);
        char key[4000];
        done(P12_Unpack(file("certs").c_str(), key, 3999, file(name).c_str(), password.c_str(), 0));
        EXPECT_EQ(KEY_Match(key, read_key(file("own.pem")).c_str()), 0);
        run("cat own.pem ca.pem >wanted && tr -d '\\r' <certs | cmp - wanted");
    }
};

TEST_F(P12Interop, WeReadTheirs) {
    const std::string password = "p\u00e4ss\u20acword";
    const std::string from = "openssl pkcs12 -export -in own.pem -inkey own.key -certfile ca.pem -name Own ";
    std::vector<const char*> exports = {"",
                                        "-legacy",
                                        "-nomac",
                                        "-macalg sha1",
                                        "-macalg sha384 -keypbe NONE -certpbe NONE",
                                        "-nomaciter",
                                        "-macalg sha512 -certpbe AES-128-CBC -keypbe des-ede3-cbc",
                                        "-legacy -certpbe PBE-SHA1-2DES -keypbe PBE-SHA1-RC2-128"};
    std::vector<const char*> stores = {"", "-J-Dkeystore.pkcs12.legacy"};
    std::vector<const char*> ciphers = {"aes-256", "3des-pkcs12", "rc2-40"};
    for (const char* kind : kKinds) {
        SCOPED_TRACE(kind);
        make_owner(kind);
        for (const char* options : exports) {
            run(from + "-passout pass:" + password + " -out f.p12 " + options);
            reads("f.p12", password);
        }
        run(from + "-passout pass:pass-word -out f.p12");
        for (const char* options : stores) {
            run(std::string("rm -f j.p12; keytool ") + options +
                " -importkeystore -srckeystore f.p12 -srcstorepass pass-word -srcstoretype pkcs12 "
                "-destkeystore j.p12 -deststorepass java-word -deststoretype pkcs12");
            reads("j.p12", "java-word");
        }
        for (const char* cipher : ciphers) {
            run("cat own.pem ca.pem >both.pem; certtool --to-p12 --load-certificate both.pem --load-privkey "
                "own.key --p12-name Own --password '" +
                password + "' --outder --outfile g.p12 --pkcs-cipher " + cipher);
            reads("g.p12", password);
        }
        for (auto* programs : {&exports, &stores, &ciphers})
            programs->resize(1); // for the other kinds of keys
    }
}

TEST_F(P12Interop, TheyReadOurs) {
    const std::string name = "Own \u00fc";
    std::vector<int> every = {0, ZUL_P12_LEGACY};
    std::vector<std::string> passwords = {"pass-word", "p\u00e4ss\u20ac"};
    for (const char* kind : kKinds) {
        SCOPED_TRACE(kind);
        make_owner(kind);
        for (const int options : every) {
            for (const std::string& password : passwords) {
                pack(password, name, options);
                const std::string in = "openssl pkcs12 -in o.p12 -passin pass:" + password;
                run(in + " -nodes -nocerts | openssl pkey | cmp - own.key");
                run(in + " -nokeys | sed -n '/BEGIN/,/END/p' >certs && cat own.pem ca.pem | cmp - certs");
                shows("certtool --p12-info --inder --infile o.p12 --password '" + password + "'",
                      {"Friendly name: " + name, "BEGIN CERTIFICATE", "BEGIN ENCRYPTED PRIVATE KEY"},
                      {"verify_mac"});
            }
            pack("pass-word", name, options);
            run("keytool -importkeystore -srckeystore o.p12 -srcstorepass pass-word -srcstoretype pkcs12 "
                "-destkeystore k.p12 -deststorepass other-word -deststoretype pkcs12 -noprompt");
            reads("k.p12", "other-word");
            run("rm k.p12");
        }
        every.resize(1); // for the other kinds of keys
        passwords.resize(1);
    }
    done(P12_Pack(file("t.p12").c_str(), (file("ca.pem") + ";" + file("own.pem")).c_str(), nullptr,
                  "pass-word", "", ZUL_P12_TRUSTED));
    shows("keytool -list -v -storetype pkcs12 -keystore t.p12 -storepass pass-word",
          {"contains 2 entries", "Entry type: trustedCertEntry"});
    run("openssl pkcs12 -in t.p12 -nokeys -passin pass:pass-word -out certs");
}

// Programs of today do not know PBMAC1 yet, so openssl computes the MAC here step by step.
TEST_F(P12Interop, PbmacOne) {
    make_owner(kKinds[1]);
    pack("pass-word", "", ZUL_P12_PBMAC1);
    run("openssl pkcs12 -nomacver -in o.p12 -passin pass:pass-word -nodes -nocerts | openssl pkey | cmp - "
        "own.key");
    run("openssl asn1parse -inform DER -in o.p12 -strparse 26 -noout -out safe");
    shows("openssl asn1parse -inform DER -in o.p12", {":PBMAC1", ":PBKDF2"});
    run("openssl asn1parse -inform DER -in o.p12 | sed -n 's/.*HEX DUMP.:\\(.*\\)/\\1/p' | tail -n 2 "
        ">octets");
    run("{ read salt; read mac; } <octets; key=$(openssl kdf -keylen 32 -kdfopt digest:SHA256 -kdfopt "
        "pass:pass-word -kdfopt hexsalt:$salt -kdfopt iter:600000 -binary PBKDF2 | od -An -v -tx1 | tr -d ' "
        "\\n'); "
        "openssl dgst -sha256 -mac HMAC -macopt hexkey:$key -r safe | grep -i ^$mac");
}

} // namespace
} // namespace test
