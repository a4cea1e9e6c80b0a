#include "ui/entropy_prompt.h"

#include "frame/wipe.h"
#include "rng/rng.h"
#include "ui/entropy_collector.h"
#include "ui/prompt_claim.h"
#include "zulcore.h"

namespace zul {

static constexpr unsigned kEvents = 64;
static constexpr unsigned kMoreEvents = 128;
static constexpr uint32_t kDelay = 500; // milliseconds, for the user to release the keys that led here

int rng_bytes_with_prompt(uint8_t* out, size_t size, const char* prompt, int options) {
    platform::thread_sleep(kDelay); // before the claim, since a thread can be cancelled here
    const PromptClaim claim;
    if (!claim.held())
        return PRNG_ERR_NOTAVAIL;
    EntropyCollector events((options & ZUL_RNG_MORE_EVENTS) != 0 ? kMoreEvents : kEvents);
    if (platform::entropy_dialog(prompt != nullptr ? prompt : "", events) != platform::PromptEnd::accepted)
        return PRNG_ERR_NOTAVAIL;

    // The pools keep most events for later reseeds, so the digest of all events is an additional input.
    Secret<kSha1Size> all;
    events.digest(all.data());
    rng_draw(out, size, all.data(), all.size());
    return 0;
}

} // namespace zul
