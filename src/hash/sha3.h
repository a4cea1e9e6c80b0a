#pragma once
#include <cstddef>
#include <cstdint>

// SHA-3 and SHAKE (FIPS 202).
namespace zul {

struct Sha3Context {
    uint64_t lanes[25];
    uint32_t rate;     // bytes of a block
    uint32_t position; // bytes of the block that have been taken or given
    uint32_t digestSize;
    uint8_t suffix; // the bits that follow the message
    bool isSqueezing;
};

void sha3_224_init(Sha3Context& context);
void sha3_256_init(Sha3Context& context);
void sha3_384_init(Sha3Context& context);
void sha3_512_init(Sha3Context& context);
void shake128_init(Sha3Context& context);
void shake256_init(Sha3Context& context);
void sha3_update(Sha3Context& context, const void* data, size_t size);

// sha3_squeeze gives the next bytes of the output, of any length; nothing may be absorbed after the first.
void sha3_squeeze(Sha3Context& context, uint8_t* out, size_t size);

// sha3_final writes the digest (of SHAKE twice its strength: 32 or 64 bytes) and wipes the context.
void sha3_final(Sha3Context& context, uint8_t* digest);

// sha3_kernel names the code that runs now: "avx512", "bmi" or "portable".
const char* sha3_kernel();

} // namespace zul
