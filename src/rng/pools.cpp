#include "rng/pools.h"

#include <algorithm>
#include <cstring>

namespace zul {

static constexpr uint64_t kMinPoolZeroBytes = 32;
static constexpr int64_t kMinReseedInterval = 100; // milliseconds

int64_t elapsed_milliseconds(uint64_t from, uint64_t to) {
    constexpr int64_t kUnitsPerMillisecond = 10000;
    if (from >> 32 != to >> 32)
        return to > from ? 10000 : -10000;
    const auto low = [](uint64_t time) { return static_cast<int64_t>(time & 0xFFFFFFFF); };
    return (low(to) - low(from)) / kUnitsPerMillisecond;
}

bool reseed_is_due(uint32_t reseedCount, uint64_t poolZeroBytes, uint64_t lastReseed, uint64_t now) {
    if (reseedCount == 0)
        return true;
    if (poolZeroBytes < kMinPoolZeroBytes)
        return false;
    const int64_t elapsed = elapsed_milliseconds(lastReseed, now);
    return elapsed > kMinReseedInterval || elapsed < -kMinReseedInterval;
}

void EntropyPools::reset() {
    for (Sha1Context& pool : pools_)
        sha1_init(pool);
    poolZeroBytes_ = 0;
    lastReseed_ = 0;
    reseedCount_ = 0;
    memset(nextPool_, 0, sizeof nextPool_);
}

void EntropyPools::feed(unsigned pool, const uint8_t* events, size_t size) {
    sha1_update(pools_[pool], events, size);
    if (pool == 0)
        poolZeroBytes_ += size;
}

void EntropyPools::add(EntropySource source, const void* data, size_t size) {
    if (size > kMaxEvent)
        size = kMaxEvent;
    const auto number = static_cast<uint8_t>(source);
    uint8_t event[2 + kMaxEvent];
    event[0] = number;
    event[1] = static_cast<uint8_t>(size);
    if (size > 0)
        memcpy(event + 2, data, size);

    const unsigned pool = nextPool_[number];
    nextPool_[number] = static_cast<uint8_t>((pool + 1) % kPools);
    feed(pool, event, 2 + size);
}

void EntropyPools::add_readings(EntropySource source, const uint32_t* values, size_t count) {
    constexpr size_t kEvent = 2 + sizeof *values;
    constexpr size_t kBatch = 8; // events for one pool at a time
    const auto number = static_cast<uint8_t>(source);
    const unsigned first = nextPool_[number];

    for (size_t start = 0; start < count; start += kBatch * kPools) {
        const size_t end = std::min(count, start + kBatch * kPools);
        for (size_t i = start; i < std::min(end, start + kPools); i++) {
            uint8_t events[kBatch * kEvent];
            size_t size = 0;
            for (size_t j = i; j < end; j += kPools) {
                events[size] = number;
                events[size + 1] = sizeof *values;
                memcpy(events + size + 2, &values[j], sizeof *values);
                size += kEvent;
            }
            feed(static_cast<unsigned>((first + i) % kPools), events, size);
        }
    }
    nextPool_[number] = static_cast<uint8_t>((first + count) % kPools);
}

size_t EntropyPools::gather(bool force, uint64_t now, uint8_t out[kMaxYield]) {
    if (!force && !reseed_is_due(reseedCount_, poolZeroBytes_, lastReseed_, now))
        return 0;
    reseedCount_++;
    lastReseed_ = now;
    poolZeroBytes_ = 0;

    size_t written = 0;
    for (unsigned i = 0; i < kPools && reseedCount_ % (uint32_t{1} << i) == 0; i++) {
        sha1_final(pools_[i], out + written);
        sha1_init(pools_[i]);
        written += kSha1Size;
    }
    return written;
}

} // namespace zul
