#include "frame/wipe.h"

#include <cstring>

namespace zul {

void wipe_bytes(void* buffer, size_t length) {
    if (buffer == nullptr)
        return;
    constexpr size_t kStep = size_t{256} * 1024; // short steps backwards mislead the processor's prefetching
    auto* bytes = static_cast<uint8_t*>(buffer);
    while (length > 0) {
        const size_t step = length < kStep ? length : kStep;
        length -= step;
        std::memset(bytes + length, 0, step);
        // The barrier makes the stores observable, step by step, so that none may be dropped or merged.
        __asm__ volatile("" : : "r"(bytes) : "memory");
    }
}

__attribute__((noinline)) void wipe_dead_stack(size_t depth) {
    wipe_bytes(__builtin_alloca(depth), depth);
}

} // namespace zul
