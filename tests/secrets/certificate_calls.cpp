// Certificates, requests and CRLs that private keys sign.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

void check_certificates() {
    fresh();
    const TestKey& key = keys[kRsa];
    const char* const wrong = plant_text("a wrong password", 20);
    const char* const name = "CN=Secrets";
    char* const publicKey = public_of(keys[kOtherRsa]);
    CHECK(X509_MakeCertSelf, "makes", 0, "self.crt", key.encrypted, 1, 2, name, "", 0, keyPassword,
          ZUL_HASH_SHA256);
    CHECK(X509_MakeCertSelf, "a wrong password", DECRYPT_ERROR, "none.crt", key.encrypted, 1, 2, name, "", 0,
          wrong, 0);
    CHECK(X509_MakeCertSelf, "cannot write", CREATE_ERROR, "none/self.crt", key.encrypted, 1, 2, name, "", 0,
          keyPassword, 0);
    CHECK(X509_MakeCert, "makes", 0, "made.crt", "self.crt", publicKey, key.encrypted, 1, 2, name, "", 0,
          keyPassword, 0);
    CHECK(X509_MakeCert, "a key string", 0, "made.crt", "self.crt", publicKey, key.text, 1, 2, name, "", 0,
          "p", 0);
    CHECK(X509_MakeCert, "a wrong password", DECRYPT_ERROR, "made.crt", "self.crt", publicKey, key.encrypted,
          1, 2, name, "", 0, wrong, 0);
    CHECK(X509_CertRequest, "makes", 0, "made.csr", key.encrypted, name, "", keyPassword, 0);
    CHECK(X509_CertRequest, "a wrong password", READ_ERROR, "none.csr", key.encrypted, name, "", wrong, 0);
    CHECK(X509_MakeCRL, "makes", 0, "made.crl", "self.crt", key.encrypted, keyPassword, "1,2020-01-01", "",
          0);
    CHECK(X509_MakeCRL, "a wrong password", READ_ERROR, "none.crl", "self.crt", key.encrypted, wrong, "", "",
          0);
    for (const int kind : {kRsa, kP256, kP384, kP521, kEd25519}) {
        const TestKey& k = keys[kind];
        CHECK(CERT_SelfSign, k.kind, 0, "ca.crt", k.text, "subject='CN=CA';profile=ca", 0);
        CHECK(CERT_SelfSign, "cannot write", CREATE_ERROR, "none/ca.crt", k.text, "subject='CN=CA'", 0);
        CHECK(CERT_SelfSign, "a key file", kAny, "no.crt", k.file, "subject='CN=CA'", 0);
        CHECK(CERT_Request, k.kind, 0, "cert.csr", k.text, "subject='CN=Request'", 0);
        CHECK(CERT_Request, "bad", BAD_PARAM_ERROR, "cert.csr", k.text, "subject=='CN=Request'", 0);
        CHECK(CERT_Issue, k.kind, 0, "cert.crt", "ca.crt", k.text, "cert.csr", "", 0);
        CHECK(CERT_Issue, "another key", NO_MATCH_ERROR, "cert.crt", "ca.crt", keys[kOtherRsa].text,
              "cert.csr", "", 0);
        CHECK(CERT_IssueCRL, k.kind, 0, "cert.crl", "ca.crt", k.text, nullptr, "serial=01", nullptr, 0);
        CHECK(CERT_IssueCRL, "another key", NO_MATCH_ERROR, "cert.crl", "ca.crt", keys[kOtherRsa].text,
              nullptr, "serial=01", nullptr, 0);
    }
    // A key beside the certificate is passed over, but read with it.
    size_t size = 0;
    const char* const pem = reinterpret_cast<const char*>(read_file(key.file, &size));
    const char* const both = joined(pem, reinterpret_cast<const char*>(read_file(key.certificate, &size)));
    write_file("both.pem", both, strlen(both));
    char* const text = reinterpret_cast<char*>(take(9000));
    for (const char* argument : {both, "both.pem"}) {
        CHECK(CERT_Query, "beside a key", kPositive, text, 8000, argument, "subject", 0);
        CHECK(CERT_Report, "beside a key", kPositive, text, 8000, argument, 0);
    }
    CHECK(CERT_Query, "a key alone", -NO_DATA_ERROR, text, 8000, pem, "subject", 0);
}

} // namespace secrets
