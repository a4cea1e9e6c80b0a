#include <cstdio>
#include <memory>
#include <openssl/x509v3.h>
#include <string>
#include <vector>

#include "bench_certificate.h"
#include "bench_pair.h"
#include "bench_peer.h"
#include "hash/sha256.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"
#include "rsa_bench_keys.h"
#include "zulcore.h"

namespace {

using Bytes = std::vector<unsigned char>;

std::string base64(X509* certificate) {
    unsigned char* der = nullptr;
    const int length = i2d_X509(certificate, &der);
    std::string text(static_cast<size_t>((length + 2) / 3 * 4 + 1), '\0');
    text.resize(
        static_cast<size_t>(EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), der, length)));
    OPENSSL_free(der);
    return text;
}

X509* peer_decode(const std::string& text) {
    Bytes der(text.size() / 4 * 3);
    const int length = EVP_DecodeBlock(der.data(), reinterpret_cast<const unsigned char*>(text.data()),
                                       static_cast<int>(text.size()));
    const unsigned char* at = der.data();
    return checked(d2i_X509(nullptr, &at, length));
}

// An authority with a key of 2048 bits and a certificate that it issued, made by the peer.
struct Authority {
    Authority() {
        bench_fill_key(key, kBenchPrimes[1]);
        peer.reset(peer_key(key));
        root.reset(peer_certificate(peer.get(), "Bench CA", 1));
        leaf.reset(peer_certificate(peer.get(), "Bench user", 0x7000000));
        rootText = base64(root.get());
        leafText = base64(leaf.get());
    }
    template<auto release>
    struct Release {
        void operator()(auto* thing) const { release(thing); }
    };
    zul::RsaKey key;
    std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>> peer;
    std::unique_ptr<X509, Release<X509_free>> root, leaf;
    std::string rootText, leafText;
};
const Authority& authority() {
    static const Authority one;
    return one;
}

void our_query(const char* query) {
    char out[512];
    check(X509_QueryCert(out, sizeof out - 1, kBenchCertificate, query, 0) > 0);
}
void their_subject() {
    X509* certificate = peer_decode(kBenchCertificate);
    char out[512];
    X509_NAME_oneline(X509_get_subject_name(certificate), out, sizeof out);
    X509_free(certificate);
}
void their_extension() {
    X509* certificate = peer_decode(kBenchCertificate);
    check(X509_get0_subject_key_id(certificate) != nullptr);
    X509_free(certificate);
}

void their_verification() {
    X509* leaf = peer_decode(authority().leafText);
    X509* root = peer_decode(authority().rootText);
    check(X509_verify(leaf, X509_get0_pubkey(root)) == 1);
    X509_free(leaf);
    X509_free(root);
}

// A file with a CRL of that many entries, none of which is the user's.
const std::string& crl_file(long entries) {
    static const std::string path = [entries] {
        X509_CRL* crl = X509_CRL_new();
        X509_CRL_set_version(crl, 1);
        X509_CRL_set_issuer_name(crl, X509_get_subject_name(authority().root.get()));
        ASN1_TIME* time = X509_gmtime_adj(nullptr, -60);
        X509_CRL_set1_lastUpdate(crl, time);
        for (long i = 0; i < entries; i++) {
            X509_REVOKED* revoked = X509_REVOKED_new();
            ASN1_INTEGER* serial = ASN1_INTEGER_new();
            ASN1_INTEGER_set(serial, 0x1000000 + i);
            X509_REVOKED_set_serialNumber(revoked, serial);
            X509_REVOKED_set_revocationDate(revoked, time);
            X509_CRL_add0_revoked(crl, revoked);
            ASN1_INTEGER_free(serial);
        }
        check(X509_CRL_sign(crl, authority().peer.get(), EVP_sha256()) > 0);
        const std::string name = scratch().file("list.crl");
        FILE* file = checked(fopen(name.c_str(), "wb"));
        check(i2d_X509_CRL_fp(file, crl) == 1 && fclose(file) == 0);
        X509_CRL_free(crl);
        ASN1_TIME_free(time);
        return name;
    }();
    return path;
}

constexpr long kEntries = 100'000;

void our_lookup(bool verifies) {
    check(X509_CheckCertInCRL(authority().leafText.c_str(), crl_file(kEntries).c_str(),
                              verifies ? authority().rootText.c_str() : nullptr, nullptr, 0) == 0);
}
void their_lookup(bool verifies) {
    FILE* file = checked(fopen(crl_file(kEntries).c_str(), "rb"));
    X509_CRL* crl = checked(d2i_X509_CRL_fp(file, nullptr));
    fclose(file);
    check(!verifies || X509_CRL_verify(crl, authority().peer.get()) == 1);
    X509_REVOKED* entry = nullptr;
    check(X509_CRL_get0_by_serial(crl, &entry, X509_get_serialNumber(authority().leaf.get())) == 0);
    X509_CRL_free(crl);
}

// What a certificate cannot be made without.
void signature_alone(const zul::RsaKey& key) {
    const Bytes message(600, 0x30);
    Bytes block(key.bytes());
    size_t length = 0;
    check(zul::pkcs1_sign_block(block.data(), block.size(), message.data(), message.size(), ZUL_HASH_SHA256,
                                false) == 0 &&
          zul::rsaPrivate(&key, block.data(), &length, block.data(), block.size()) == 0);
}

// An encrypted key of one iteration, so that the row shows the making and not the password's derivation.
struct MakingKey {
    explicit MakingKey(const BenchPrimes& primes) {
        bench_fill_key(key, primes);
        const std::string text = bench_key_string(key);
        file = scratch().file(("key" + std::to_string(primes.bits)).c_str());
        check(RSA_SaveEncPrivateKey(file.c_str(), text.c_str(), 1, "bench",
                                    ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256) == 0);
    }
    zul::RsaKey key;
    std::string file;
};
template<int index>
const MakingKey& making_key() {
    static const MakingKey one(kBenchPrimes[index]);
    return one;
}
template<int index>
void our_making() {
    check(X509_MakeCertSelf(scratch().file("made.cer").c_str(), making_key<index>().file.c_str(), 1, 10,
                            "C=NL;O=Example;CN=Bench CA", "", ZUL_KEYUSAGE_KEYCERTSIGN, "bench",
                            ZUL_HASH_SHA256) == 0);
}

} // namespace

BENCH_ROWS {
    bench_register(
        {"certificate of 2 KiB in base64: the subject", 0, [] { our_query("subjectName"); }, their_subject});
    bench_register({"certificate of 2 KiB in base64: an extension", 0,
                    [] { our_query("subjectKeyIdentifier"); }, their_extension});
    bench_register(
        {"decode two certificates and verify, RSA-2048", 0,
         [] { check(X509_VerifyCert(authority().leafText.c_str(), authority().rootText.c_str()) == 0); },
         their_verification});
    bench_register(
        {"the same; theirs decoded before", 0,
         [] { check(X509_VerifyCert(authority().leafText.c_str(), authority().rootText.c_str()) == 0); },
         [] { check(X509_verify(authority().leaf.get(), authority().peer.get()) == 1); }});
    bench_register(
        {"look-up in a CRL of 100,000 entries", 0, [] { our_lookup(false); }, [] { their_lookup(false); }});
    bench_register(
        {"the same, its signature verified", 0, [] { our_lookup(true); }, [] { their_lookup(true); }});
    bench_register({"make a certificate, against our signature alone, RSA-2048", 0, our_making<1>,
                    [] { signature_alone(making_key<1>().key); }});
    bench_register({"make a certificate, against our signature alone, RSA-4096", 0, our_making<2>,
                    [] { signature_alone(making_key<2>().key); }});
}
