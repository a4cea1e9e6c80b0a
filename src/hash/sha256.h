#pragma once
#include "hash/block_digest.h"

// SHA-256 and SHA-224 (FIPS 180-4, clauses 6.2 and 6.3).
namespace zul {

constexpr size_t kSha224Size = 28;
constexpr size_t kSha256Size = 32;

struct Sha256Context : BlockDigestContext<uint32_t, 8, 64> {
    size_t digestSize;
};

void sha224_init(Sha256Context& context);
void sha256_init(Sha256Context& context);
void sha256_update(Sha256Context& context, const void* data, size_t size);
// sha256_final writes 28 or 32 bytes, as initialised, and wipes the context.
void sha256_final(Sha256Context& context, uint8_t* digest);

// sha256_kernel names the implementation that would run now: "sha-ni", "avx2" or "portable".
const char* sha256_kernel();

} // namespace zul
