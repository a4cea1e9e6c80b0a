#pragma once
#include "hash/block_digest.h"

// SHA-512, SHA-384 and SHA-512/256 (FIPS 180-4, clauses 6.4, 6.5 and 6.7).
namespace zul {

constexpr size_t kSha384Size = 48;
constexpr size_t kSha512Size = 64;
constexpr size_t kSha512_256Size = 32;

struct Sha512Context : BlockDigestContext<uint64_t, 8, 128> {
    size_t digestSize;
};

void sha384_init(Sha512Context& context);
void sha512_init(Sha512Context& context);
void sha512_256_init(Sha512Context& context);
void sha512_update(Sha512Context& context, const void* data, size_t size);
// sha512_final writes 32, 48 or 64 bytes, as initialised, and wipes the context.
void sha512_final(Sha512Context& context, uint8_t* digest);

// sha512_kernel names the implementation that would run now: "avx512", "avx2" or "portable".
const char* sha512_kernel();

} // namespace zul
