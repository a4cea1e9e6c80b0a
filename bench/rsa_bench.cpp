#include <cstdlib>
#include <map>
#include <openssl/bn.h>
#include <openssl/rsa.h>
#include <vector>

#include "bench_pair.h"
#include "rsa/rsa_operation.h"
#include "rsa_bench_keys.h"
#include "zulcore.h"

namespace {

using Bytes = std::vector<unsigned char>;

// One key, for both sides.
class Key {
  public:
    explicit Key(const BenchPrimes& primes) : input_(static_cast<size_t>(primes.bits / 8), 0x5A) {
        bench_fill_key(key_, primes);
        privateString_ = bench_key_string(key_);
        publicString_ = bench_key_string(key_, zul::rsa_public_key_string);
        fill_theirs();
        if (ours(zul::rsaPrivate) != theirs(RSA_private_encrypt) || raw_private() != peerOutput_ ||
            ours(zul::rsaPublic) != theirs(RSA_public_encrypt) || raw_public() != peerOutput_)
            std::abort();
    }

    using Ours = int (*)(const zul::RsaKey*, uint8_t*, size_t*, const uint8_t*, size_t);
    using Theirs = int (*)(int, const unsigned char*, unsigned char*, RSA*, int);

    const Bytes& ours(Ours operation) {
        size_t length = 0;
        output_.resize(input_.size());
        operation(&key_, output_.data(), &length, input_.data(), input_.size());
        return output_;
    }
    const Bytes& raw_public() { return raw(RSA_RawPublic, publicString_); }
    const Bytes& raw_private() { return raw(RSA_RawPrivate, privateString_); }
    void open_public() {
        if (RSA_KeyBits(publicString_.c_str()) <= 0)
            std::abort();
    }
    const Bytes& theirs(Theirs operation) {
        peerOutput_.resize(input_.size());
        operation(static_cast<int>(input_.size()), input_.data(), peerOutput_.data(), peer_, RSA_NO_PADDING);
        return peerOutput_;
    }

  private:
    const Bytes& raw(int (*operation)(unsigned char*, int, const char*, int), const std::string& keyString) {
        output_ = input_;
        if (operation(output_.data(), static_cast<int>(output_.size()), keyString.c_str(), 0) != 0)
            std::abort();
        return output_;
    }

    static BIGNUM* to_peer(zul::MT number) {
        Bytes bytes(zul::mtConvToOctets(number, nullptr, 0));
        zul::mtConvToOctets(number, bytes.data(), bytes.size());
        return BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr);
    }

    // Blinding, which this library does not do, is off on their side too.
    void fill_theirs() {
        RSA_set0_key(peer_, to_peer(key_.n), to_peer(key_.e), to_peer(key_.d));
        RSA_set0_factors(peer_, to_peer(key_.p), to_peer(key_.q));
        RSA_set0_crt_params(peer_, to_peer(key_.dP), to_peer(key_.dQ), to_peer(key_.qInv));
        RSA_blinding_off(peer_);
    }

    zul::RsaKey key_;
    RSA* peer_ = RSA_new();
    std::string privateString_, publicString_;
    Bytes input_, output_, peerOutput_;
};
// Made at its first use, as a filter may want none.
Key& key_of(const BenchPrimes& primes) {
    static std::map<int, Key> keys;
    return keys.try_emplace(primes.bits, primes).first->second;
}

} // namespace

BENCH_ROWS {
    for (const BenchPrimes& primes : kBenchPrimes) {
        const std::string bits = std::to_string(primes.bits);
        bench_register({"RSA-" + bits + " private", 0, [&primes] { key_of(primes).ours(zul::rsaPrivate); },
                        [&primes] { key_of(primes).theirs(RSA_private_encrypt); }});
        bench_register({"RSA-" + bits + " public, e = 65537", 0,
                        [&primes] { key_of(primes).ours(zul::rsaPublic); },
                        [&primes] { key_of(primes).theirs(RSA_public_encrypt); }});
        // A call with a key string opens it; their key is ready.
        bench_register({"RSA_RawPrivate, " + bits + " bits", 0, [&primes] { key_of(primes).raw_private(); },
                        [&primes] { key_of(primes).theirs(RSA_private_encrypt); }});
        bench_register({"RSA_RawPublic, " + bits + " bits", 0, [&primes] { key_of(primes).raw_public(); },
                        [&primes] { key_of(primes).theirs(RSA_public_encrypt); }});
        bench_register({"RSA_KeyBits of a public key, " + bits + " bits", 0,
                        [&primes] { key_of(primes).open_public(); },
                        [&primes] { key_of(primes).theirs(RSA_public_encrypt); }});
    }
}
