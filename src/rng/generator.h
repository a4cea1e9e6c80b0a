#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/rng_state.h"
#include "rng/hmac_drbg.h"
#include "rng/rng.h"

namespace zul {

// NonceParts hold what makes generators of different processes, threads and moments differ, and random bytes
// of the operating system, without which they would depend on clocks alone. An unknown name is empty.
struct NonceParts {
    uint64_t time;
    uint32_t process, thread;
    char user[512], computer[512];
    uint8_t random[kSystemRandom];
};
void generator_nonce(const NonceParts& parts, uint8_t nonce[kSha1Size]);

// generator_make_ready instantiates a generator that is not yet instantiated, or that a fork has copied from
// the parent process: 0 or PRNG_ERR_CATASTROPHIC, also if the system gives no random bytes.
[[nodiscard]] int generator_make_ready(RngState& state);

// generator_reseed takes in what the pools have yielded (at most EntropyPools::kMaxYield bytes) and fresh
// random bytes of the system: 0 or PRNG_ERR_CATASTROPHIC, if it gives none.
[[nodiscard]] int generator_reseed(RngState& state, Bytes pooled, const AdditionalInput& additional);

// generator_produce fills out from a generator that is ready and puts it to the continuous test: 0 or
// PRNG_ERR_CATASTROPHIC, which leaves out wiped.
[[nodiscard]] int generator_produce(RngState& state, uint8_t* out, size_t size,
                                    const AdditionalInput& additional);

} // namespace zul
