#pragma once
#include "hash/block_digest.h"

// SHA-1 (FIPS 180-4, clause 6.1).
namespace zul {

constexpr size_t kSha1Size = 20;

struct Sha1Context : BlockDigestContext<uint32_t, 5, 64> {};

void sha1_init(Sha1Context& context);
void sha1_update(Sha1Context& context, const void* data, size_t size);
// sha1_update_two is an update of each of two digests, by as much data. Where they have taken in equally much
// so far, the time is not much longer than that of one.
void sha1_update_two(Sha1Context& first, const void* firstData, Sha1Context& second, const void* secondData,
                     size_t size);
void sha1_final(Sha1Context& context, uint8_t digest[kSha1Size]); // wipes the context

// sha1_kernel names the implementation that would run now: "sha-ni", "avx2" or "portable".
const char* sha1_kernel();

} // namespace zul
