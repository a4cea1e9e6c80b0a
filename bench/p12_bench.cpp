#include <cstdio>
#include <openssl/pem.h>
#include <openssl/pkcs12.h>

#include "bench_pair.h"
#include "bench_peer.h"
#include "key/key_der.h"
#include "zulcore.h"

// PKCS #12 files through the exports, against libcrypto with the same schemes and iterations. Both sides open
// and write the file of one P-256 key and its certificate; ours also reads them from their files to pack
// them.

namespace {

constexpr char kPassword[] = "correct horse battery staple";

class Files {
  public:
    Files() {
        key_ = checked(EVP_EC_gen("P-256"));
        certificate_ = peer_certificate(key_, "Bench", 1);
        FILE* file = checked(fopen(keyPath_.c_str(), "wb"));
        check(PEM_write_PrivateKey(file, key_, nullptr, nullptr, 0, nullptr, nullptr) == 1);
        fclose(file);
        file = checked(fopen(certificatePath_.c_str(), "wb"));
        check(PEM_write_X509(file, certificate_) == 1);
        fclose(file);
    }

    void pack(int options) const {
        check(P12_Pack(p12Path_.c_str(), certificatePath_.c_str(), keyPath_.c_str(), kPassword, "Bench",
                       options) == 0);
    }
    void unpack() const {
        char key[1000];
        check(P12_Unpack(outPath_.c_str(), key, 999, p12Path_.c_str(), kPassword, 0) == 0);
    }

    void peer_pack(int scheme, const EVP_MD* digest, int iterations) const {
        PKCS12* const p12 = checked(PKCS12_create(kPassword, "Bench", key_, certificate_, nullptr, scheme,
                                                  scheme, iterations, -1, 0));
        check(PKCS12_set_mac(p12, kPassword, -1, nullptr, 16, iterations, digest) == 1);
        FILE* const file = checked(fopen(peerPath_.c_str(), "wb"));
        check(i2d_PKCS12_fp(file, p12) == 1);
        fclose(file);
        PKCS12_free(p12);
    }
    // peer_unpack reads the file that we have made.
    void peer_unpack() const {
        FILE* const file = checked(fopen(p12Path_.c_str(), "rb"));
        PKCS12* const p12 = checked(d2i_PKCS12_fp(file, nullptr));
        fclose(file);
        EVP_PKEY* key = nullptr;
        X509* certificate = nullptr;
        check(PKCS12_parse(p12, kPassword, &key, &certificate, nullptr) == 1);
        EVP_PKEY_free(key);
        X509_free(certificate);
        PKCS12_free(p12);
    }

  private:
    const std::string keyPath_ = scratch().file("p12.key"), certificatePath_ = scratch().file("p12.pem"),
                      p12Path_ = scratch().file("p12.p12"), outPath_ = scratch().file("p12.out"),
                      peerPath_ = scratch().file("p12.peer");
    EVP_PKEY* key_;
    X509* certificate_;
};

const Files& files() {
    static const Files one;
    return one;
}

void add(const std::string& name, int options, int scheme, const EVP_MD* digest, int iterations) {
    bench_register({"P12_Pack, " + name, 0, [=] { files().pack(options); },
                    [=] { files().peer_pack(scheme, digest, iterations); }});
    const auto prepare = [=] {
        static int made = -1;
        if (made != options)
            files().pack(options);
        made = options;
    };
    bench_register({"P12_Unpack, " + name, 0,
                    [=] {
                        prepare();
                        files().unpack();
                    },
                    [=] {
                        prepare();
                        files().peer_unpack();
                    }});
}

} // namespace

BENCH_ROWS {
    add("PBES2 and MAC, 600,000 iterations", 0, NID_aes_256_cbc, EVP_sha256(), 600'000);
    add("Triple DES and SHA-1, 2048 iterations", ZUL_P12_LEGACY, NID_pbe_WithSHA1And3_Key_TripleDES_CBC,
        EVP_sha1(), 2048);
}
