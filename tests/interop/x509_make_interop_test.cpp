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
    int issue(const std::string& out, const std::string& issuer, const std::string& subject,
              const std::string& key, const char* name, const char* extensions, int usage, int options,
              int number = 18) const {
        return X509_MakeCert(file(out).c_str(), file(issuer).c_str(), file(subject).c_str(),
                             file(key + ".enc").c_str(), number, 2, name, extensions, usage, kX509Password,
                             options);
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

TEST_F(X509MakeInterop, IssuedWithEveryOption) {
    make_root();
    make_pair("leaf");
    const std::string nine = "Digital Signature, Non Repudiation, Key Encipherment, Data Encipherment, Key "
                             "Agreement, Certificate Sign, CRL Sign, Encipher Only, Decipher Only";
    const struct {
        const char* extensions;
        int usage, options;
        std::vector<std::string> shown, absent;
    } certs[] = {
        {nullptr,
         0,
         0,
         {"Version: 3", "Serial Number: 18 (0x12)", "Basic Constraints: critical\n                CA:FALSE"},
         {"Key Usage", "Identifier", "Alternative"}},
        {"notBefore=2010-01-01;notAfter=2049/12/31",
         0x1ff,
         ZUL_X509_NO_BASIC,
         {"Not Before: Jan  1 00:00:01 2010 GMT", "Not After : Dec 31 23:59:59 2049 GMT",
          "X509v3 Key Usage: critical\n                " + nine + "\n"},
         {"Basic Constraints"}},
        {"serialNumber=8f0e0d0c0b0a09080706050403020100;subjectKeyIdentifier=DEADBEEF; "
         "RFC822NAME=x@example.com;"
         "notBefore=2020-02-29T12:34:56;notAfter=2051-01-01T00:00:00",
         ZUL_KEYUSAGE_DECIPHERONLY,
         ZUL_X509_AUTHKEYID | ZUL_HASH_SHA512,
         {"8f:0e:0d:0c:0b:0a:09:08:07:06:05:04:03:02:01:00\n", "DE:AD:BE:EF\n", "email:x@example.com\n",
          "Not Before: Feb 29 12:34:56 2020 GMT", "Not After : Jan  1 00:00:00 2051 GMT",
          "Authority Key Identifier: \n                01:02:03:04:05\n", "Decipher Only\n"},
         {"(Negative)", "-8f", "Key Identifier: critical", "Alternative Name: critical"}},
        {"subjectKeyIdentifier=01",
         1,
         ZUL_X509_SET_CA | ZUL_HASH_MD5,
         {"CA:TRUE", "Digital Signature\n"},
         {}},
        {"rfc822Name=x@y;subjectKeyIdentifier=01", 1, ZUL_X509_VERSION1, {"Version: 1 (0x0)"}, {"X509v3"}},
    };
    for (const auto& c : certs) {
        SCOPED_TRACE(testing::Message() << c.extensions << " " << std::hex << c.options);
        done(issue("cert.pem", "root.pem", "leaf.pub", "root", "CN=Leaf", c.extensions, c.usage,
                   c.options | ZUL_X509_FORMAT_PEM));
        shows("openssl x509 -in cert.pem -text", c.shown, c.absent);
        shows("openssl x509 -in cert.pem -issuer -noout", {"issuer=CN = Root, O = Example, C = AU"});
        run("openssl verify -auth_level 0 -no_check_time -CAfile root.pem cert.pem");
        run("certtool -i --infile cert.pem");
        run("openssl x509 -in cert.pem -pubkey -noout >a && cmp a leaf.pub");
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
        done(issue("cert.pem", "root.pem", request, "root", "", nullptr, 0,
                   ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256));
        run("openssl verify -auth_level 0 -CAfile root.pem cert.pem");
        run("openssl x509 -in cert.pem -pubkey -noout >a && cmp a leaf.pub");
        shows("openssl x509 -in cert.pem -subject -noout", {"Req"});
    }
}

TEST_F(X509MakeInterop, RevocationLists) {
    make_root();
    make_pair("leaf");
    done(issue("revoked.pem", "root.pem", "leaf.pub", "root", "CN=R", "serialNumber=00fe01", 0,
               ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256));
    done(issue("good.pem", "root.pem", "leaf.pub", "root", "CN=G", "serialNumber=fe02", 0,
               ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256));
    bool pem = false;
    for (const auto& digest : kDigests) {
        SCOPED_TRACE(digest.name);
        pem = !pem;
        done(X509_MakeCRL(file("crl").c_str(), file("root.pem").c_str(), file("root.enc").c_str(),
                          kX509Password, "1,2010-01-01;#xfe01,2010-02-03T12:00:00;65026=2050-01-01",
                          pem ? "thisUpdate=2020-05-06T07:08:09;nextUpdate=2050-01-02" : nullptr,
                          digest.option | (pem ? ZUL_X509_FORMAT_PEM : 0)));
        const std::string form = std::string(" -in crl -inform ") + (pem ? "PEM" : "DER");
        shows("openssl crl -text -CAfile root.pem" + form,
              {"verify OK", "Version 1 (0x0)", std::string("Signature Algorithm: ") + digest.name,
               "Serial Number: 01\n        Revocation Date: Jan  1 00:00:00 2010 GMT",
               "Serial Number: FE01\n        Revocation Date: Feb  3 12:00:00 2010 GMT",
               "Serial Number: FE02\n        Revocation Date: Jan  1 00:00:00 2050 GMT",
               pem ? "Last Update: May  6 07:08:09 2020 GMT\n        Next Update: Jan  2 00:00:00 2050 GMT"
                   : "Next Update: NONE"});
        run("openssl crl -out crl.pem" + form);
        shows("certtool --crl-info --infile crl.pem", {"Version: 1", "Serial Number (hex): 00fe01", "(3)"});
        if (pem)
            run("! openssl verify -auth_level 0 -crl_check -CRLfile crl.pem -CAfile root.pem revoked.pem && "
                "openssl verify -auth_level 0 -crl_check -CRLfile crl.pem -CAfile root.pem -attime "
                "1600000000 "
                "revoked.pem >v 2>&1; grep 'certificate revoked' v");
    }
    done(X509_MakeCRL(file("crl").c_str(), file("root.pem").c_str(), file("root.enc").c_str(), kX509Password,
                      "", "nextUpdate=2050-01-02", ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256));
    shows("openssl crl -in crl -text -CAfile root.pem", {"verify OK", "No Revoked Certificates."});
    run("openssl verify -auth_level 0 -crl_check -CRLfile crl -CAfile root.pem good.pem");
}

TEST_F(X509MakeInterop, Paths) {
    make_root();
    make_pair("a");
    make_pair("b");
    run("cp root.pem c1.pem && cp root.pem between && : >all");
    std::string list = file("c1.pem"); // newest first
    for (int length = 1; length <= 20; length++) {
        const std::string number = std::to_string(length), cert = "c" + number + ".pem";
        if (length > 1) {
            const std::string key = length == 2 ? "root" : length % 2 == 1 ? "a" : "b";
            done(issue(cert, "c" + std::to_string(length - 1) + ".pem", length % 2 == 0 ? "a.pub" : "b.pub",
                       key, ("CN=Level " + number).c_str(),
                       ("subjectKeyIdentifier=0" + std::to_string(length % 2)).c_str(),
                       ZUL_KEYUSAGE_KEYCERTSIGN,
                       ZUL_X509_SET_CA | ZUL_X509_AUTHKEYID | ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256, length));
            list = file(cert) + ";" + list;
        }
        run("cat " + cert + " >>all");
        if (length == 1 || length == 2 || length == 7 || length == 20) {
            SCOPED_TRACE(length);
            run("openssl verify -auth_level 0 -CAfile root.pem -untrusted between " + cert);
            EXPECT_EQ(X509_ValidatePath(list.c_str(), nullptr, 0), 0);
            EXPECT_EQ(X509_ValidatePath(list.c_str(), file("root.pem").c_str(), 0), 0);
            run("openssl crl2pkcs7 -nocrl -certfile all -out p7.pem && "
                "openssl pkcs7 -in p7.pem -outform DER -out p7.der");
            EXPECT_EQ(X509_ValidatePath(file("p7.pem").c_str(), nullptr, 0), 0);
            EXPECT_EQ(X509_ValidatePath(file("p7.der").c_str(), file("root.pem").c_str(), 0), 0);
        }
        run("cat " + cert + " >>between");
    }
    run("cat c20.pem >>all && openssl crl2pkcs7 -nocrl -certfile all -out p7.pem");
    EXPECT_EQ(X509_ValidatePath(file("p7.pem").c_str(), nullptr, 0), -OUT_OF_RANGE_ERROR);
}
