#include "interop/shell_test.h"
#include "support/module_calls.h"

// CRLs and OCSP responses of openssl, and what openssl itself says of the certificates.

using namespace test;

namespace {

const char kSetUp[] = R"(
cat >ca.cnf <<'END'
[ca]
default_ca = root
[root]
database = index.txt
crlnumber = number
default_md = sha256
default_crl_days = 7
[users]
authorityKeyIdentifier = keyid
issuingDistributionPoint = critical,@users_point
[users_point]
fullname = URI:http://crl.example/users.crl
onlyuser = TRUE
[req]
distinguished_name = name
[name]
[authority]
basicConstraints = critical,CA:TRUE
subjectKeyIdentifier = hash
keyUsage = critical,keyCertSign,cRLSign
[point]
crlDistributionPoints = URI:http://crl.example/users.crl
[elsewhere]
crlDistributionPoints = URI:http://crl.example/other.crl
[responder]
extendedKeyUsage = OCSPSigning
[no_purpose]
extendedKeyUsage = serverAuth
END
touch index.txt.attr; echo 01 >number
openssl req -config ca.cnf -x509 -newkey $KEY -nodes -keyout ca.key -out ca.pem -subj /CN=CA -days 30 -extensions authority
issue() {
    openssl req -config ca.cnf -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout $1.key -out r.pem -subj "/CN=$1" &&
    openssl x509 -req -in r.pem -CA ca.pem -CAkey ca.key -set_serial $2 -days 20 -extfile ca.cnf -extensions $3 -out $1.pem
}
issue valid 0x10 point && issue stolen 0x11 point && issue held 0x12 point && issue elsewhere 0x13 elsewhere &&
issue responder 0x20 responder && issue no_purpose 0x21 no_purpose &&
printf 'V\t301231000000Z\t\t10\tunknown\t/CN=valid\nR\t301231000000Z\t260101000000Z,keyCompromise\t11\tunknown\t/CN=stolen\nR\t301231000000Z\t260102000000Z,certificateHold\t12\tunknown\t/CN=held\n' >index.txt
)";

class RevocationInterop : public test::ShellTest, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override { run("KEY='" + std::string(GetParam()) + "'" + kSetUp); }

    int check(const std::string& leaf, const std::string& evidence) const {
        return CERT_CheckPath(nullptr, 0, file(leaf + ".pem").c_str(), nullptr, file("ca.pem").c_str(),
                              file(evidence).c_str(), nullptr, 0);
    }
};

} // namespace

TEST_P(RevocationInterop, Crls) {
    run("openssl ca -config ca.cnf -gencrl -keyfile ca.key -cert ca.pem -out all.crl");
    run("openssl ca -config ca.cnf -gencrl -keyfile ca.key -cert ca.pem -crlexts users -out users.crl");
    run("openssl ca -config ca.cnf -gencrl -keyfile ca.key -cert ca.pem -crl_lastupdate 20260101000000Z "
        "-crl_nextupdate 20260102000000Z -out old.crl");
    int good = 0;
    for (const std::string list : {"all.crl", "users.crl", "old.crl"})
        for (const std::string leaf : {"valid", "stolen", "held", "elsewhere"}) {
            const bool theirs = try_run("openssl verify -x509_strict -extended_crl -crl_check -CAfile ca.pem "
                                        "-CRLfile " +
                                        list + " " + leaf + ".pem");
            good += theirs;
            EXPECT_EQ(check(leaf, list) == 0, theirs) << list << " " << leaf << ": " << last_error() << "\n"
                                                      << read_text(file("log"));
        }
    EXPECT_EQ(good, 3); // one of them in a list for all, where no point is named
}

TEST_P(RevocationInterop, OcspResponses) {
    int good = 0;
    for (const std::string signer : {"ca", "responder", "no_purpose"})
        for (const std::string options : {"-ndays 2", "-ndays 2 -resp_key_id", "-nmin 1 -resp_no_certs"})
            for (const std::string leaf : {"valid", "stolen", "elsewhere"}) {
                const std::string digest = leaf == "valid" ? " -sha256" : "";
                run("openssl ocsp -no_nonce" + digest + " -issuer ca.pem -cert " + leaf +
                    ".pem -reqout q.der");
                run("openssl ocsp -index index.txt -CA ca.pem -rsigner " + signer + ".pem -rkey " + signer +
                    ".key -reqin q.der -respout a.der " + options);
                const bool theirs =
                    try_run("openssl ocsp -no_nonce" + digest + " -issuer ca.pem -cert " + leaf +
                            ".pem -respin a.der -CAfile ca.pem >a 2>&1; cat a; grep -q '^Response "
                            "verify OK' a && grep -q 'pem: good' a");
                good += theirs;
                EXPECT_EQ(check(leaf, "a.der") == 0, theirs)
                    << signer << options << " " << leaf << ": " << last_error() << "\n"
                    << read_text(file("log"));
            }
    EXPECT_EQ(good, 5);
}

INSTANTIATE_TEST_SUITE_P(Keys, RevocationInterop,
                         testing::Values("rsa:2048", "ec -pkeyopt ec_paramgen_curve:P-384", "ed25519"));
