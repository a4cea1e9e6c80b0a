#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/target.h"

// Where the blocks of Argon2 lie, and which one is referenced (RFC 9106, section 3.4).
namespace zul {

struct alignas(64) Argon2Block {
    uint64_t words[128];
};

constexpr uint32_t kArgon2Slices = 4;

// A segment to be filled: one slice of one lane in one pass.
struct Argon2Segment {
    Argon2Block* memory; // lanes of laneLength blocks each
    uint32_t laneLength, segmentLength, lanes;
    uint32_t pass, slice, lane;

    // reference gives the block that random chooses for the block at index of this segment.
    const Argon2Block* reference(uint32_t index, uint64_t random) const {
        const bool isFirstSlice = pass == 0 && slice == 0;
        const auto from = isFirstSlice ? lane : static_cast<uint32_t>((random >> 32) % lanes);
        uint32_t area = pass == 0 ? slice * segmentLength : laneLength - segmentLength;
        if (from == lane)
            area += index - 1;
        else if (index == 0)
            area--;
        const uint64_t x = static_cast<uint32_t>(random);
        const auto back = static_cast<uint32_t>(area * (x * x >> 32) >> 32);
        const uint32_t oldest = pass == 0 ? 0 : (slice + 1) % kArgon2Slices * segmentLength;
        return &memory[size_t{from} * laneLength + (oldest + area - 1 - back) % laneLength];
    }
};

ZUL_ALWAYS_INLINE void argon2_prefetch(const Argon2Block* block) {
    for (size_t i = 0; i < sizeof block->words; i += 64)
        __builtin_prefetch(reinterpret_cast<const uint8_t*>(block) + i);
}

} // namespace zul
