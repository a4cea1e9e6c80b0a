#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "hash/sha1.h"

namespace zul {

// The source of an event. Its number is part of the event.
enum class EntropySource : uint8_t {
    time = 0,
    ticks = 1,
    memory = 2,
    disk = 3,
    power = 4,
    activity = 5,
    system = 6, // the operating system's own generator
    user = 7,   // keys and mouse moves of a user who was asked for them
};

// EntropyPools collects events in 32 running SHA-1 digests and hands them out on Fortuna's schedule: pool i
// at every 2^i-th reseed, so that some pools gather long enough to recover from a state that became known.
// Not safe for threads: the accumulator guards the process's pools with a lock.
class EntropyPools {
  public:
    static constexpr unsigned kPools = 32;
    static constexpr size_t kMaxYield = kPools * kSha1Size;
    static constexpr size_t kMaxEvent = 32;

    EntropyPools() = default; // usable only after reset
    void reset();

    // add feeds an event, cut to 32 bytes, to its source's next pool.
    void add(EntropySource source, const void* data, size_t size);

    // add_readings adds the values of each series, count of them, as events of 4 bytes. Every pool takes in
    // the same as by a call of add for each value, series after series, but is visited once.
    struct Series {
        EntropySource source;
        const uint32_t* values;
    };
    void add_readings(std::span<const Series> readings, size_t count);

    // gather drains the pools whose turn it is, if a reseed is due at the time now or forced. It returns the
    // number of bytes written, a multiple of 20, or 0 if no reseed is due.
    size_t gather(bool force, uint64_t now, uint8_t out[kMaxYield]);

  private:
    static constexpr unsigned kSources = 8;
    static constexpr size_t kBatch = 16; // readings of a series for one pool at a time

    struct Events {
        size_t size = 0;
        uint8_t bytes[kSources * kBatch * (2 + sizeof(uint32_t)) + 2]; // the last 2 are room for a wide store
        void add(EntropySource source, uint32_t value);
    };

    void add_batch(std::span<const Series> readings, size_t start, size_t end);
    void collect(Events& events, std::span<const Series> readings, size_t start, size_t end,
                 unsigned pool) const;

    Sha1Context pools_[kPools] = {};
    uint64_t poolZeroBytes_ = 0; // taken in since pool 0 was last drained
    uint64_t lastReseed_ = 0;
    uint32_t reseedCount_ = 0;
    uint8_t nextPool_[kSources] = {};
};

// elapsed_milliseconds is the difference of two system times. Times whose high halves (about 7 minutes)
// differ count as 10 seconds apart, negative if the clock went back.
int64_t elapsed_milliseconds(uint64_t from, uint64_t to);

// reseed_is_due is the rule for a reseed that is not forced. A clock that was set back counts as one that
// moved forward, so that it cannot delay reseeds.
bool reseed_is_due(uint32_t reseedCount, uint64_t poolZeroBytes, uint64_t lastReseed, uint64_t now);

} // namespace zul
