#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/rng_state.h"
#include "rng/hmac_drbg.h"

namespace zul {

// generator_make_ready instantiates a generator that is not yet instantiated, or that a fork has copied from
// the parent process: 0 or -PRNG_ERR_CATASTROPHIC.
int generator_make_ready(RngState& state);

// generator_produce fills out from a generator that is ready and puts it to the continuous test: 0 or
// -PRNG_ERR_CATASTROPHIC, which leaves out wiped.
int generator_produce(RngState& state, uint8_t* out, size_t size, const AdditionalInput& additional);

} // namespace zul
