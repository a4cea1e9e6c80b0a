#include <algorithm>

#include "support/key_calls.h"

using namespace test;

namespace {

// Root, CA, leaf: each is issued with a certificate of its issuer's that allows everything, so that the one
// in the path may say what forbids it.
class CertPath : public testing::Test {
  protected:
    static std::string dated(const std::string& description) {
        return "notBefore=2025-01-01;notAfter=2035-12-31;" + description;
    }
    std::string self_signed(const std::string& description, const std::string& keyName = "ed25519") const {
        EXPECT_RESULT(CERT_SelfSign(out_.c_str(), kept_key(keyName).c_str(), dated(description).c_str(), 0),
                      0);
        return read_text(out_);
    }
    std::string issued(const std::string& issuer, const std::string& issuerKey, const std::string& subjectKey,
                       const std::string& description) const {
        EXPECT_EQ(CERT_Issue(out_.c_str(), issuer.c_str(), kept_key(issuerKey).c_str(),
                             kept_key(subjectKey).c_str(), description.c_str(), ZUL_CERT_BEYOND_ISSUER),
                  0)
            << last_error() << ": " << description;
        return read_text(out_);
    }
    std::string root(const std::string& description = "ca") const {
        return self_signed("CN=Root;" + description, "ed25519/root");
    }
    std::string authority(const std::string& description = "ca") const {
        return issued(lax_, "ed25519/root", "ed25519/ca", dated("CN=CA;" + description));
    }
    std::string leaf(const std::string& description) const {
        return issued(laxAuthority_, "ed25519/ca", "p-256", dated(description));
    }
    int check(const std::string& cert, const std::string& others, const std::string& trusted,
              const std::string& conditions = "", int options = 0, int room = 20000) {
        report_.assign(static_cast<size_t>(room) + 1, 'x');
        const std::string time = conditions.starts_with("time=") ? "" : "time=2026-06-01;";
        const int code = CERT_CheckPath(report_.data(), room, cert.c_str(), others.c_str(), trusted.c_str(),
                                        nullptr, (time + conditions).c_str(), options);
        report_.resize(report_.find('\0'));
        return code;
    }

    const TempDir dir_;
    const std::string out_ = dir_.file("out.pem");
    const std::string lax_ = root(), laxAuthority_ = authority();
    std::string report_;
};

} // namespace

TEST_F(CertPath, RightsAndConditions) {
    const struct {
        const char *root, *authority, *leaf, *conditions;
        int code;
    } rows[] = {
        {"ca", "ca", "CN=a", "", 0},
        {"ca", "ca", "CN=a", "time=2024-12-31T23:59:59", EXPIRED_ERROR},
        {"ca", "ca", "CN=a", "time=2025-01-01", 0},
        {"ca", "ca", "CN=a", "time=2035-12-31T23:59:59", 0},
        {"ca", "ca", "CN=a", "time=2036-01-01", EXPIRED_ERROR},
        {"ca", "ca", "CN=a", "maxDepth=1", 0},
        {"ca", "ca", "CN=a", "maxDepth=0", ISSUER_ERROR},
        // basicConstraints, keyUsage, pathLenConstraint
        {"ca", "ca=false", "CN=a", "", ISSUER_ERROR},
        {"ca", "ca;keyUsage=cRLSign", "CN=a", "", ISSUER_ERROR},
        {"ca", "ca;pathLength=0", "CN=a", "", 0},
        {"ca;pathLength=0", "ca", "CN=a", "", ISSUER_ERROR},
        {"ca;pathLength=0", "ca", "CN=a", "anchor=key", 0},
        {"ca=false", "ca", "CN=a", "", ISSUER_ERROR},
        {"ca=false", "ca", "CN=a", "anchor=key", 0},
        {"ca", "ca;extension=1.2.3:critical:0500", "CN=a", "", NOT_SUPPORTED_ERROR},
        {"ca", "ca;extension=2.5.29.18:0500", "CN=a", "", BAD_FORMAT_ERROR},
        {"ca", "ca;extension=1.2.3:0500", "CN=a;extension=1.2.3:critical:0500", "", NOT_SUPPORTED_ERROR},
        {"ca", "ca", "CN=a;extension=1.2.3:0500", "", 0},
        // Names
        {"ca", "ca", "CN=a;dns=www.example.com", "host=WWW.example.com", 0},
        {"ca", "ca", "CN=a;dns=*.example.com", "host=www.example.com", 0},
        {"ca", "ca", "CN=a;dns=*.example.com", "host=a.b.example.com", NO_MATCH_ERROR},
        {"ca", "ca", "CN=www.example.com", "host=www.example.com", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;ip=192.0.2.1;email=a@b.example", "ip=192.0.2.1;email=a@B.example", 0},
        {"ca", "ca", "CN=a;ip=192.0.2.1", "ip=192.0.2.2", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;ip=192.0.2.1;dns=a.example", "host=a.example;email=a@b.example", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;dns=*.example.com", "host=r3---sn-abc.example.com", 0},
        {"ca", "ca", "CN=a;dns=*.example.com", "host=xn--i-7iq.example.com", 0},
        {"ca", "ca", "CN=a;ip=2001:db8::1", "host=[2001:db8::1]", 0},
        // Purposes
        {"ca", "ca", "CN=a", "purpose=server", 0},
        {"ca", "ca", "CN=a;extKeyUsage=clientAuth", "purpose=server", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;extKeyUsage=clientAuth", "purpose=client", 0},
        {"ca", "ca", "CN=a;extKeyUsage=clientAuth", "", 0},
        {"ca", "ca", "CN=a;extKeyUsage=anyExtendedKeyUsage", "purpose=code", 0},
        {"ca", "ca;extKeyUsage=clientAuth", "CN=a;extKeyUsage=serverAuth", "purpose=server", NO_MATCH_ERROR},
        {"ca", "ca;extKeyUsage=serverAuth", "CN=a;extKeyUsage=serverAuth", "purpose=server", 0},
        {"ca;extKeyUsage=clientAuth", "ca", "CN=a", "purpose=server", NO_MATCH_ERROR},
        {"ca;extKeyUsage=clientAuth", "ca", "CN=a", "purpose=server;anchor=key", 0},
        {"ca", "ca", "CN=a;keyUsage=keyAgreement", "purpose=code", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a", "purpose=timestamp", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;extKeyUsage=anyExtendedKeyUsage", "purpose=timestamp", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;extKeyUsage=timeStamping", "purpose=timestamp", 0}, // made critical
        {"ca", "ca", "CN=a;extKeyUsage=timeStamping,serverAuth", "purpose=timestamp", NO_MATCH_ERROR},
        {"ca", "ca;extKeyUsage=serverAuth", "CN=a;extKeyUsage=OCSPSigning", "purpose=ocsp", 0},
        // Policies
        {"ca", "ca;policy=1.2.3", "CN=a;policy=1.2.3", "explicitPolicy;policy=1.2.3", 0},
        {"ca", "ca;policy=1.2.3", "CN=a;policy=1.2.3", "explicitPolicy;policy=1.2.4", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;policy=1.2.3", "explicitPolicy", NO_MATCH_ERROR},
        {"ca", "ca", "CN=a;ca;requireExplicitPolicy=0", "", NO_MATCH_ERROR},
        {"ca", "ca;policy=1.2.3;policyMapping=1.2.3:1.2.4", "CN=a;policy=1.2.4",
         "explicitPolicy;policy=1.2.3", 0},
        {"ca", "ca;policy=1.2.3;policyMapping=1.2.3:1.2.4", "CN=a;policy=1.2.4",
         "explicitPolicy;inhibitMapping", NO_MATCH_ERROR},
        {"ca", "ca;policy=anyPolicy", "CN=a;policy=1.2.3", "explicitPolicy", 0},
        {"ca", "ca;policy=anyPolicy", "CN=a;policy=1.2.3", "explicitPolicy;inhibitAnyPolicy", NO_MATCH_ERROR},
        // Status: nothing tells it.
        {"ca", "ca", "CN=a", "revocation=all", NO_DATA_ERROR},
        {"ca", "ca", "CN=a", "revocation=leaf", NO_DATA_ERROR},
        {"ca", "ca", "CN=a", "revocation=known", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(check(leaf(row.leaf), authority(row.authority), root(row.root), row.conditions), row.code)
            << row.root << " | " << row.authority << " | " << row.leaf << " | " << row.conditions << ": "
            << last_error();
}

TEST_F(CertPath, NameConstraints) {
    const struct {
        const char *constraints, *leaf;
        int code;
    } rows[] = {
        {"permit=dns:example.com", "dns=example.com,www.EXAMPLE.com", 0},
        {"permit=dns:example.com", "dns=example.com,example.org", ISSUER_ERROR},
        {"permit=dns:example.com", "dns=badexample.com", ISSUER_ERROR},
        {"permit=dns:example.com", "dns=*.example.com", 0},
        {"permit=dns:example.com", "ip=192.0.2.1", 0},
        {"exclude=dns:example.com", "dns=www.example.com", ISSUER_ERROR},
        {"exclude=dns:www.example.com", "dns=*.example.com", ISSUER_ERROR}, // it stands for the excluded one
        {"exclude=dns:a.www.example.com", "dns=*.example.com", 0},
        {"exclude=dns:", "dns=a.example", ISSUER_ERROR},
        {"permit=dns:example.com;exclude=dns:b.example.com", "dns=a.example.com", 0},
        {"permit=dns:example.com;exclude=dns:b.example.com", "dns=b.example.com", ISSUER_ERROR},
        {"permit=ip:192.0.2.0/24", "ip=192.0.2.255", 0},
        {"permit=ip:192.0.2.0/24", "ip=192.0.3.0", ISSUER_ERROR},
        {"permit=ip:192.0.2.0/24", "ip=2001:db8::1", ISSUER_ERROR},
        {"exclude=ip:2001:db8::/32", "ip=2001:db8:ffff::1", ISSUER_ERROR},
        {"exclude=ip:2001:db8::/32", "ip=2001:db9::1", 0},
        {"permit=email:example.com", "email=a@Example.com", 0},
        {"permit=email:example.com", "email=a@b.example.com", ISSUER_ERROR},
        {"permit=email:.example.com", "email=a@b.example.com", 0},
        {"permit=email:.example.com", "email=a@example.com", ISSUER_ERROR},
        {"permit=email:a@example.com", "email=a@example.com", 0},
        {"permit=email:a@example.com", "email=A@example.com", ISSUER_ERROR}, // local parts have case
        {"exclude=email:a@example.com", "email=A@example.com", ISSUER_ERROR},
        {"permit=email:example.com", "E=a@example.org", ISSUER_ERROR}, // in the subject
        {"permit=email:example.com", "E=a@example.org;email=a@example.com", 0},
        {"exclude=email:example.com", "email=\xC3\xBC@example.com", ISSUER_ERROR}, // SmtpUTF8Mailbox
        {"permit=uri:www.example.com", "uri=https://u@www.example.com:8443/a?b", 0},
        {"permit=uri:example.com", "uri=https://www.example.com/", ISSUER_ERROR},
        {"permit=uri:.example.com", "uri=https://www.example.com/", 0},
        {"permit=uri:.example.com", "uri=https://example.org/.example.com", ISSUER_ERROR},
        {"permit=uri:.example.com", "uri=https://192.0.2.1/", NOT_SUPPORTED_ERROR}, // no host name
        {"exclude=uri:.example.com", "uri=urn:a", NOT_SUPPORTED_ERROR},
        {"permit='dir:O=Example'", "O=EXAMPLE;OU=a", 0},
        {"permit='dir:O=Example'", "OU=a;O=Example", ISSUER_ERROR},
        {"permit='dir:O=Example'", "O=Example;dirName='O=Other'", ISSUER_ERROR},
        {"exclude='dir:O=Example'", "O= example ;OU=a", ISSUER_ERROR},
        {"permit=dns:example.com,ip:10.0.0.0/8", "dns=a.example.com;ip=10.1.2.3", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(check(leaf(std::string(row.leaf) + ";CN=a"),
                        authority("ca;" + std::string(row.constraints)), lax_),
                  row.code)
            << row.constraints << " | " << row.leaf << ": " << last_error();
    // A commonName that may stand for a host is constrained like one.
    const struct {
        const char *constraints, *leaf, *host;
        int code;
    } hosts[] = {
        {"permit=dns:good.example", "CN=evil.example", "evil.example", ISSUER_ERROR},
        {"permit=dns:good.example", "CN=www.good.example", "www.good.example", 0},
        {"permit=dns:good.example", "O=www.good.example", "www.good.example", NO_MATCH_ERROR},
        {"permit=dns:good.example", "CN=www.good.example;CN=\u00FC", "www.good.example", NO_MATCH_ERROR},
        {"exclude=dns:evil.example", "CN=good.example;CN=evil.example", "evil.example", ISSUER_ERROR},
        {"exclude=dns:evil.example", "CN=evil.example;dns=good.example", "good.example", 0},
        {"exclude=dns:www.evil.example", "CN=*.evil.example;email=a@b.example", "www.evil.example",
         ISSUER_ERROR},
    };
    for (const auto& row : hosts)
        EXPECT_EQ(check(leaf(row.leaf), authority("ca;" + std::string(row.constraints)), lax_,
                        "host=" + std::string(row.host), ZUL_CERT_SUBJECT_NAME),
                  row.code)
            << row.constraints << " | " << row.leaf << ": " << last_error();
    // The anchor's count too, unless it is a name and a key alone.
    const std::string constrained = root("ca;permit=dns:example.com"), other = leaf("CN=a;dns=a.example");
    EXPECT_EQ(check(other, laxAuthority_, constrained), ISSUER_ERROR);
    EXPECT_EQ(check(other, laxAuthority_, constrained, "anchor=key"), 0);
}

TEST_F(CertPath, WebRules) {
    const std::string weak = self_signed("CN=Old;ca;signature=rsa-sha1", "rsa-1024");
    const struct {
        const char *issuer, *description;
        int code;
    } rows[] = {
        {"", "dns=a.example;notBefore=2025-06-01;days=398", 0},
        {"", "dns=a.example;notBefore=2025-06-01;days=399", OUT_OF_RANGE_ERROR},
        {"", "dns=a.example;notBefore=2026-03-14;days=398", 0},
        {"", "dns=a.example;notBefore=2026-03-15;days=200", 0},
        {"", "dns=a.example;notBefore=2026-03-15;days=201", OUT_OF_RANGE_ERROR},
        {"", "CN=a.example;notBefore=2026-01-01;days=200", NO_MATCH_ERROR},
        {"rsa", "dns=a.example;notBefore=2026-01-01;days=200", BAD_KEY_LEN_ERROR},
        {"rsa", "dns=a.example;notBefore=2026-01-01;days=200;signature=rsa-sha1", NOT_SUPPORTED_ERROR},
    };
    for (const auto& row : rows) {
        const bool isWeak = *row.issuer != '\0';
        const std::string text = "CN=a;" + std::string(row.description),
                          cert = isWeak ? issued(weak, "rsa-1024", "p-256", text)
                                        : issued(laxAuthority_, "ed25519/ca", "p-256", text);
        const std::string trusted = isWeak ? weak : lax_;
        EXPECT_EQ(check(cert, laxAuthority_, trusted, "host=a.example", ZUL_CERT_WEB), row.code)
            << row.description << ": " << last_error();
        if (row.code != NO_MATCH_ERROR) {
            EXPECT_RESULT(check(cert, laxAuthority_, trusted, "host=a.example"), 0);
        }
    }
}

TEST_F(CertPath, FindsTheWayAmongIssuersOfOneName) {
    const std::string good = leaf("CN=a"), ca = laxAuthority_;
    EXPECT_EQ(check(good, "", lax_), ISSUER_ERROR);
    EXPECT_EQ(check(good + ca, "", lax_), 0); // a chain as servers send it
    EXPECT_EQ(check(good, ca, ca), 0);        // an authority below the root is trusted
    EXPECT_EQ(check(good, ca, self_signed("CN=Root;ca", "ed25519/other")), SIGNATURE_ERROR);

    // The same name with another key, an expired one, one of another root, a loop of two.
    const std::string otherKey = issued(lax_, "ed25519/root", "ed25519/other", dated("CN=CA;ca")),
                      expired = issued(lax_, "ed25519/root", "ed25519/ca",
                                       "CN=CA;ca;notBefore=2020-01-01;notAfter=2021-01-01"),
                      otherRoot = self_signed("CN=Other root;ca", "ed25519/other"),
                      crossed = issued(otherRoot, "ed25519/other", "ed25519/ca", dated("CN=CA;ca")),
                      back = issued(laxAuthority_, "ed25519/ca", "ed25519/other", dated("CN=Other root;ca"));
    for (const std::string& others : {otherKey + expired + ca, back + crossed + ca, ca + crossed + expired})
        EXPECT_RESULT(check(good, others, lax_), 0);
    EXPECT_EQ(check(good, crossed + back, lax_), ISSUER_ERROR);
    EXPECT_EQ(check(good, crossed, otherRoot), 0);
    EXPECT_EQ(check(good, expired + otherKey, lax_), EXPIRED_ERROR);
    EXPECT_EQ(check(good, otherKey, lax_), SIGNATURE_ERROR);
    // Each allows another name: a chain that fails is not the last.
    const std::string both = authority("ca;permit=dns:a.example") + authority("ca;permit=dns:b.example");
    for (const char* name : {"CN=a;dns=a.example", "CN=a;dns=b.example"})
        EXPECT_RESULT(check(leaf(name), both, lax_), 0);
    // Of many chains that cannot be valid 50 are looked at.
    std::string many;
    for (int i = 0; i < 60; i++)
        many +=
            issued(lax_, "ed25519/root", "ed25519/ca", "CN=CA;ca;notBefore=2020-01-01;notAfter=2021-01-01");
    EXPECT_EQ(check(good, many, lax_), EXPIRED_ERROR);
    EXPECT_NE(report_.find("  pathsTried                  50\n"), std::string::npos) << report_;

    // A certificate that is its own anchor needs no rights; it gives none to others.
    const std::string own = self_signed("CN=CA;dns=a.example", "ed25519/ca");
    EXPECT_RESULT(check(own, "", own, "host=a.example"), 0);
    EXPECT_EQ(check(good, "", own), ISSUER_ERROR);
    EXPECT_EQ(check(good, "", good), ISSUER_ERROR);
}

// Authorities that have all certified each other: the number of paths grows faster than the input.
TEST_F(CertPath, WorkIsBounded) {
    constexpr int kAuthorities = 12;
    std::string others;
    const auto name = [](int n) { return "ed25519/" + std::to_string(n); };
    std::vector<std::string> own;
    for (int i = 0; i < kAuthorities; i++)
        own.push_back(self_signed("CN=" + std::to_string(i) + ";ca", name(i)));
    for (int i = 0; i < kAuthorities; i++)
        for (int j = 0; j < kAuthorities; j++)
            if (i != j)
                others += issued(own[static_cast<size_t>(i)], name(i), name(j),
                                 dated("ca;CN=" + std::to_string(j)));
    const std::string cert = issued(own[0], name(0), "p-256", dated("CN=a"));
    EXPECT_EQ(check(cert, others, lax_), OUT_OF_RANGE_ERROR);
    EXPECT_NE(report_.find("  isCutShort                  TRUE\n"), std::string::npos) << report_;
    EXPECT_EQ(check(cert, others, lax_, "maxDepth=2"), ISSUER_ERROR);
    EXPECT_EQ(report_.find("isCutShort"), std::string::npos);
    EXPECT_EQ(check(cert, others, own[7]), 0);
}

// Signatures of candidates whose key is another: bytes of the modulus differ, the identifier does not.
TEST_F(CertPath, SignaturesAreCounted) {
    const std::string ca = self_signed("CN=CA;ca", "rsa-1024"),
                      cert = issued(ca, "rsa-1024", "p-256", dated("CN=a"));
    const Bytes good = der_of(ca), field = from_hex("30818902818100"); // RSAPublicKey, its modulus
    const auto at = std::search(good.begin(), good.end(), field.begin(), field.end()) - good.begin() + 50;
    const auto others = [&](int count) {
        std::string all;
        for (Bytes der = good; count > 0; count--) {
            der[static_cast<size_t>(at)] = static_cast<uint8_t>(count);
            der[static_cast<size_t>(at) + 1] =
                static_cast<uint8_t>(good[static_cast<size_t>(at) + 1] + 1 + count / 256);
            all += pem(der);
        }
        return all;
    };
    EXPECT_RESULT(check(cert, "", others(900) + ca), 0);
    EXPECT_RESULT(check(cert, "", others(900)), SIGNATURE_ERROR);
    EXPECT_RESULT(check(cert, "", others(1100)), OUT_OF_RANGE_ERROR);
    EXPECT_NE(report_.find("  signaturesVerified          1000\n"), std::string::npos) << report_;
}

// The names of one certificate are compared with what each of many issuers permits.
TEST_F(CertPath, NamesOfALeafAreCounted) {
    std::string names = "CN=a;dns=a.example", subject = "CN=a;dns=a.example;OU=0";
    for (int i = 0; i < 20'000; i++)
        names += ",a" + std::to_string(i);
    for (int i = 0; i < 2'000; i++)
        subject += ";OU=" + std::to_string(i) + std::string(60, 'a');
    std::string few, many;
    for (int i = 0; i < 150; i++) {
        many += authority("ca;permit=dns:b.example");
        if (i == 30)
            few = many + laxAuthority_;
    }
    for (const std::string& description : {names, subject}) {
        const std::string cert = leaf(description);
        EXPECT_RESULT(check(cert, few, lax_), 0);
        EXPECT_RESULT(check(cert, many, lax_), OUT_OF_RANGE_ERROR);
    }
}

TEST_F(CertPath, Reports) {
    const std::string cert = leaf("CN=a;policy=1.2.3"), trusted = lax_;
    ASSERT_EQ(check(cert, authority("ca;policy=1.2.3"), trusted, "purpose=code"), 0);
    const std::string whole = report_;
    for (const char* line :
         {"CertificationPath\n", "  result                      valid\n",
          "  purpose                     code\n", "  time                        2026-06-01T00:00:00Z\n",
          "  pathsTried                  1\n", "  validPolicies               1.2.3\n",
          "    - role                    trustAnchor\n", "      subject                 CN=CA\n",
          "        signature             good, id-Ed25519\n"})
        EXPECT_NE(whole.find(line), std::string::npos) << line << whole;
    ASSERT_EQ(check(cert, laxAuthority_, trusted, "time=2026-10-09T10:09:10"), 0);
    EXPECT_NE(report_.find(" 2026-10-09T10:09:10Z\n"), std::string::npos) << report_;
    // Cut behind a whole line.
    const std::string begin = "CertificationPath\n  result                      valid\n";
    ASSERT_EQ(check(cert, authority("ca;policy=1.2.3"), trusted, "purpose=code", 0,
                    static_cast<int>(begin.size() + 5)),
              0);
    EXPECT_EQ(report_, begin);
    EXPECT_EQ(CERT_CheckPath(nullptr, 0, cert.c_str(), laxAuthority_.c_str(), trusted.c_str(), nullptr,
                             "time=2026-06-01", 0),
              0);
    EXPECT_EQ(check(cert, laxAuthority_, trusted, "", ZUL_CERT_JSON), 0);
    EXPECT_TRUE(report_.starts_with("{\"objects\":[{\"kind\":\"CertificationPath\",\"result\":\"valid\""))
        << report_;
    EXPECT_EQ(check(cert, laxAuthority_, trusted, "", ZUL_CERT_JSON, 100), SHORT_BUF_ERROR);
    EXPECT_EQ(report_, "");
    EXPECT_FAILURE_WITH(check(cert, "", trusted), ISSUER_ERROR, "certificate 1 of 1 (CN=a)");
    EXPECT_NE(report_.find("  codeName                    ISSUER_ERROR\n"), std::string::npos);
}

// Certificates that CERT_Issue does not make.
TEST_F(CertPath, Others) {
    const struct {
        const char *cert, *others, *trusted, *anchor;
        int code;
        const char* text;
    } rows[] = {
        {"cert_path/version1_leaf.pem", "cert_path/version1.pem", "cert_path/root.pem", "certificate",
         ISSUER_ERROR, "A certificate of version 1 does not make its subject a CA"},
        {"cert_path/version1_leaf.pem", "", "cert_path/version1.pem", "certificate", 0,
         ""}, // a root has rights without
        {"cert_path/ed448_leaf.pem", "cert_path/ed448.pem", "cert_path/root.pem", "certificate",
         NOT_SUPPORTED_ERROR, "The issuer's key cannot be used"},
        {"x509/dsa_by_inherited.der", "", "x509/dsa_inherited.der", "key", NOT_SUPPORTED_ERROR,
         "The issuer's DSA key has no parameters"},
        {"x509/ca.pem", "", "x509/crl_v2.der", "certificate", NO_DATA_ERROR,
         "There is no trusted certificate"},
        {"x509/crl_v2.der", "", "x509/ca.pem", "certificate", BAD_FORMAT_ERROR,
         "The first object is not a certificate"},
    };
    for (const auto& row : rows) {
        const std::string others = *row.others == '\0' ? "" : data_path(row.others);
        EXPECT_EQ(check(data_path(row.cert), others, data_path(row.trusted),
                        "time=2030-01-01;anchor=" + std::string(row.anchor)),
                  row.code)
            << row.cert << ": " << last_error();
        EXPECT_NE(last_error().find(row.text), std::string::npos) << last_error();
    }
}

TEST_F(CertPath, LeavesOutWhatCannotBeRead) {
    const std::string cert = leaf("CN=a"), ca = laxAuthority_, count = "unreadableObjects           1\n";
    const std::string cut = "-----BEGIN CERTIFICATE-----\nMIIBAAAA\n-----END CERTIFICATE-----\n",
                      other = "-----BEGIN X-----\nMAYCAQECAQI=\n-----END X-----\n";
    for (const std::string& others : {cut + ca, ca + cut, ca + other, ca + cut.substr(0, 35)}) {
        EXPECT_RESULT(check(cert, others, lax_), 0);
        EXPECT_NE(report_.find(count), std::string::npos) << report_;
    }
    EXPECT_EQ(check(cert, ca + ";" + cut, lax_), INVALID_DATA_ERROR);
    EXPECT_EQ(check(cert, ca, lax_ + cut), INVALID_DATA_ERROR);
    EXPECT_EQ(check(cert + cut, ca, lax_), INVALID_DATA_ERROR);
}

// With anchor=key the anchor's keyUsage does not say who signs CRLs.
TEST_F(CertPath, AnchorKeySignsCrls) {
    const std::string crl = dir_.file("crl.pem"), certSignOnly = root("ca;keyUsage=keyCertSign");
    ASSERT_EQ(CERT_IssueCRL(crl.c_str(), lax_.c_str(), kept_key("ed25519/root").c_str(), nullptr, nullptr,
                            "thisUpdate=2026-05-01;nextUpdate=2026-07-01", 0),
              0)
        << last_error();
    const auto status = [&](const char* conditions) {
        return CERT_CheckPath(nullptr, 0, laxAuthority_.c_str(), nullptr, certSignOnly.c_str(), crl.c_str(),
                              conditions, 0);
    };
    EXPECT_EQ(status("time=2026-06-01"), NO_DATA_ERROR);
    EXPECT_EQ(status("time=2026-06-01;anchor=key"), 0) << last_error();
    // Lists that nobody has signed are not tried for ever, and then nothing is known.
    std::string forged;
    Bytes der = der_of(read_text(crl));
    for (int i = 0; i < 1100; i++) {
        der[der.size() - 30] = static_cast<uint8_t>(i);
        der[der.size() - 31] = static_cast<uint8_t>(i >> 8);
        forged += "-----BEGIN X-----\n" + base64(der) + "\n-----END X-----\n";
    }
    EXPECT_EQ(CERT_CheckPath(nullptr, 0, laxAuthority_.c_str(), nullptr, lax_.c_str(), forged.c_str(),
                             "time=2026-06-01;revocation=known", 0),
              OUT_OF_RANGE_ERROR);
}

TEST_F(CertPath, RefusesArguments) {
    const std::string cert = leaf("CN=a");
    const struct {
        const char *conditions, *text;
    } rows[] = {
        {"hosts=a", "Unknown condition (known: time, host, email, ip, purpose, policy, explicitPolicy, "
                    "inhibitMapping, inhibitAnyPolicy, maxDepth, revocation, anchor); in 'hosts=a'"},
        {"purpose=web",
         "The value is one of: any, server, client, email, code, timestamp, ocsp; in 'purpose=web'"},
        {"revocation=some", "The value is one of: none, known, leaf, all; in 'revocation=some'"},
        {"policy=1.2,x", "A policy is a dotted object identifier; in 'policy=x'"},
        {"ip=a.example", "Not an IP address; in 'ip=a.example'"},
        {"maxDepth=101", "The value is a number from 0 to 100; in 'maxDepth=101'"},
        {"maxDepth=-1", "The value is a number from 0 to 100; in 'maxDepth=-1'"},
    };
    for (const auto& row : rows)
        EXPECT_FAILURE(check(cert, laxAuthority_, lax_, row.conditions), BAD_PARAM_ERROR, row.text);
    for (const char* name :
         {"host=a b", "host=a@b.example", "host=[1.2.3.4]", "ip=[1.2.3.4]", "email=a.example", "email=@b"})
        EXPECT_EQ(check(cert, laxAuthority_, lax_, name), BAD_PARAM_ERROR) << name;
    EXPECT_EQ(check("", laxAuthority_, lax_), BAD_PARAM_ERROR);
    EXPECT_EQ(check(cert, laxAuthority_, ""), BAD_PARAM_ERROR);
    EXPECT_EQ(check(cert, laxAuthority_, lax_, "", 0x1000), BAD_FLAG_ERROR);
    EXPECT_EQ(check(dir_.file("none"), laxAuthority_, lax_), OPEN_ERROR);
}
