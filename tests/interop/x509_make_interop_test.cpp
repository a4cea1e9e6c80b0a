#include "interop/x509_interop.h"

// What we make, openssl and certtool read and verify.

namespace {

using test::kX509Password;

const struct {
    int option;
    const char* name;
} kDigests[] = {
    // openssl has no MD2
    {ZUL_HASH_SHA1, "sha1WithRSAEncryption"},     {ZUL_HASH_MD5, "md5WithRSAEncryption"},
    {ZUL_HASH_SHA224, "sha224WithRSAEncryption"}, {ZUL_HASH_SHA256, "sha256WithRSAEncryption"},
    {ZUL_HASH_SHA384, "sha384WithRSAEncryption"}, {ZUL_HASH_SHA512, "sha512WithRSAEncryption"},
};

class X509MakeInterop : public test::X509Interop {
  protected:
    int self(const std::string& out, const std::string& key, const char* name, const char* extensions,
             int usage, int options) const {
        return X509_MakeCertSelf(file(out).c_str(), file(key + ".enc").c_str(), 17, 2, name, extensions,
                                 usage, kX509Password, options);
    }
    int issue(const std::string& subject) const {
        return X509_MakeCert(file("cert.pem").c_str(), file("root.pem").c_str(), file(subject).c_str(),
                             file("root.enc").c_str(), 18, 2, "", nullptr, 0, kX509Password,
                             ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256);
    }
    // The root that the others hang from.
    void make_root() const {
        make_pair("root", 2048);
        done(self("root.pem", "root", "CN=Root;O=Example;C=AU", "subjectKeyIdentifier=0102030405",
                  ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN, ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM));
    }
};

} // namespace

TEST_F(X509MakeInterop, SelfSignedByEveryDigest) {
    make_pair("key");
    bool pem = false;
    for (const auto& digest : kDigests) {
        SCOPED_TRACE(digest.name);
        pem = !pem;
        done(self("cert", "key", "C=AU;O='A; B';CN=Zo\xeb;E=a@example.com", "subjectKeyIdentifier=0a0b",
                  ZUL_KEYUSAGE_KEYCERTSIGN,
                  digest.option | (pem ? ZUL_X509_FORMAT_PEM : 0) | (pem ? ZUL_X509_UTF8 : 0)));
        shows(std::string("openssl x509 -in cert -text -nameopt RFC2253,show_type,-esc_msb -inform ") +
                  (pem ? "PEM" : "DER"),
              {"Version: 3 (0x2)", "Serial Number: 17 (0x11)",
               std::string("Signature Algorithm: ") + digest.name,
               pem ? "CN=UTF8STRING:Zo\xc3\xab,O=UTF8STRING:A\\; B,C=UTF8STRING:AU"
                   : "CN=T61STRING:Zo\xc3\xab,O=IA5STRING:A\\; B,C=PRINTABLESTRING:AU",
               "X509v3 Basic Constraints: critical\n                CA:TRUE\n",
               "X509v3 Key Usage: critical\n                Certificate Sign\n", "0A:0B"});
        run(std::string("openssl x509 -in cert -out cert.pem -inform ") + (pem ? "PEM" : "DER"));
        run("openssl verify -auth_level 0 -x509_strict -check_ss_sig -CAfile cert.pem cert.pem");
        shows("certtool -i --infile cert.pem", {"Version: 3", "Serial Number (hex): 11",
                                                "Certificate Authority (CA): TRUE", "Certificate signing."});
    }
}

TEST_F(X509MakeInterop, Requests) {
    make_root();
    make_pair("leaf");
    bool der = false;
    for (const auto& digest : kDigests) {
        SCOPED_TRACE(digest.name);
        der = !der;
        done(X509_CertRequest(
            file("req").c_str(), file("leaf.enc").c_str(), "CN=Req;L=Z\xfcrich", "", kX509Password,
            digest.option | (der ? ZUL_X509_REQ_DER | ZUL_X509_REQ_NOATTRS : ZUL_X509_UTF8)));
        const std::string form = std::string(" -in req -inform ") + (der ? "DER" : "PEM");
        shows("openssl req -verify -text -nameopt utf8,-esc_msb" + form,
              {"verify OK", "Version: 1 (0x0)", "Z\xc3\xbcrich",
               std::string("Signature Algorithm: ") + digest.name});
        // certtool reads no request without attributes, and verifies no MD5
        if (!der) {
            run("openssl req -out req.pem" + form);
            shows("certtool --crq-info --infile req.pem",
                  {"CN=Req", digest.option == ZUL_HASH_MD5 ? "RSA-MD5" : "Self signature: verified"});
        }
    }
    // certificates of our request and of theirs
    done(X509_CertRequest(file("ours").c_str(), file("leaf.enc").c_str(), "CN=Req;O=AB", nullptr,
                          kX509Password, ZUL_HASH_SHA256));
    run("printf '[req]\\ndistinguished_name=dn\\nstring_mask=default\\nreq_extensions=e\\n[dn]\\n[e]\\n"
        "keyUsage=cRLSign\\n' >cnf && openssl req -config cnf -new -key leaf.key -subj '/CN=Req/O=AB' -out "
        "theirs");
    run("printf 'cn = Req\\norganization = AB\\n' >template && certtool -q --load-privkey leaf.key "
        "--template "
        "template --outfile other");
    for (const char* request : {"ours", "theirs", "other"}) {
        SCOPED_TRACE(request);
        done(issue(request));
        run("openssl verify -auth_level 0 -CAfile root.pem cert.pem");
        run("openssl x509 -in cert.pem -pubkey -noout >a && cmp a leaf.pub");
        shows("openssl x509 -in cert.pem -subject -noout", {"Req"});
    }
}
