#pragma once
#include <cstddef>

// A seed file holds 64 bytes of generator output and carries entropy from one run of a program to the next.
namespace zul {

constexpr size_t kSeedSize = 64;

// seed_file_update takes the file's bytes into the calling thread's generator and writes fresh ones over
// them, with the file locked: 0, or negated PRNG_ERR_FILE_OPEN, _LOCK, _READ (fewer than 64 bytes: the file
// stays as it is), _WRITE or PRNG_ERR_CATASTROPHIC.
int seed_file_update(const char* path);

} // namespace zul
