#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// rng_bytes_with_prompt asks the user to type and move the mouse, then fills out with size random bytes (at
// most 65,536). options: 0 or ZUL_RNG_MORE_EVENTS. 0, or PRNG_ERR_NOTAVAIL if nobody can be asked. A
// generator that fails ends the process (rng_fail).
[[nodiscard]] int rng_bytes_with_prompt(uint8_t* out, size_t size, const char* prompt, int options);

} // namespace zul
