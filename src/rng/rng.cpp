#include "rng/rng.h"

#include <bit>

#include "frame/fatal_report.h"
#include "frame/wipe.h"
#include "platform/platform.h"
#include "rng/accumulator.h"
#include "rng/generator.h"
#include "zulcore.h"

namespace zul {

static constexpr uint32_t kReseedInterval = 0x40000000; // requests

// reseed reseeds the generator if that is due or forced.
[[nodiscard]] static int reseed(RngState& state, bool force, const AdditionalInput& additional) {
    Secret<EntropyPools::kMaxYield> pooled;
    const size_t size = accumulator_gather(state, force, pooled.data());
    return size > 0 ? generator_reseed(state, {pooled.data(), size}, additional) : 0;
}

int rng_bytes(uint8_t* out, size_t len, const uint8_t* addl, size_t addlLen) {
    if (len > kMaxRandomRequest)
        return PRNG_ERR_TOOBIG;
    const OwnGenerator own;
    RngState& state = *own;
    accumulator_stir(state, 0);
    if (const int error = generator_make_ready(state); error != 0)
        return error;

    const AdditionalInput additional(addl, addlLen);
    const bool force = state.drbg.reseedCounter >= kReseedInterval;
    if (force || accumulator_may_yield(state))
        if (const int error = reseed(state, force, additional); error != 0)
            return error;
    if (const int error = generator_produce(state, out, len, additional); error != 0)
        return error;
    accumulator_stir(state, 0);
    return 0;
}

void rng_draw(uint8_t* out, size_t len, const uint8_t* addl, size_t addlLen) {
    if (rng_bytes(out, len, addl, addlLen) != 0)
        rng_fail();
}

int rng_fill(uint8_t* out, size_t len, const uint8_t* addl, size_t addlLen) {
    rng_draw(out, len, addl, addlLen);
    return 0;
}

int rng_number(int lower, int upper) {
    if (upper <= lower)
        return lower;
    // The full range wraps to 0. A range of 32 bits has the mask 0.
    const uint32_t range = static_cast<uint32_t>(upper) - static_cast<uint32_t>(lower) + 1;
    const uint32_t mask = (uint32_t{1} << std::bit_width(range) % 32) - 1;
    if (mask == 0)
        return lower;

    uint32_t value = 0;
    for (int draws = 0; draws < 25; draws++) {
        uint8_t bytes[4];
        rng_draw(bytes, sizeof bytes);
        value =
            (bytes[0] | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24) & mask;
        wipe_bytes(bytes, sizeof bytes);
        if (value < range)
            break;
    }
    return static_cast<int>(static_cast<uint32_t>(lower) + value % range);
}

void rng_fail() {
    fatal_report(static_cast<int>(platform::ReportType::error), "RNG failed continuous testing",
                 kEventRandomGenerator);
    platform::end_process(1);
}

} // namespace zul
