#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/rng_state.h"
#include "rng/pools.h"

// The library's random bytes: one HMAC_DRBG per thread, reseeded from the process's entropy pools.
namespace zul {

constexpr size_t kMaxRandomRequest = 65536;
constexpr size_t kSystemRandom = 32; // bytes of the operating system's generator for each seed

// rng_bytes fills out with len random bytes of the calling thread's generator. addl is additional input, of
// which the first 20 bytes count; it may be null. 0, PRNG_ERR_TOOBIG (above 65,536 bytes) or
// PRNG_ERR_CATASTROPHIC (a failed self-test or continuous test, or a system without random bytes); after an
// error out holds nothing random.
[[nodiscard]] int rng_bytes(uint8_t* out, size_t len, const uint8_t* addl = nullptr, size_t addlLen = 0);

// rng_number chooses from lower to upper, both included; lower if upper is not greater, or if the range needs
// all 32 bits. A generator that fails ends the process (rng_fail).
int rng_number(int lower, int upper);

// rng_draw is rng_bytes for callers who cannot go on without them: a failure ends the process (rng_fail).
void rng_draw(uint8_t* out, size_t len, const uint8_t* addl = nullptr, size_t addlLen = 0);
int rng_fill(uint8_t* out, size_t len, const uint8_t* addl, size_t addlLen); // likewise, as an MtFill: 0

// rng_fail reports a generator that failed and ends the process with status 1.
[[noreturn]] void rng_fail();

// rng_add_event adds an event, cut to 32 bytes, to the process's entropy pools.
void rng_add_event(EntropySource source, const void* data, size_t size);

// rng_health_check runs the generator's known-answer test: 0 or PRNG_ERR_CATASTROPHIC.
[[nodiscard]] int rng_health_check();

// rng_release_thread enters the thread's staged readings into the pools and wipes its state.
void rng_release_thread(RngState& state);

// rng_reset_pools wipes the process's pools, for unloading; a later event starts new ones.
void rng_reset_pools();

} // namespace zul
