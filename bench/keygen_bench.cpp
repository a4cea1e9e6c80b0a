#include <cstdlib>
#include <openssl/evp.h>
#include <openssl/rsa.h>

#include "bench_pair.h"
#include "rng/rng.h"
#include "rsa/rsa_generate.h"

// How long one key takes is a matter of luck. The table counts the best repetition; for means of many keys
// there should be a single long one: --filter="key generation" --slices=1 --seconds=20.

namespace {

int fill(uint8_t* out, size_t length, const uint8_t* seed, size_t seedLength) {
    return zul::rng_bytes(out, length, seed, seedLength);
}

void our_key(size_t bits) {
    zul::RsaKey key;
    if (zul::rsaGenerateKeys(&key, {.bits = bits,
                                    .expIndex = 4,
                                    .tests = 5,
                                    .seed = nullptr,
                                    .seedLen = 0,
                                    .fill = fill,
                                    .options = 0}) != 0)
        std::abort();
}

} // namespace

BENCH_ROWS {
    for (const size_t bits : {2048u, 3072u})
        bench_register({"RSA-" + std::to_string(bits) + " key generation, 5 tests", 0,
                        [bits] { our_key(bits); }, [bits] { EVP_PKEY_free(EVP_RSA_gen(bits)); }});
}
