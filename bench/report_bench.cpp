#include <cstring>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <string>
#include <vector>

#include "bench_certificate.h"
#include "bench_pair.h"
#include "bench_peer.h"
#include "zulcore.h"

// What a certificate says. Both sides start from PEM in memory, and end with text in memory.

namespace {

const std::string& certificate() {
    static const std::string text = [] {
        std::string lines = "-----BEGIN CERTIFICATE-----\n";
        for (const char* at = kBenchCertificate; *at != '\0'; at += strnlen(at, 64))
            lines.append(at, strnlen(at, 64)).push_back('\n');
        return lines + "-----END CERTIFICATE-----\n";
    }();
    return text;
}

X509* their_certificate() {
    BIO* input = BIO_new_mem_buf(certificate().data(), static_cast<int>(certificate().size()));
    X509* peer = checked(PEM_read_bio_X509(input, nullptr, nullptr, nullptr));
    BIO_free(input);
    return peer;
}

void our_report(int options) {
    static std::vector<char> out(1 << 16);
    check(CERT_Report(out.data(), static_cast<int>(out.size()) - 1, certificate().c_str(), options) > 0);
}
void their_report() {
    X509* peer = their_certificate();
    BIO* output = BIO_new(BIO_s_mem());
    check(X509_print_ex(output, peer, XN_FLAG_ONELINE, 0) == 1);
    BIO_free(output);
    X509_free(peer);
}

void our_query(const char* word) {
    char out[512];
    check(CERT_Query(out, sizeof out - 1, certificate().c_str(), word, 0) > 0);
}
void their_subject() {
    X509* peer = their_certificate();
    BIO* output = BIO_new(BIO_s_mem());
    check(X509_NAME_print_ex(output, X509_get_subject_name(peer), 0, XN_FLAG_ONELINE) > 0);
    BIO_free(output);
    X509_free(peer);
}

void our_check() {
    check(CERT_CheckName(certificate().c_str(), "www.signer.example.org", 0) == 0);
}
void their_check() {
    X509* peer = their_certificate();
    check(X509_check_host(peer, "www.signer.example.org", 0, 0, nullptr) == 1);
    X509_free(peer);
}

BENCH_ROWS {
    bench_register({"report of a certificate as text", 0, [] { our_report(0); }, their_report});
    bench_register({"report of a certificate as JSON", 0, [] { our_report(ZUL_CERT_JSON); }, their_report});
    bench_register({"CERT_Query subject, PEM", 0, [] { our_query("subject"); }, their_subject});
    bench_register({"CERT_CheckName, PEM", 0, our_check, their_check});
}

} // namespace
