#include <cstdio>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <string>

#include "bench_pair.h"
#include "bench_peer.h"
#include "cert/path/cert_pool.h"
#include "rsa_bench_keys.h"
#include "zulcore.h"

namespace {

constexpr char kRoots[] = "/etc/ssl/certs/ca-certificates.crt";

std::string pem_of(BIO* bio) {
    char* text = nullptr;
    const long size = BIO_get_mem_data(bio, &text);
    const std::string copy(text, static_cast<size_t>(size));
    BIO_free(bio);
    return copy;
}
template<class Object>
std::string pem_of(Object* object, int (*write)(BIO*, const Object*)) {
    BIO* bio = checked(BIO_new(BIO_s_mem()));
    check(write(bio, object) == 1);
    return pem_of(bio);
}

void add_extension(X509* certificate, int nid, const char* value) {
    X509_EXTENSION* extension = checked(X509V3_EXT_conf_nid(nullptr, nullptr, nid, value));
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

X509_NAME* name_of(const char* commonName) {
    X509_NAME* name = checked(X509_NAME_new());
    peer_name(name, commonName);
    return name;
}

// A root, two authorities, of which the first has name constraints, a server's certificate, and the CRLs of
// the three issuers. All keys are the same one of 2048 bits, since it is the signatures that take time.
struct Chain {
    Chain() {
        zul::RsaKey key;
        bench_fill_key(key, kBenchPrimes[1]);
        EVP_PKEY* peer = peer_key(key);
        const char* const names[] = {"Bench CA", "Bench CA", "Bench CA 1", "Bench CA 2", "Bench server"};
        for (int i = 0; i < 4; i++) {
            X509* certificate = peer_certificate(peer, names[i + 1], i + 1);
            X509_NAME* issuer = name_of(names[i]);
            X509_set_issuer_name(certificate, issuer);
            X509_NAME_free(issuer);
            add_extension(certificate, NID_basic_constraints, i < 3 ? "critical,CA:TRUE" : "CA:FALSE");
            if (i < 3)
                add_extension(certificate, NID_key_usage, "critical,keyCertSign,cRLSign");
            if (i == 1)
                add_extension(certificate, NID_name_constraints,
                              "critical,permitted;DNS:example.com,permitted;IP:192.0.2.0/255.255.255.0,"
                              "excluded;DNS:secret.example.com,excluded;email:example.org");
            if (i == 3)
                add_extension(certificate, NID_subject_alt_name,
                              "DNS:www.example.com,DNS:mail.example.com,IP:192.0.2.7");
            check(X509_sign(certificate, peer, EVP_sha256()) > 0);
            (i == 0 ? root : i == 3 ? leaf : others) += pem_of(certificate, PEM_write_bio_X509);
            X509_free(certificate);
            if (i < 3)
                crls += crl(peer, names[i + 1]);
        }
        EVP_PKEY_free(peer);
    }
    static std::string crl(EVP_PKEY* key, const char* issuer) {
        X509_CRL* list = checked(X509_CRL_new());
        X509_NAME* name = name_of(issuer);
        ASN1_TIME* time = X509_gmtime_adj(nullptr, -60);
        X509_CRL_set_version(list, 1);
        X509_CRL_set_issuer_name(list, name);
        X509_CRL_set1_lastUpdate(list, time);
        X509_gmtime_adj(time, 86400);
        X509_CRL_set1_nextUpdate(list, time);
        for (long serial = 1000; serial < 1020; serial++) {
            X509_REVOKED* revoked = X509_REVOKED_new();
            ASN1_INTEGER* number = ASN1_INTEGER_new();
            ASN1_INTEGER_set(number, serial);
            X509_REVOKED_set_serialNumber(revoked, number);
            X509_REVOKED_set_revocationDate(revoked, time);
            X509_CRL_add0_revoked(list, revoked);
            ASN1_INTEGER_free(number);
        }
        check(X509_CRL_sign(list, key, EVP_sha256()) > 0);
        const std::string text = pem_of(list, PEM_write_bio_X509_CRL);
        X509_CRL_free(list);
        X509_NAME_free(name);
        ASN1_TIME_free(time);
        return text;
    }
    std::string root, others, leaf, crls;
};
const Chain& chain() {
    static const Chain one;
    return one;
}

void our_path() {
    check(CERT_CheckPath(nullptr, 0, chain().leaf.c_str(), chain().others.c_str(), chain().root.c_str(),
                         chain().crls.c_str(), nullptr, 0) == 0);
}

template<class Object>
void each_of(const std::string& text, Object* (*read)(BIO*, Object**, pem_password_cb*, void*), auto take) {
    BIO* bio = checked(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
    while (Object* object = read(bio, nullptr, nullptr, nullptr))
        take(object);
    ERR_clear_error();
    BIO_free(bio);
}

void their_path() {
    X509_STORE* store = checked(X509_STORE_new());
    STACK_OF(X509)* others = checked(sk_X509_new_null());
    X509* leaf = nullptr;
    each_of(chain().root, PEM_read_bio_X509, [&](X509* one) {
        X509_STORE_add_cert(store, one);
        X509_free(one);
    });
    each_of(chain().crls, PEM_read_bio_X509_CRL, [&](X509_CRL* one) {
        X509_STORE_add_crl(store, one);
        X509_CRL_free(one);
    });
    each_of(chain().others, PEM_read_bio_X509, [&](X509* one) { sk_X509_push(others, one); });
    each_of(chain().leaf, PEM_read_bio_X509, [&](X509* one) { leaf = one; });
    X509_STORE_CTX* context = checked(X509_STORE_CTX_new());
    check(X509_STORE_CTX_init(context, store, leaf, others) == 1);
    X509_STORE_CTX_set_flags(context, X509_V_FLAG_CRL_CHECK | X509_V_FLAG_CRL_CHECK_ALL);
    check(X509_verify_cert(context) == 1);
    X509_STORE_CTX_free(context);
    X509_STORE_free(store);
    sk_X509_pop_free(others, X509_free);
    X509_free(leaf);
}

void our_roots() {
    zul::ObjectList list;
    zul::CertPool pool;
    check(list.add(kRoots) == 0);
    pool.add(list, 0, true);
    pool.index();
    check(pool.anchors() > 100);
}
void their_roots() {
    X509_STORE* store = checked(X509_STORE_new());
    check(X509_STORE_load_file(store, kRoots) == 1);
    X509_STORE_free(store);
}

} // namespace

BENCH_ROWS {
    bench_register(
        {"path of four, RSA-2048, with CRLs and name constraints, from PEM", 0, our_path, their_path});
    if (FILE* file = fopen(kRoots, "rb")) {
        fclose(file);
        bench_register({"read and index the roots of this system", 0, our_roots, their_roots});
    }
}
