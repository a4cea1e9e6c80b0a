#include <array>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <vector>

#include "bench_pair.h"
#include "bench_sizes.h"
#include "hash/sha1.h"
#include "hash/sha256.h"
#include "hash/sha512.h"
#include "zulcore.h"

namespace {

std::vector<unsigned char> message(1 << 20, 0x5a);
std::array<unsigned char, 64> ours, theirs;

// The peer's fastest way: the algorithm fetched once and the context used again.
void add_digest(const char* name, int size, int option, const char* peerName) {
    EVP_MD* algorithm = EVP_MD_fetch(nullptr, peerName, nullptr);
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    bench_register({name, static_cast<size_t>(size),
                    [option, size] { HASH_Bytes(ours.data(), 64, message.data(), size, option); },
                    [algorithm, context, size] {
                        EVP_DigestInit_ex2(context, algorithm, nullptr);
                        EVP_DigestUpdate(context, message.data(), static_cast<size_t>(size));
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
    constexpr struct {
        const char* name;
        int option;
        const char* peerName;
    } kDigests[] = {{"SHA-256", ZUL_HASH_SHA256, "SHA256"},
                    {"SHA-1", ZUL_HASH_SHA1, "SHA1"},
                    {"SHA-512", ZUL_HASH_SHA512, "SHA512"},
                    {"MD5", ZUL_HASH_MD5, "MD5"}};
    for (const auto& digest : kDigests)
        for (const BenchSize& size : bench_sizes)
            add_digest((digest.name + size.suffix).c_str(), size.bytes, digest.option, digest.peerName);

    bench_register_threads("SHA-256 of a hex text, 2 threads against 1", [] {
        thread_local char digest[65];
        HASH_HexFromHex(digest, 64, "6162636465666768696a6b6c6d6e6f70", ZUL_HASH_SHA256);
    });
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
