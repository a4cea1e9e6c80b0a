#include "frame/caller_context.h"

namespace zul {

// Four sums side by side: one alone would take as long as a short digest, several times in its course.
uint64_t context_check(ContextKind kind, const void* state, size_t size) {
    constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15; // odd, so that no single change is lost
    constexpr size_t kSums = 4, kStep = kSums * sizeof(uint64_t);
    const auto add = [](uint64_t& sum, uint64_t word) {
        sum = (sum ^ word) * kMultiplier;
        sum ^= sum >> 29;
    };
    const auto* bytes = static_cast<const uint8_t*>(state);
    const auto next = [&bytes] {
        uint64_t word;
        memcpy(&word, bytes, sizeof word);
        bytes += sizeof word;
        return word;
    };
    uint64_t sums[kSums] = {static_cast<uint64_t>(kind) ^ size};
    for (; size >= kStep; size -= kStep)
        for (uint64_t& sum : sums)
            add(sum, next());
    for (size_t i = 0; i < size / sizeof(uint64_t); i++)
        add(sums[i], next());
    for (size_t i = 1; i < kSums; i++)
        add(sums[0], sums[i]);
    return sums[0];
}

} // namespace zul
