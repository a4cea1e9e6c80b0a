#pragma once
#include <cstddef>

namespace zul {

// rng_bytes belongs to the random generator, a floor above this one, which defines it: 0 or an error code.
[[nodiscard]] int rng_bytes(unsigned char* out, size_t len, const unsigned char* addl, size_t addlLen);

} // namespace zul
