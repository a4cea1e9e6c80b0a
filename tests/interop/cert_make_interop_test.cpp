#include "interop/x509_interop.h"

// Certificates of every kind of key that openssl, certtool, curl and python3-cryptography take.

using test::kP256;
using test::kRsa2048;

namespace {

const struct {
    const char *name, *genpkey, *signature;
    bool signs = true, gnutls = true;
} kKinds[] = {
    {"rsa", kRsa2048, "sha256WithRSAEncryption"},
    {"rsa-pss", "-algorithm RSA-PSS -pkeyopt rsa_keygen_bits:2048", "rsassaPss"},
    {"rsa-pss with parameters",
     "-algorithm RSA-PSS -pkeyopt rsa_keygen_bits:2048 -pkeyopt rsa_pss_keygen_md:sha384 -pkeyopt "
     "rsa_pss_keygen_mgf1_md:sha384 -pkeyopt rsa_pss_keygen_saltlen:40",
     "rsassaPss", true, false}, // certtool demands a salt as long as the digest
    {"p-256", kP256, "ecdsa-with-SHA256"},
    {"p-384", "-algorithm EC -pkeyopt ec_paramgen_curve:P-384", "ecdsa-with-SHA384"},
    {"p-521", "-algorithm EC -pkeyopt ec_paramgen_curve:P-521", "ecdsa-with-SHA512"},
    {"ed25519", "-algorithm ED25519", "ED25519"},
    {"x25519", "-algorithm X25519", "", false},
};

class CertMakeInterop : public test::X509Interop {
  protected:
    void self_sign(const std::string& name, const std::string& description) const {
        done(CERT_SelfSign(file(name + ".pem").c_str(), file(name + ".key").c_str(), description.c_str(), 0));
    }
    // issue makes name.pem, by the authority root, for a key or request.
    void issue(const std::string& name, const std::string& subject, const std::string& description) const {
        done(CERT_Issue(file(name + ".pem").c_str(), file("root.pem").c_str(), file("root.key").c_str(),
                        file(subject).c_str(), description.c_str(), 0));
    }
    void make_root(const std::string& how, const std::string& more = "") const {
        genpkey("root", how);
        self_sign("root", "C=AU;O=B\u00FCcher;CN=Root;profile=ca" + more);
    }
};

} // namespace

TEST_F(CertMakeInterop, EveryKindOfKey) {
    make_root(kP256);
    for (const auto& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        if (!kind.signs) { // a subject alone
            genpkey("leaf", kind.genpkey);
            issue("leaf", "leaf.key", "CN=Leaf");
            run("openssl verify -x509_strict -CAfile root.pem leaf.pem");
            shows("openssl x509 -in leaf.pem -text", {"Public Key Algorithm: X25519", "Key Agreement\n"});
            continue;
        }
        make_root(kind.genpkey, ";pathLength=0");
        genpkey("leaf", kind.genpkey);
        done(CERT_Request(file("leaf.csr").c_str(), file("leaf.key").c_str(),
                          "CN=Leaf;profile=server;dns=www.example.com;uri=http://a.example/", 0));
        shows("openssl req -verify -in leaf.csr -text",
              {"request self-signature verify OK", "DNS:www.example.com, URI:http://a.example/",
               kind.signature});
        issue("leaf", "leaf.csr", "profile=server;copy=subjectAltName");
        run("openssl verify -x509_strict -check_ss_sig -purpose sslserver -verify_hostname www.example.com "
            "-CAfile "
            "root.pem leaf.pem");
        shows("openssl x509 -in leaf.pem -text",
              {std::string("Signature Algorithm: ") + kind.signature,
               "Issuer: C = AU, O = B\\C3\\BCcher, CN = Root", "Subject: CN = Leaf"});
        if (kind.gnutls) {
            shows("certtool --verify --verify-profile low --verify-hostname www.example.com "
                  "--load-ca-certificate "
                  "root.pem --infile leaf.pem",
                  {"Chain verification output: Verified. The certificate is trusted."});
            shows("certtool --crq-info --infile leaf.csr", {"Self signature: verified"});
        }
    }
}

TEST_F(CertMakeInterop, EverySignatureAlgorithm) {
    const struct {
        const char* genpkey;
        std::vector<std::string> algorithms;
    } rows[] = {{kRsa2048,
                 {"rsa-sha1", "rsa-sha224", "rsa-sha384", "rsa-sha512", "rsa-sha3-256", "rsa-pss-sha1",
                  "rsa-pss-sha256", "'rsa-pss-sha512;salt=20;mgf=sha256'", "'rsa-pss-sha256;salt=max'",
                  "'rsa-pss-sha256;salt=0'"}},
                {kP256, {"ecdsa-sha1", "ecdsa-sha224", "ecdsa-sha384", "ecdsa-sha512"}}};
    for (const auto& row : rows) {
        genpkey("key", row.genpkey);
        for (const std::string& algorithm : row.algorithms) {
            SCOPED_TRACE(algorithm);
            self_sign("key", "CN=Root;profile=ca;signature=" + algorithm);
            run("openssl verify -auth_level 0 -x509_strict -check_ss_sig -CAfile key.pem key.pem");
        }
    }
}

TEST_F(CertMakeInterop, EveryKeyword) {
    make_root(kP256, ";notBefore=2025-01-01");
    genpkey("sub", kP256);
    issue(
        "sub", "sub.key",
        "subject='CN=\u0417\u0430\u0440\u044F;C=au;ST=S;L=L;STREET=\"1 "
        "Way\";POSTALCODE=2000;SN=N;G=G;T=T;DC=example;"
        "UID=u;SERIALNUMBER=7;E=a@B\u00FCcher.example;2.5.4.97=VATAU-1;OU=\\'a\\';PSEUDONYM=p';"
        "ca;pathLength=0;keyUsage=keyCertSign,cRLSign,digitalSignature;extKeyUsage=clientAuth,1.2.3.4;"
        "dns=*.B\u00FCcher.example;ip=192.0.2.1,2001:db8::1;email=a@example.com,\u00FC@example.com;"
        "uri=http://a.example/b,'ldap:///"
        "CN=a,C=AU';rid=1.2.3;dirName='C=AU;CN=d';upn=u@example.com;other=1.2.4:utf8:o;"
        "policy=1.2.3.1:http://cps.example/,1.2.3.2:notice:Read it,anyPolicy;policyMapping=1.2.3.1:1.2.3.9;"
        "requireExplicitPolicy=0;inhibitPolicyMapping=1;inhibitAnyPolicy=2;permit=dns:example.com,email:."
        "example.com,"
        "uri:host.example;exclude=ip:10.0.0.0/8,ip:2001:db8::/32;permit='dir:C=AU';crl=http://c.example/"
        "1,http://c.example/2;"
        "freshestCrl=http://c.example/d;ocsp=http://o.example;caIssuers=http://i.example/i;"
        "subjectInfoAccess=caRepository:http://r.example/;tlsFeature=status_request_v2;mustStaple;noCheck;"
        "extension=1.2.3.5:critical:0c0161;serial=0123456789abcdef;notBefore=2026-01-01;notAfter=2026-12-31");
    shows(
        "openssl x509 -in sub.pem -text -nameopt RFC2253,show_type,-esc_msb,utf8",
        {"Serial Number: 81985529216486895 (0x123456789abcdef)",
         "Not Before: Jan  1 00:00:00 2026 GMT\n            Not After : Dec 31 23:59:59 2026 GMT",
         "pseudonym=UTF8STRING:p,OU=UTF8STRING:a,organizationIdentifier=UTF8STRING:VATAU-1,emailAddress="
         "IA5STRING:a@xn--bcher-kva.example,serialNumber=PRINTABLESTRING:7,UID=UTF8STRING:u,DC=IA5STRING:"
         "example,"
         "title=UTF8STRING:T,GN=UTF8STRING:G,SN=UTF8STRING:N,postalCode=UTF8STRING:2000,street=UTF8STRING:"
         "\\\"1 Way\\\","
         "L=UTF8STRING:L,ST=UTF8STRING:S,C=PRINTABLESTRING:AU,CN=UTF8STRING:\u0417\u0430\u0440\u044F",
         "Basic Constraints: critical\n                CA:TRUE, pathlen:0\n",
         "Key Usage: critical\n                Digital Signature, Certificate Sign, CRL Sign\n",
         "Extended Key Usage: \n                TLS Web Client Authentication, 1.2.3.4\n",
         "Subject Alternative Name: \n                DNS:*.xn--bcher-kva.example, IP Address:192.0.2.1, IP "
         "Address:2001:DB8:0:0:0:0:0:1, email:a@example.com, othername: SmtpUTF8Mailbox::\u00FC@example.com, "
         "URI:http://a.example/b, URI:ldap:///CN=a,C=AU, Registered ID:1.2.3, DirName:/C=AU/CN=d, othername: "
         "UPN::u@example.com, othername: 1.2.4::o\n",
         "Policy: 1.2.3.1\n                  CPS: http://cps.example/",
         "Policy: 1.2.3.2\n                  User Notice:\n                    Explicit Text: Read it",
         "Policy: X509v3 Any Policy",
         "Policy Mappings: critical\n                1.2.3.1:1.2.3.9\n",
         "Policy Constraints: critical\n                Require Explicit Policy:0, Inhibit Policy "
         "Mapping:1\n",
         "Inhibit Any Policy: critical\n                2\n",
         "Name Constraints: critical\n                Permitted:\n                  DNS:example.com\n        "
         "          "
         "email:.example.com\n                  URI:host.example\n                  "
         "DirName:C = AU\n"
         "                Excluded:\n                  IP:10.0.0.0/255.0.0.0\n                  "
         "IP:2001:DB8:0:0:0:0:0:0/FFFF:FFFF:0:0:0:0:0:0\n",
         "CRL Distribution Points: \n                Full Name:\n                  URI:http://c.example/1\n",
         "Full Name:\n                  URI:http://c.example/2\n",
         "Freshest CRL: \n                Full Name:\n",
         "Authority Information Access: \n                OCSP - URI:http://o.example\n                CA "
         "Issuers - "
         "URI:http://i.example/i\n",
         "Subject Information Access: \n                CA Repository - URI:http://r.example/\n",
         "TLS Feature: \n                status_request_v2, status_request\n",
         "OCSP No Check: \n",
         "1.2.3.5: critical\n                ..a\n",
         "Signature Algorithm: ecdsa-with-SHA256"});
    run("certtool -i --infile sub.pem");
    // This reader parses every extension strictly.
    run("/usr/bin/python3 -c \"import sys; from cryptography import x509; "
        "c=x509.load_pem_x509_certificate(open("
        "'sub.pem','rb').read()); assert len(list(c.extensions)) == 18, len(list(c.extensions)); "
        "print(c.subject)\"");
}

TEST_F(CertMakeInterop, ConstraintsAndProfilesWork) {
    make_root(kP256,
              ";permit=dns:example.com;exclude=dns:bad.example.com;permit=ip:10.0.0.0/8,email:example.com");
    genpkey("leaf", kP256);
    const auto verify = [&](const std::string& description, const std::string& purpose, bool isGood) {
        SCOPED_TRACE(description);
        issue("leaf", "leaf.key", description);
        run(std::string(isGood ? "" : "! ") + "openssl verify -x509_strict -purpose " + purpose +
            " -CAfile root.pem leaf.pem");
    };
    verify("CN=a;profile=server;dns=www.example.com;ip=10.1.2.3", "sslserver", true);
    verify("CN=a;profile=server;dns=www.example.org", "sslserver", false);
    verify("CN=a;profile=server;dns=x.bad.example.com", "sslserver", false);
    verify("CN=a;profile=server;ip=192.0.2.1", "sslserver", false);
    verify("CN=a;profile=client", "sslclient", true);
    verify("CN=a;profile=client", "sslserver", false);
    verify("CN=a;profile=email;email=a@example.com", "smimesign", true);
    verify("CN=a;profile=timestamp", "timestampsign", true);
    verify("dns=www.example.com;profile=server", "sslserver", true); // without a subject
    verify("CN=a;profile=ca;pathLength=0", "crlsign", true);
}

TEST_F(CertMakeInterop, RequestsOfOthers) {
    make_root(kP256);
    for (const auto& kind : kKinds) {
        if (!kind.signs)
            continue;
        SCOPED_TRACE(kind.name);
        genpkey("leaf", kind.genpkey);
        run("printf '[req]\\ndistinguished_name=n\\n[n]\\n[d]\\nCN=d\\n' >conf; openssl req -new -key "
            "leaf.key -utf8 -subj '/C=DE/O=B\u00FCcher/CN=Leaf' -addext 'subjectAltName=DNS:a.example,"
            "IP:::1,email:a@b.example,dirName:d' -addext 'keyUsage=critical,digitalSignature' -addext "
            "'extendedKeyUsage="
            "serverAuth' -config conf -out leaf.csr");
        issue("leaf", "leaf.csr", "copy=subjectAltName,keyUsage,extKeyUsage");
        run("openssl verify -x509_strict -purpose sslserver -verify_hostname a.example -CAfile root.pem "
            "leaf.pem");
        shows("openssl x509 -in leaf.pem -text",
              {"Subject: C = DE, O = B\\C3\\BCcher, CN = Leaf", "DNS:a.example, IP Address:0:0:0:0:0:0:0:1, "
                                                                "email:a@b.example, DirName:/CN=d"});
    }
}

// A real handshake, in which the server says which port it got.
TEST_F(CertMakeInterop, Handshakes) {
    for (const auto& kind : kKinds) {
        if (!kind.signs || std::string(kind.name).find("pss") != std::string::npos)
            continue;
        SCOPED_TRACE(kind.name);
        make_root(kind.genpkey);
        genpkey("leaf", kind.genpkey);
        issue("leaf", "leaf.key", "CN=localhost;profile=server;dns=localhost;ip=127.0.0.1");
        // The file that an earlier server left would name a port that is closed.
        run("rm -f server; openssl s_server -accept 0 -cert leaf.pem -key leaf.key -www >server 2>&1 & "
            "server=$!; trap "
            "'kill $server' EXIT; "
            "for i in $(seq 100); do port=$(sed -n 's/^ACCEPT .*:\\([0-9]*\\)$/\\1/p' server); [ -n "
            "\"$port\" ] && break; "
            "sleep 0.1; done; for host in localhost 127.0.0.1; do curl -sS --noproxy '*' --max-time 20 "
            "--cacert root.pem "
            "https://$host:$port/ | grep -q 's_server' || exit 1; done; ! curl -sS --noproxy '*' --max-time "
            "20 --cacert "
            "root.pem --resolve other:$port:127.0.0.1 https://other:$port/");
    }
}
