#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// The cost of scrypt: n times r blocks of 128 bytes are filled and read, p times over.
struct ScryptCost {
    uint64_t n, r, p;
};

// scrypt_check gives 0, or OUT_OF_RANGE_ERROR with a text for a cost that RFC 7914 does not allow or that
// takes more than 4 GiB of memory (1 GiB for the part that grows with p) or 64 GiB of filling.
[[nodiscard]] int scrypt_check(const ScryptCost& cost);

// scrypt_check_file is scrypt_check for a cost that stands in a file, which a stranger may have chosen: it
// allows 1 GiB of memory and 4 GiB of filling.
[[nodiscard]] int scrypt_check_file(const ScryptCost& cost);

// scrypt (RFC 7914) writes outLen bytes: 0, the code of scrypt_check, or MEMORY_ERROR with a text.
[[nodiscard]] int scrypt(uint8_t* out, size_t outLen, const void* password, size_t passwordLen,
                         const uint8_t* salt, size_t saltLen, const ScryptCost& cost);

} // namespace zul
