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

// make_nonce digests what differs between processes, threads and moments, and the operating system's own
// randomness, so that the generator does not depend on clocks alone.
static void make_nonce(uint8_t nonce[kSha1Size]) {
    Wiped<Sha1Context> context;
    sha1_init(*context);

    const uint64_t now = platform::system_time();
    const uint32_t ids[] = {platform::process_id(), platform::thread_id()};
    sha1_update(*context, &now, sizeof now);
    sha1_update(*context, ids, sizeof ids);

    char name[512];
    sha1_update(*context, name, platform::user_name(name, sizeof name));
    sha1_update(*context, name, platform::computer_name(name, sizeof name));

    Secret<32> random;
    if (platform::system_random(random.data(), random.size()))
        sha1_update(*context, random.data(), random.size());
    sha1_final(*context, nonce);
}

static int instantiate(RngState& state) {
    if (const int result = rng_health_check(); result != 0)
        return result;

    // The pools of a forked child are its parent's; what sets the two apart is the nonce.
    const uint32_t generation = platform::fork_generation();
    Secret<EntropyPools::kMaxYield> entropy;
    const size_t size = accumulator_gather(state, true, entropy.data());
    if (size == 0)
        return -PRNG_ERR_CATASTROPHIC;
    Secret<kSha1Size> nonce;
    make_nonce(nonce.data());
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

int generator_produce(RngState& state, uint8_t* out, size_t size, const AdditionalInput& additional) {
    drbg_generate(state.drbg, out, size, additional);

    Secret<kContinuousBlock> block;
    if (size > 0)
        memcpy(block.data(), out, std::min(size, kContinuousBlock));
    if (memcmp(block.data(), state.continuousBlock, kContinuousBlock) == 0) {
        wipe_bytes(out, size);
        return -PRNG_ERR_CATASTROPHIC;
    }
    drbg_generate(state.drbg, state.continuousBlock, kContinuousBlock, {});

    if (!additional.empty())
        drbg_update(state.drbg, additional);
    return 0;
}

} // namespace zul
