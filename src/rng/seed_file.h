#pragma once
#include <cstddef>
#include <cstdint>

// A seed file holds 64 bytes of generator output and carries entropy from one run of a program to the next.
namespace zul {

constexpr size_t kSeedSize = 64;

// seed_file_update takes the file's bytes into the calling thread's generator and writes fresh ones over
// them, with the file locked: 0, PRNG_ERR_FILE_OPEN, _LOCK, _READ (fewer than 64 bytes: the file
// stays as it is), _WRITE or PRNG_ERR_CATASTROPHIC.
[[nodiscard]] int seed_file_update(const char* path);

// seed_file_make writes a new seed file, of bytes generated with additional input (of which 20 bytes count);
// an existing one is overwritten. Only the file's owner may read it afterwards. 0, PRNG_ERR_FILE_CREATE,
// _LOCK, _WRITE (the file is then removed) or PRNG_ERR_CATASTROPHIC.
[[nodiscard]] int seed_file_make(const char* path, const uint8_t* additional, size_t size);

} // namespace zul
