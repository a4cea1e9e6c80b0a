#pragma once
#include <cstddef>
#include <cstdint>

// BLAKE2b without a key (RFC 7693), which Argon2 is built on.
namespace zul {

constexpr size_t kBlake2bSize = 64; // of the longest digest

struct Blake2bContext {
    static constexpr size_t kBlockSize = 128;

    uint64_t state[8];
    uint64_t length; // in bytes, without those that wait in block
    uint8_t block[kBlockSize];
    size_t filled;
    size_t digestSize;
};

// blake2b_init begins a digest of 1 to 64 bytes.
void blake2b_init(Blake2bContext& context, size_t digestSize);
void blake2b_update(Blake2bContext& context, const void* data, size_t size);
// blake2b_final writes the digest and wipes the context.
void blake2b_final(Blake2bContext& context, uint8_t* digest);

} // namespace zul
