#include <algorithm>
#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/rand.h>
#include <vector>

#include "bench_pair.h"
#include "bench_peer.h"
#include "zulcore.h"

// Random bytes against the peer's generator of the same construction: HMAC_DRBG with SHA-1, seeded by the
// operating system. Ours makes a continuous test and stirs with each request, theirs does not.
namespace {

std::vector<unsigned char> ours(1 << 20), theirs(1 << 20);

EVP_RAND_CTX* peer_generator() {
    EVP_RAND* source = checked(EVP_RAND_fetch(nullptr, "SEED-SRC", nullptr));
    EVP_RAND_CTX* parent = checked(EVP_RAND_CTX_new(source, nullptr));
    check(EVP_RAND_instantiate(parent, 0, 0, nullptr, 0, nullptr) == 1);
    EVP_RAND* algorithm = checked(EVP_RAND_fetch(nullptr, "HMAC-DRBG", nullptr));
    EVP_RAND_CTX* generator = checked(EVP_RAND_CTX_new(algorithm, parent));
    char mac[] = "HMAC", digest[] = "SHA1";
    const OSSL_PARAM parameters[] = {OSSL_PARAM_construct_utf8_string(OSSL_DRBG_PARAM_MAC, mac, 0),
                                     OSSL_PARAM_construct_utf8_string(OSSL_DRBG_PARAM_DIGEST, digest, 0),
                                     OSSL_PARAM_construct_end()};
    check(EVP_RAND_instantiate(generator, 128, 0, nullptr, 0, parameters) == 1);
    return generator;
}

// In requests of 64 KiB, the most that either side serves.
template<class Request>
void in_requests(std::vector<unsigned char>& out, size_t size, Request request) {
    constexpr size_t kMost = 65536;
    for (size_t at = 0; at < size; at += kMost)
        request(out.data() + at, std::min(kMost, size - at));
}

void our_request(unsigned char* out, size_t size) {
    RNG_Bytes(out, static_cast<int>(size), nullptr, 0);
}

} // namespace

BENCH_ROWS {
    EVP_RAND_CTX* const generator = peer_generator();
    constexpr struct {
        const char* name;
        size_t bytes;
    } kSizes[] = {{"Random bytes, 1 KiB", 1 << 10},
                  {"Random bytes, 16 KiB", 1 << 14},
                  {"Random bytes, 1 MiB", 1 << 20}};
    const auto add = [generator](const char* name, size_t size, size_t shown) {
        bench_register({name, shown, [size] { in_requests(ours, size, our_request); },
                        [generator, size] {
                            in_requests(theirs, size, [generator](unsigned char* out, size_t part) {
                                EVP_RAND_generate(generator, out, part, 128, 0, nullptr, 0);
                            });
                        }});
    };
    add("Random bytes, 16 bytes", 16, 0);
    for (const auto& row : kSizes)
        add(row.name, row.bytes, row.bytes);
    bench_register_threads("Random bytes, 16 bytes, 2 threads against 1", [] {
        thread_local unsigned char out[16];
        our_request(out, sizeof out);
    });
}
