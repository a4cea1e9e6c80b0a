#include "frame/caller_context.h"

namespace zul {

uint64_t context_check(ContextKind kind, const void* state, size_t size) {
    constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15; // odd, so that no single change is lost
    const auto* bytes = static_cast<const uint8_t*>(state);
    uint64_t check = static_cast<uint64_t>(kind) ^ size;
    for (; size > 0;) {
        uint64_t word = 0;
        const size_t part = size < sizeof word ? size : sizeof word;
        memcpy(&word, bytes, part);
        check = (check ^ word) * kMultiplier;
        check ^= check >> 29;
        bytes += part;
        size -= part;
    }
    return check;
}

} // namespace zul
