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

static __attribute__((noinline)) void wipe_deep_stack(size_t depth) {
    wipe_bytes(__builtin_alloca(depth), depth);
}

// Frames have gaps beside the registers that they save. This one saves none, and with the return address its
// array is a whole number of vectors.
static __attribute__((noinline, no_stack_protector)) void wipe_near_stack() {
    uint64_t words[31];
    wipe_fixed<sizeof words>(words);
}

// The second call is a jump, so it covers the frame of this function too.
__attribute__((noinline)) void wipe_dead_stack(size_t depth) {
    wipe_deep_stack(depth);
    wipe_near_stack();
}

} // namespace zul
