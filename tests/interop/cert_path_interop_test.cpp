#include "interop/x509_interop.h"

// Paths of every kind, about which openssl verify has to have the same opinion.

using test::kP256;
using test::kRsa2048;

namespace {

class CertPathInterop : public test::X509Interop {
  protected:
    static std::string dated(const std::string& description) {
        return "notBefore=2025-01-01;notAfter=2035-12-31;" + description;
    }
    void self_sign(const std::string& name, const std::string& key, const std::string& description) const {
        done(CERT_SelfSign(file(name).c_str(), file(key + ".key").c_str(), dated(description).c_str(), 0));
    }
    void issue(const std::string& name, const std::string& issuer, const std::string& issuerKey,
               const std::string& key, const std::string& description) const {
        done(CERT_Issue(file(name).c_str(), file(issuer).c_str(), file(issuerKey + ".key").c_str(),
                        file(key + ".key").c_str(), dated(description).c_str(), ZUL_CERT_BEYOND_ISSUER));
    }
    int check(const std::string& leaf, const std::string& others, const std::string& trusted,
              const std::string& conditions) const {
        return CERT_CheckPath(nullptr, 0, file(leaf).c_str(), file(others).c_str(), file(trusted).c_str(),
                              nullptr, ("time=2026-06-01;" + conditions).c_str(), 0);
    }
    // peer_says gives what openssl verify writes, and "status N" behind it.
    std::string peer_says(const std::string& arguments) const {
        constexpr char kTime[] = "1780272000"; // 2026-06-01
        return said("openssl verify -x509_strict -attime " + std::string(kTime) + " " + arguments +
                    "; echo status $?");
    }
    static bool is_taken(const std::string& answer) { return answer.find("status 0\n") != std::string::npos; }
};

} // namespace

TEST_F(CertPathInterop, AgreesWithOpenssl) {
    const struct {
        const char *root, *authority, *leaf, *conditions, *arguments;
        bool isValid;
    } rows[] = {
        {"", "", "", "", "", true},
        {"", "pathLength=0", "", "", "", true},
        {"pathLength=0", "", "", "", "", false},
        {"", "keyUsage=cRLSign", "", "", "", false},
        {"", "", "dns=*.example.com", "host=a.example.com", "-verify_hostname a.example.com", true},
        {"", "", "dns=*.example.com", "host=a.b.example.com", "-verify_hostname a.b.example.com", false},
        {"", "", "ip=2001:db8::1", "ip=2001:db8:0::1", "-verify_ip 2001:db8::1", true},
        {"", "", "email=a@example.com", "email=a@example.com", "-verify_email a@example.com", true},
        {"", "", "extKeyUsage=serverAuth", "purpose=server", "-purpose sslserver", true},
        {"", "", "extKeyUsage=clientAuth", "purpose=server", "-purpose sslserver", false},
        {"", "extKeyUsage=clientAuth", "", "purpose=server", "-purpose sslserver", false},
        {"", "", "extKeyUsage=emailProtection", "purpose=email", "-purpose smimesign", true},
        {"", "permit=dns:example.com", "dns=a.example.com", "", "", true},
        {"", "permit=dns:example.com", "dns=a.example.org", "", "", false},
        {"", "exclude=dns:a.example.com", "dns=b.a.example.com", "", "", false},
        {"permit=dns:example.com", "", "dns=a.example.org", "", "", false},
        {"", "permit=ip:10.0.0.0/8", "ip=10.1.2.3", "", "", true},
        {"", "permit=ip:10.0.0.0/8", "ip=11.1.2.3", "", "", false},
        {"", "permit=email:example.com", "email=a@example.com", "", "", true},
        {"", "permit=email:.example.com", "email=a@example.com", "", "", false},
        {"", "permit=uri:.example.com", "uri=http://a.example.com/", "", "", true},
        {"", "permit=uri:.example.com", "uri=http://example.com/", "", "", false},
        {"", "permit='dir:O=A'", "O=A;OU=b", "", "", true},
        {"", "permit='dir:O=A'", "OU=b;O=A", "", "", false},
        {"", "policy=1.2.3", "policy=1.2.3", "explicitPolicy;policy=1.2.3",
         "-policy_check -explicit_policy -policy 1.2.3", true},
        {"", "policy=1.2.3", "policy=1.2.3", "explicitPolicy;policy=1.2.4",
         "-policy_check -explicit_policy -policy 1.2.4", false},
        {"", "policy=1.2.3", "policy=1.2.4", "explicitPolicy", "-policy_check -explicit_policy", false},
        {"", "policy=1.2.3;policyMapping=1.2.3:1.2.4", "policy=1.2.4", "explicitPolicy;policy=1.2.3",
         "-policy_check -explicit_policy -policy 1.2.3", true},
        {"", "policy=1.2.3;policyMapping=1.2.3:1.2.4", "policy=1.2.4", "explicitPolicy;inhibitMapping",
         "-policy_check -explicit_policy -inhibit_map", false},
        {"", "policy=anyPolicy;inhibitAnyPolicy=0", "policy=1.2.3", "explicitPolicy;policy=1.2.3",
         "-policy_check -explicit_policy -policy 1.2.3", true},
        {"", "policy=anyPolicy", "policy=1.2.3", "explicitPolicy;inhibitAnyPolicy",
         "-policy_check -explicit_policy -inhibit_any", false},
        {"", "requireExplicitPolicy=0;policy=1.2.3", "", "", "-policy_check", false},
    };
    for (const char* name : {"root", "ca", "leaf"})
        genpkey(name, kP256);
    self_sign("root.lax", "root", "CN=Root;ca");
    issue("ca.lax", "root.lax", "root", "ca", "CN=CA;ca");
    for (const auto& row : rows) {
        self_sign("root.pem", "root", "CN=Root;ca;" + std::string(row.root));
        issue("ca.pem", "root.lax", "root", "ca", "CN=CA;ca;" + std::string(row.authority));
        issue("leaf.pem", "ca.lax", "ca", "leaf", std::string(row.leaf) + ";CN=a");
        const std::string where =
            std::string(row.root) + " | " + row.authority + " | " + row.leaf + " | " + row.conditions;
        EXPECT_EQ(check("leaf.pem", "ca.pem", "root.pem", row.conditions) == 0, row.isValid) << where;
        const std::string answer =
            peer_says("-CAfile root.pem -untrusted ca.pem " + std::string(row.arguments) + " leaf.pem");
        EXPECT_EQ(is_taken(answer), row.isValid) << where << "\n" << answer;
    }
}

TEST_F(CertPathInterop, EverySignatureAlgorithm) {
    const struct {
        const char *genpkey, *digest;
    } kinds[] = {
        {kRsa2048, "-sha384"},
        {kRsa2048, "-sha512 -sigopt rsa_padding_mode:pss"},
        {kRsa2048,
         "-sha256 -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:20 -sigopt rsa_mgf1_md:sha1"},
        {"-algorithm RSA-PSS -pkeyopt rsa_keygen_bits:2048 -pkeyopt rsa_pss_keygen_md:sha384 -pkeyopt "
         "rsa_pss_keygen_mgf1_md:sha384 -pkeyopt rsa_pss_keygen_saltlen:40",
         "-sha384"},
        {kRsa2048, "-sha1"},
        {kP256, "-sha256"},
        {"-algorithm EC -pkeyopt ec_paramgen_curve:P-384", "-sha3-384"},
        {"-algorithm EC -pkeyopt ec_paramgen_curve:P-521", "-sha512"},
        {"-algorithm ED25519", ""}};
    for (const auto& kind : kinds) {
        SCOPED_TRACE(std::string(kind.genpkey) + " " + kind.digest);
        genpkey("root", kind.genpkey);
        genpkey("leaf", kP256);
        run("openssl req -x509 -new -key root.key -subj /CN=Root -days 3650 " + std::string(kind.digest) +
            " -out root.pem");
        run("openssl req -new -key leaf.key -subj /CN=a -out leaf.csr");
        run("openssl x509 -req -in leaf.csr -CA root.pem -CAkey root.key -set_serial 5 -days 300 " +
            std::string(kind.digest) + " -out leaf.pem 2>/dev/null");
        EXPECT_EQ(CERT_CheckPath(nullptr, 0, file("leaf.pem").c_str(), nullptr, file("root.pem").c_str(),
                                 nullptr, nullptr, 0),
                  0);
        run("openssl x509 -in leaf.pem -outform DER -out leaf.der");
        std::string der = test::read_text(file("leaf.der"));
        der[der.size() / 2] ^= 1; // in what is signed
        dir.write("leaf.der", der);
        EXPECT_NE(CERT_CheckPath(nullptr, 0, file("leaf.der").c_str(), nullptr, file("root.pem").c_str(),
                                 nullptr, nullptr, 0),
                  0);
    }
}
