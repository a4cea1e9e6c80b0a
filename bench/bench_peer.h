// What the benchmarks of files against libcrypto share.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <string>

#include "asn1/asn_encode.h"
#include "rsa/rsa_der.h"

template<class T>
T* checked(T* thing) {
    if (thing == nullptr)
        std::abort();
    return thing;
}
inline void check(bool claim) {
    if (!claim)
        std::abort();
}

// Files of the benchmarks, removed at the program's end. In memory where there is such a place: some file
// systems take milliseconds to write over a file.
class Scratch {
  public:
    Scratch() {
        const std::filesystem::path memory = "/dev/shm";
        const std::filesystem::path base =
            std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        std::string name = (base / "zulcore-bench-XXXXXX").string();
        folder_ = checked(mkdtemp(name.data()));
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    std::string file(const char* name) const { return (folder_ / name).string(); }

  private:
    std::filesystem::path folder_;
};
inline const Scratch& scratch() {
    static const Scratch one;
    return one;
}

inline EVP_PKEY* peer_key(const zul::RsaKey& key) {
    const zul::SecretBuffer der = zul::asn_Encode(zul::rsa_private_key_list(key));
    const unsigned char* at = der.data();
    return checked(d2i_PrivateKey(EVP_PKEY_RSA, nullptr, &at, static_cast<long>(der.size())));
}

inline void peer_name(X509_NAME* name, const char* commonName) {
    X509_NAME_add_entry_by_txt(name, "C", MBSTRING_UTF8, reinterpret_cast<const unsigned char*>("NL"), -1, -1,
                               0);
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8, reinterpret_cast<const unsigned char*>(commonName),
                               -1, -1, 0);
}

inline X509* peer_certificate(EVP_PKEY* key, const char* subject, long serial) {
    X509* certificate = X509_new();
    X509_set_version(certificate, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -60);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 86400);
    peer_name(X509_get_subject_name(certificate), subject);
    peer_name(X509_get_issuer_name(certificate), "Bench CA");
    X509_set_pubkey(certificate, key);
    check(X509_sign(certificate, key, EVP_sha256()) > 0);
    return certificate;
}
