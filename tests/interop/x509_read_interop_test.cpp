#include <algorithm>

#include "interop/x509_interop.h"

// What openssl and certtool make, we read, verify, look up and describe.

namespace {

using test::plain;

class X509ReadInterop : public test::X509Interop {
  protected:
    // What openssl says of a certificate after "=".
    std::string openssl(const std::string& cert, const std::string& option) const {
        std::string line = said("openssl x509 -noout -in " + cert + " " + option);
        line.erase(0, line.find('=') + 1);
        return line.substr(0, line.find('\n'));
    }
    std::string dump(const std::string& object) const {
        EXPECT_EQ(X509_TextDump(file("dump").c_str(), file(object).c_str(), 0), 0) << object;
        return test::read_text(file("dump"));
    }
    void same_fields(const std::string& cert) const {
        const std::string serial = plain(openssl(cert, "-serial")); // the number, not the octets
        EXPECT_EQ(query(cert, "serialNumber"), (serial[0] > '7' ? "00" : "") + serial);
        EXPECT_EQ(thumb(cert, ZUL_HASH_SHA1), plain(openssl(cert, "-fingerprint -sha1")));
        EXPECT_EQ(thumb(cert, ZUL_HASH_SHA512), plain(openssl(cert, "-fingerprint -sha512")));
        const std::string from = query(cert, "notBefore"), to = query(cert, "notAfter");
        EXPECT_EQ(from.substr(0, 10) + " " + from.substr(11), openssl(cert, "-dateopt iso_8601 -startdate"));
        EXPECT_EQ(to.substr(0, 10) + " " + to.substr(11), openssl(cert, "-dateopt iso_8601 -enddate"));
        const std::string name = query(cert, "subjectName", ZUL_X509_LATIN1);
        std::string shown = openssl(cert, "-subject -nameopt sname,sep_comma_plus");
        std::replace(shown.begin(), shown.end(), ',', ';');
        EXPECT_EQ(name, shown);
        same_dump(cert, name);
    }
    // The dump of a certificate has all its long values whole.
    void same_dump(const std::string& cert, const std::string& name) const {
        const std::string text = dump(cert), hex = plain(text);
        EXPECT_NE(text.find("Subject:\n  " + name + "\n"), std::string::npos) << text;
        const std::string shown = said("openssl x509 -noout -text -in " + cert);
        if (shown.find("WithRSAEncryption") != std::string::npos) {
            const std::string signature = plain(shown.substr(shown.rfind("Signature Value:") + 16));
            EXPECT_NE(hex.find(signature), std::string::npos) << text;
        }
        if (shown.find(": rsaEncryption") != std::string::npos) {
            EXPECT_NE(hex.find(plain(openssl(cert, "-modulus"))), std::string::npos) << text;
        }
        EXPECT_NE(text.find("SHA-1 Thumbprint:\n  " + thumb(cert, ZUL_HASH_SHA1) + "\n"), std::string::npos);
        EXPECT_NE(text.find("MD5 Thumbprint:\n  " + thumb(cert, ZUL_HASH_MD5) + "\n"), std::string::npos);
    }
    // An openssl root and two leaves of it.
    void make_root(const std::string& newKey) const {
        run("openssl req -x509 " + newKey +
            " -nodes -keyout root.key -out root.pem -sha1 -subj '/C=AU/O=Root Org/CN=Root' -days 3000");
        run("openssl req -new -newkey rsa:1024 -nodes -keyout leaf.key -subj '/C=AU/CN=Leaf' -out leaf.req");
    }
    void issue(const std::string& out, const std::string& serial, const std::string& more) const {
        run("openssl x509 -req -in leaf.req -CA root.pem -CAkey root.key -set_serial " + serial + " -out " +
            out + " " + more);
    }
};

} // namespace

TEST_F(X509ReadInterop, OpensslCertificates) {
    make_root("-newkey rsa:2048");
    same_fields("root.pem");
    EXPECT_EQ(verify("root.pem", "root.pem"), 0);
    int serial = 0x70;
    for (const char* digest : {"md5", "sha1", "sha224", "sha256", "sha384", "sha512"}) {
        SCOPED_TRACE(digest);
        issue("leaf.pem", std::to_string(serial++), std::string("-days 30000 -") + digest);
        same_fields("leaf.pem");
        EXPECT_EQ(query("leaf.pem", "signatureAlgorithm"), std::string(digest) + "WithRSAEncryption");
        EXPECT_EQ(verify("leaf.pem", "root.pem"), 0);
        EXPECT_EQ(verify("leaf.pem", "leaf.pem"), -1);
        EXPECT_EQ(X509_CertIsValidNow(file("leaf.pem").c_str(), 0), 0);
    }
    issue("old.pem", "5", "-days -1");
    EXPECT_EQ(X509_CertIsValidNow(file("old.pem").c_str(), 0), -1);
    EXPECT_EQ(verify("leaf.req", "leaf.pem"), 0);
    EXPECT_NE(dump("leaf.req").find("Subject:\n  C=AU;CN=Leaf\n"), std::string::npos);
    // paths of theirs
    const std::string good = file("leaf.pem") + ";" + file("root.pem"), root = file("root.pem");
    EXPECT_EQ(X509_ValidatePath(good.c_str(), nullptr, 0), 0);
    EXPECT_EQ(X509_ValidatePath(good.c_str(), root.c_str(), 0), 0);
    const std::string expired = file("old.pem") + ";" + root;
    EXPECT_EQ(X509_ValidatePath(expired.c_str(), nullptr, 0), -EXPIRED_ERROR);
    EXPECT_EQ(X509_ValidatePath(expired.c_str(), nullptr, 1), 0);
    run("cat leaf.pem root.pem >both && openssl crl2pkcs7 -nocrl -certfile both -outform DER -out both.p7");
    EXPECT_EQ(X509_ValidatePath(file("both.p7").c_str(), root.c_str(), 0), 0);
    run("certtool --p7-generate --p7-include-cert --load-certificate leaf.pem --load-privkey leaf.key "
        "--infile "
        "leaf.req --outfile signed.p7");
    EXPECT_EQ(X509_ValidatePath(file("signed.p7").c_str(), root.c_str(), 0), 0);
}

TEST_F(X509ReadInterop, OpensslDsa) {
    run("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 -pkeyopt "
        "dsa_paramgen_q_bits:160 -out dsa.par");
    make_root("-newkey dsa:dsa.par");
    same_fields("root.pem");
    for (int i = 0; i < 20; i++) { // now and then r or s is short
        issue("leaf.pem", "1", "-sha1");
        EXPECT_EQ(verify("leaf.pem", "root.pem"), 0);
    }
    same_fields("leaf.pem");
    EXPECT_EQ(X509_QueryCert(nullptr, 0, file("leaf.pem").c_str(), "sigAlgID", 0), 2);
    const std::string path = file("leaf.pem") + ";" + file("root.pem");
    EXPECT_EQ(X509_ValidatePath(path.c_str(), nullptr, 0), 0);
}
