#include "rng/generator.h"

#include <algorithm>
#include <cstring>

#include "frame/wipe.h"
#include "hash/sha1.h"
#include "platform/platform.h"
#include "rng/accumulator.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {

static constexpr size_t kContinuousBlock = sizeof RngState::continuousBlock;

void generator_nonce(const NonceParts& parts, uint8_t nonce[kSha1Size]) {
    Wiped<Sha1Context> context;
    sha1_init(*context);
    sha1_update(*context, &parts.time, sizeof parts.time);
    sha1_update(*context, &parts.process, sizeof parts.process);
    sha1_update(*context, &parts.thread, sizeof parts.thread);
    sha1_update(*context, parts.user, strlen(parts.user));
    sha1_update(*context, parts.computer, strlen(parts.computer));
    sha1_update(*context, parts.random, sizeof parts.random);
    sha1_final(*context, nonce);
}

[[nodiscard]] static int make_nonce(uint8_t nonce[kSha1Size]) {
    Wiped<NonceParts> parts;
    parts->time = platform::system_time();
    parts->process = platform::process_id();
    parts->thread = platform::thread_id();
    if (platform::user_name(parts->user, sizeof parts->user) == 0)
        parts->user[0] = '\0';
    if (platform::computer_name(parts->computer, sizeof parts->computer) == 0)
        parts->computer[0] = '\0';
    if (!platform::system_random(parts->random, sizeof parts->random))
        return PRNG_ERR_CATASTROPHIC;
    generator_nonce(*parts, nonce);
    return 0;
}

[[nodiscard]] static int instantiate(RngState& state) {
    if (const int error = rng_health_check(); error != 0)
        return error;

    // A forked child has its parent's pools. The nonce makes the two generators differ.
    const uint32_t generation = platform::fork_generation();
    Secret<EntropyPools::kMaxYield> entropy;
    const size_t size = accumulator_gather(state, true, entropy.data());
    if (size == 0)
        return PRNG_ERR_CATASTROPHIC;
    Secret<kSha1Size> nonce;
    if (const int error = make_nonce(nonce.data()); error != 0)
        return error;
    const uint32_t personalisation = next_personalisation();

    drbg_instantiate(state.drbg, {entropy.data(), size}, {nonce.data(), nonce.size()},
                     {reinterpret_cast<const uint8_t*>(&personalisation), sizeof personalisation});
    drbg_generate(state.drbg, state.continuousBlock, kContinuousBlock, {});
    state.forkGeneration = generation;
    return 0;
}

int generator_make_ready(RngState& state) {
    if (state.drbg.reseedCounter != 0) {
        if (state.forkGeneration == platform::fork_generation())
            return 0;
        wipe_bytes(&state.drbg, sizeof state.drbg);
        wipe_bytes(state.continuousBlock, kContinuousBlock);
    }
    return instantiate(state);
}

int generator_reseed(RngState& state, Bytes pooled, const AdditionalInput& additional) {
    Secret<EntropyPools::kMaxYield + kSystemRandom> entropy;
    uint8_t* const fresh = std::copy(pooled.begin(), pooled.end(), entropy.data());
    if (!platform::system_random(fresh, kSystemRandom))
        return PRNG_ERR_CATASTROPHIC;
    drbg_reseed(state.drbg, {entropy.data(), pooled.size() + kSystemRandom}, additional);
    return 0;
}

int generator_produce(RngState& state, uint8_t* out, size_t size, const AdditionalInput& additional) {
    drbg_generate(state.drbg, out, size, additional);

    Secret<kContinuousBlock> block;
    if (size > 0)
        memcpy(block.data(), out, std::min(size, kContinuousBlock));
    if (memcmp(block.data(), state.continuousBlock, kContinuousBlock) == 0) {
        wipe_bytes(out, size);
        return PRNG_ERR_CATASTROPHIC;
    }
    drbg_generate(state.drbg, state.continuousBlock, kContinuousBlock, {});

    if (!additional.empty())
        drbg_update(state.drbg, additional);
    return 0;
}

} // namespace zul
