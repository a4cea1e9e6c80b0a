#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

struct Argon2Cost {
    uint64_t memoryKiB, passes, lanes;
};

struct Argon2Bytes {
    const void* data = nullptr;
    size_t size = 0;
};

struct Argon2Input {
    Argon2Bytes password, salt, secret, associated;
};

// argon2id (RFC 9106, version 0x13) writes outLen bytes: 0, or with a text OUT_OF_RANGE_ERROR for fewer than
// 4 bytes of output, 8 of salt, 1 pass, 1 lane or 8 KiB of memory for each lane, more than 255 lanes, 4 GiB
// of memory, or 64 GiB filled in all passes; MEMORY_ERROR. The lanes are filled one after the other.
[[nodiscard]] int argon2id(uint8_t* out, size_t outLen, const Argon2Input& input, const Argon2Cost& cost);

} // namespace zul
