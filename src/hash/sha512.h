#pragma once
#include "hash/block_digest.h"

// SHA-512 and SHA-384 (FIPS 180-4, clauses 6.4 and 6.5).
namespace zul {

constexpr size_t kSha384Size = 48;
constexpr size_t kSha512Size = 64;

struct Sha512Context : BlockDigestContext<uint64_t, 8, 128> {
    size_t digestSize;
};

void sha384_init(Sha512Context& context);
void sha512_init(Sha512Context& context);
void sha512_update(Sha512Context& context, const void* data, size_t size);
// sha512_final writes 48 or 64 bytes, as initialised, and wipes the context.
void sha512_final(Sha512Context& context, uint8_t* digest);

// sha512_kernel names the implementation that would run now: "avx2" or "portable".
const char* sha512_kernel();

} // namespace zul
