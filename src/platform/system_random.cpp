#include <atomic>

#include "platform/platform.h"
#include "platform/random_hooks.h"

namespace zul::platform {

static std::atomic<decltype(RandomHooks::refuse)> refuseHook{nullptr};
static std::atomic<decltype(RandomHooks::drawn)> drawnHook{nullptr};

bool system_random(void* out, size_t size) {
    const auto refuse = refuseHook.load(std::memory_order_relaxed);
    for (const RandomSource source : {RandomSource::systemCall, RandomSource::device}) {
        if ((refuse != nullptr && refuse(source)) || !random_from(source, out, size))
            continue;
        if (const auto drawn = drawnHook.load(std::memory_order_relaxed); drawn != nullptr)
            drawn(static_cast<uint8_t*>(out), size);
        return true;
    }
    return false;
}

void random_set_hooks(RandomHooks hooks) {
    refuseHook.store(hooks.refuse, std::memory_order_relaxed);
    drawnHook.store(hooks.drawn, std::memory_order_relaxed);
}

} // namespace zul::platform
