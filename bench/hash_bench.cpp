#include <array>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <vector>

#include "bench_pair.h"
#include "hash/sha1.h"
#include "hash/sha256.h"
#include "hash/sha512.h"
#include "zulcore.h"

namespace {

constexpr int kSize = 16384;
std::vector<unsigned char> message(kSize, 0x5a);
std::array<unsigned char, 64> ours, theirs;

// The peer's fastest way: the algorithm fetched once and the context used again.
void add_digest(const char* name, int option, const char* peerName) {
    EVP_MD* algorithm = EVP_MD_fetch(nullptr, peerName, nullptr);
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    bench_register({name, kSize, [option] { HASH_Bytes(ours.data(), 64, message.data(), kSize, option); },
                    [algorithm, context] {
                        EVP_DigestInit_ex2(context, algorithm, nullptr);
                        EVP_DigestUpdate(context, message.data(), kSize);
                        EVP_DigestFinal_ex(context, theirs.data(), nullptr);
                    }});
}

void our_hmac() {
    HMAC_Bytes(ours.data(), 32, message.data(), 64, message.data(), 32, ZUL_HASH_SHA256);
}

} // namespace

BENCH_ROWS {
    bench_register_note("kernels", [] {
        return std::string("SHA-1 ") + zul::sha1_kernel() + ", SHA-256 " + zul::sha256_kernel() +
               ", SHA-512 " + zul::sha512_kernel();
    });
    add_digest("SHA-256, 16 KiB", ZUL_HASH_SHA256, "SHA256");
    add_digest("SHA-1, 16 KiB", ZUL_HASH_SHA1, "SHA1");
    add_digest("SHA-512, 16 KiB", ZUL_HASH_SHA512, "SHA512");
    add_digest("MD5, 16 KiB", ZUL_HASH_MD5, "MD5");

    bench_register({"HMAC-SHA-256, 64 bytes", 0, our_hmac, [] {
                        HMAC(EVP_sha256(), message.data(), 32, message.data(), 64, theirs.data(), nullptr);
                    }});
    // Not the same work: their side keeps the algorithm and the context, and sets only the key anew.
    HMAC_CTX* context = HMAC_CTX_new();
    EVP_MD* algorithm = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    bench_register({"HMAC-SHA-256, 64 bytes (their reused HMAC_CTX)", 0, our_hmac, [context, algorithm] {
                        HMAC_Init_ex(context, message.data(), 32, algorithm, nullptr);
                        HMAC_Update(context, message.data(), 64);
                        HMAC_Final(context, theirs.data(), nullptr);
                    }});
}
