#include "rng/pools.h"

#include <algorithm>
#include <cstring>

#include "platform/cpu.h"

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
    sha1_update(pools_[pool], event, 2 + size);
    if (pool == 0)
        poolZeroBytes_ += 2 + size;
}

// An event of 6 bytes in one store of 8: the next event, or nothing, overwrites the last two.
void EntropyPools::Events::add(EntropySource source, uint32_t value) {
    const uint64_t event =
        static_cast<uint64_t>(source) | sizeof value << 8 | static_cast<uint64_t>(value) << 16;
    store_word<std::endian::little>(bytes + size, event);
    size += 2 + sizeof value;
}

// collect gives what a pool is to take in of the values from start to end.
void EntropyPools::collect(Events& events, std::span<const Series> readings, size_t start, size_t end,
                           unsigned pool) const {
    for (const Series& series : readings) {
        const unsigned next = nextPool_[static_cast<size_t>(series.source)];
        for (size_t i = start + (pool + kPools - next) % kPools; i < end; i += kPools)
            events.add(series.source, series.values[i]);
    }
}

void EntropyPools::add_batch(std::span<const Series> readings, size_t start, size_t end) {
    for (unsigned pool = 0; pool < kPools; pool += 2) {
        Events even, odd;
        collect(even, readings, start, end, pool);
        collect(odd, readings, start, end, pool + 1);
        if (even.size == odd.size) {
            sha1_update_two(pools_[pool], even.bytes, pools_[pool + 1], odd.bytes, even.size);
        } else {
            sha1_update(pools_[pool], even.bytes, even.size);
            sha1_update(pools_[pool + 1], odd.bytes, odd.size);
        }
        if (pool == 0)
            poolZeroBytes_ += even.size;
    }
    for (const Series& series : readings) {
        uint8_t& next = nextPool_[static_cast<size_t>(series.source)];
        next = static_cast<uint8_t>((next + end - start) % kPools);
    }
}

void EntropyPools::add_readings(std::span<const Series> readings, size_t count) {
    // The pools may be in the memory of another processor, from where they come faster together.
    if (count >= kPools && cpu_has(kCpuShani))
        for (size_t at = 0; at < sizeof pools_; at += 64)
            cpu_fetch_for_writing(reinterpret_cast<const uint8_t*>(pools_) + at);
    for (size_t start = 0; start < count; start += kBatch * kPools)
        add_batch(readings, start, std::min(count, start + kBatch * kPools));
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
