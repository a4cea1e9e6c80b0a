#include <array>
#include <openssl/evp.h>
#include <string>
#include <vector>

#include "bench_pair.h"
#include "bench_sizes.h"
#include "zulcore.h"

namespace {

constexpr int kLargest = 1 << 20, kTag = 16;
std::array<unsigned char, 32> key = {1, 2, 3};
std::array<unsigned char, 12> nonce = {4, 5, 6};
std::array<unsigned char, 64> digest;
std::vector<unsigned char> input(kLargest, 0x5a), ours(kLargest + kTag), theirs(kLargest + kTag);

// Both sides set key and nonce in every call; the peer's context is used again.
void add_aead(const char* algorithm, int keyBytes, const char* peerName, const BenchSize& benchSize) {
    const int size = benchSize.bytes;
    EVP_CIPHER* peer = EVP_CIPHER_fetch(nullptr, peerName, nullptr);
    EVP_CIPHER_CTX* context = EVP_CIPHER_CTX_new();
    bench_register({algorithm + benchSize.suffix, static_cast<size_t>(size),
                    [=] {
                        AEAD_Encrypt(ours.data(), size + kTag, input.data(), size, key.data(), keyBytes,
                                     nonce.data(), 12, nullptr, 0, algorithm, 0);
                    },
                    [=] {
                        int length = 0;
                        EVP_EncryptInit_ex2(context, peer, key.data(), nonce.data(), nullptr);
                        EVP_EncryptUpdate(context, theirs.data(), &length, input.data(), size);
                        EVP_EncryptFinal_ex(context, theirs.data() + length, &length);
                        EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_GET_TAG, kTag, theirs.data() + size);
                    }});
}

void add_sha3(const char* algorithm, const char* peerName, int digestBytes, const BenchSize& benchSize) {
    const int length = benchSize.bytes;
    EVP_MD* peer = EVP_MD_fetch(nullptr, peerName, nullptr);
    EVP_MD_CTX* peerContext = EVP_MD_CTX_new();
    const int size = HASH_Begin(nullptr, 0, algorithm, 0);
    bench_register({algorithm + benchSize.suffix, static_cast<size_t>(length),
                    [=, context = std::vector<unsigned char>(static_cast<size_t>(size))]() mutable {
                        HASH_Begin(context.data(), size, algorithm, 0);
                        HASH_Add(context.data(), input.data(), length);
                        HASH_End(digest.data(), digestBytes, context.data());
                    },
                    [=] {
                        EVP_DigestInit_ex2(peerContext, peer, nullptr);
                        EVP_DigestUpdate(peerContext, input.data(), static_cast<size_t>(length));
                        EVP_DigestFinal_ex(peerContext, digest.data(), nullptr);
                    }});
}

} // namespace

BENCH_ROWS {
    for (const BenchSize& size : bench_sizes) {
        add_aead("aes-128-gcm", 16, "AES-128-GCM", size);
        add_aead("aes-256-gcm", 32, "AES-256-GCM", size);
        add_aead("chacha20-poly1305", 32, "ChaCha20-Poly1305", size);
        add_sha3("sha3-256", "SHA3-256", 32, size);
        add_sha3("sha3-512", "SHA3-512", 64, size);
    }
}
