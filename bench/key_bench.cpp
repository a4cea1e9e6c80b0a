#include <map>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>
#include <vector>

#include "bench_pair.h"
#include "bench_peer.h"
#include "zulcore.h"

// Keys of every kind through the exports, their key strings opened in each call, against libcrypto with keys
// that are ready.

namespace {

using Bytes = std::vector<unsigned char>;
const Bytes kData(32, 0x5A);

class Pair {
  public:
    Pair(const char* kind, const char* algorithm) : algorithm_(algorithm) {
        key_.resize(static_cast<size_t>(KEY_Make(nullptr, 0, kind, 0)));
        key_.resize(static_cast<size_t>(KEY_Make(key_.data(), static_cast<int>(key_.size()), kind, 0)));
        public_.resize(key_.size());
        public_.resize(
            static_cast<size_t>(KEY_Public(public_.data(), static_cast<int>(key_.size()), key_.c_str())));
        check(KEY_Save(scratch().file("key").c_str(), key_.c_str(), nullptr, nullptr, 0) == 0);
        FILE* const file = checked(fopen(scratch().file("key").c_str(), "rb"));
        der_.resize(3000);
        der_.resize(fread(der_.data(), 1, der_.size(), file));
        fclose(file);
        peer_ = peer_open();
        if (algorithm_[0] != 'x') {
            sign();
            peer_verify();
            peer_sign();
        }
    }

    void sign() {
        signature_.resize(600);
        signature_.resize(
            static_cast<size_t>(SIG_Sign(signature_.data(), 600, kData.data(), static_cast<int>(kData.size()),
                                         key_.c_str(), algorithm_, 0)));
    }
    void verify() const {
        check(SIG_Verify(signature_.data(), static_cast<int>(signature_.size()), kData.data(),
                         static_cast<int>(kData.size()), public_.c_str(), algorithm_, 0) == 0);
    }
    void agree() { check(KEY_Agree(secret_, sizeof secret_, key_.c_str(), public_.c_str(), 0) > 0); }
    void open() const { check(KEY_Query(nullptr, 0, key_.c_str(), "isPrivate", 0) == 1); }

    EVP_PKEY* peer_open() const {
        const unsigned char* at = der_.data();
        return checked(d2i_AutoPrivateKey(nullptr, &at, static_cast<long>(der_.size())));
    }
    void peer_sign() {
        EVP_MD_CTX* const context = EVP_MD_CTX_new();
        peerSignature_.resize(600);
        size_t size = 600;
        EVP_PKEY_CTX* options = nullptr;
        check(EVP_DigestSignInit(context, &options, digest(), nullptr, peer_) == 1);
        set_padding(options);
        check(EVP_DigestSign(context, peerSignature_.data(), &size, kData.data(), kData.size()) == 1);
        peerSignature_.resize(size);
        EVP_MD_CTX_free(context);
    }
    void peer_verify() const {
        EVP_MD_CTX* const context = EVP_MD_CTX_new();
        EVP_PKEY_CTX* options = nullptr;
        check(EVP_DigestVerifyInit(context, &options, digest(), nullptr, peer_) == 1);
        set_padding(options);
        check(EVP_DigestVerify(context, signature_.data(), signature_.size(), kData.data(), kData.size()) ==
              1);
        EVP_MD_CTX_free(context);
    }
    void peer_agree() {
        EVP_PKEY_CTX* const context = EVP_PKEY_CTX_new(peer_, nullptr);
        size_t size = sizeof secret_;
        check(EVP_PKEY_derive_init(context) == 1 && EVP_PKEY_derive_set_peer(context, peer_) == 1 &&
              EVP_PKEY_derive(context, secret_, &size) == 1);
        EVP_PKEY_CTX_free(context);
    }

  private:
    const EVP_MD* digest() const {
        return algorithm_[0] == 'e' && algorithm_[1] == 'd' ? nullptr : EVP_sha256();
    }
    void set_padding(EVP_PKEY_CTX* options) const {
        if (algorithm_[0] == 'r')
            check(EVP_PKEY_CTX_set_rsa_padding(options, RSA_PKCS1_PSS_PADDING) == 1 &&
                  EVP_PKEY_CTX_set_rsa_pss_saltlen(options, 32) == 1);
    }

    const char* algorithm_;
    std::string key_, public_;
    EVP_PKEY* peer_ = nullptr;
    Bytes der_, signature_, peerSignature_;
    unsigned char secret_[66] = {};
};

// Made at its first use, as a filter may want none.
Pair& pair_of(const char* kind, const char* algorithm) {
    static std::map<std::string, Pair> pairs;
    return pairs.try_emplace(kind, kind, algorithm).first->second;
}

} // namespace

BENCH_ROWS {
    static const struct {
        const char *kind, *algorithm;
        bool signs, agrees;
    } rows[] = {{"p-256", "ecdsa-sha256", true, true},       {"p-384", "ecdsa-sha256", true, true},
                {"p-521", "ecdsa-sha256", true, true},       {"ed25519", "ed25519", true, false},
                {"x25519", "x25519", false, true},           {"rsa-2048", "rsa-pss-sha256", true, false},
                {"rsa-3072", "rsa-pss-sha256", true, false}, {"rsa-4096", "rsa-pss-sha256", true, false}};
    for (const auto& row : rows) {
        const auto pair = [&row]() -> Pair& { return pair_of(row.kind, row.algorithm); };
        const std::string name = row.kind;
        bench_register({name + " key string opened (theirs: DER)", 0, [pair] { pair().open(); },
                        [pair] { EVP_PKEY_free(pair().peer_open()); }});
        if (row.signs) {
            bench_register({name + " sign", 0, [pair] { pair().sign(); }, [pair] { pair().peer_sign(); }});
            bench_register(
                {name + " verify", 0, [pair] { pair().verify(); }, [pair] { pair().peer_verify(); }});
        }
        if (row.agrees)
            bench_register({name + " agree", 0, [pair] { pair().agree(); }, [pair] { pair().peer_agree(); }});
    }
}
