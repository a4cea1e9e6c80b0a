#include "rng/accumulator.h"

#include <atomic>
#include <cstring>

#include "frame/call_frame.h"
#include "frame/thread_record.h"
#include "frame/wipe.h"
#include "platform/cpu.h"
#include "platform/platform.h"
#include "rng/rng.h"

namespace zul {

namespace {

// Used under the process lock only. Nothing slow is called while it is held.
constinit struct Accumulator {
    EntropyPools pools;
    bool ready;
    bool personalised;
    uint32_t personalisation;
    uint32_t personalisedGeneration; // each forked process starts its own count
} accumulator{};

// When the pools were last drained, for those who do not hold the lock; 0: never. It changes ten times a
// second at most, so it has a cache line of its own.
alignas(64) std::atomic<uint64_t> lastGather{0};

EntropyPools& pools() {
    if (!accumulator.ready) {
        accumulator.pools.reset();
        accumulator.ready = true;
    }
    return accumulator.pools;
}

void enter_staged(RngState& state) {
    const uint32_t calls = state.stagedCalls;
    const EntropyPools::Series readings[] = {{EntropySource::time, state.stagedTime},
                                             {EntropySource::ticks, state.stagedTicks},
                                             {EntropySource::memory, state.stagedMemory}};
    pools().add_readings(readings, calls);
    state.stagedCalls = 0;
}

// condense is FNV-1a over a system structure, finished so that every byte reaches every bit.
uint32_t condense(const uint8_t* reading, size_t size) {
    uint32_t sum = 0x811C9DC5;
    for (size_t i = 0; i < size; i++)
        sum = (sum ^ reading[i]) * 0x01000193;
    sum = (sum ^ (sum >> 16)) * 0x85EBCA6B;
    sum = (sum ^ (sum >> 13)) * 0xC2B2AE35;
    return sum ^ (sum >> 16);
}

uint32_t condensed_memory() {
    uint8_t reading[platform::kReadingSize];
    const size_t size = platform::memory_status(reading);
    return size > 0 ? condense(reading, size) : 0;
}

void stage_readings(RngState& state) {
    if (state.stagedCalls >= RngState::kStagedCalls) {
        const platform::LockGuard guard;
        enter_staged(state);
    }
    const uint32_t ticks = platform::tick_count();
    // The memory status can be a system call, which costs far more than the clocks. It changes little within
    // one tick. The system time changes, but the cycle counter, which costs less, carries it on.
    if (ticks != state.readTicks) {
        state.memory = condensed_memory();
        state.systemTime = platform::system_time();
        state.time = static_cast<uint32_t>(state.systemTime - cpu_cycles());
        state.readTicks = ticks;
    }
    const uint32_t call = state.stagedCalls++;
    state.stagedTime[call] = state.time + static_cast<uint32_t>(cpu_cycles());
    state.stagedTicks[call] = ticks;
    state.stagedMemory[call] = state.memory;
}

struct Event {
    EntropySource source;
    uint8_t data[EntropyPools::kMaxEvent];
    size_t size;
};

struct EventList {
    Event events[6];
    size_t count;

    void add(EntropySource source, const void* data, size_t size) {
        Event& event = events[count++];
        event.source = source;
        memcpy(event.data, data, size);
        event.size = size;
    }
};

void digest_piece(void* context, const void* data, size_t size) {
    sha1_update(*static_cast<Sha1Context*>(context), data, size);
}

// read_slowly takes the readings that need files and system calls. They cost as much as a signature, and
// change little for a while.
void read_slowly(SlowReadings& slow) {
    constexpr uint32_t kWhile = 64; // milliseconds
    const uint32_t ticks = platform::tick_count();
    if (slow.taken && ticks - slow.ticks < kWhile)
        return;
    slow.taken = true;
    slow.ticks = ticks;
    slow.hasDisk = platform::free_clusters(&slow.disk);

    uint8_t reading[platform::kReadingSize];
    const size_t size = platform::power_status(reading);
    slow.hasPower = size > 0;
    if (slow.hasPower)
        slow.power = condense(reading, size);

    Sha1Context activity;
    sha1_init(activity);
    slow.hasActivity = platform::activity_report(digest_piece, &activity);
    sha1_final(activity, slow.activity);
}

// read_fully takes the readings that only a fuller stir can afford.
void read_fully(SlowReadings& slow, EventList& list) {
    read_slowly(slow);
    if (slow.hasDisk)
        list.add(EntropySource::disk, &slow.disk, sizeof slow.disk);
    if (slow.hasPower)
        list.add(EntropySource::power, &slow.power, sizeof slow.power);
    if (slow.hasActivity)
        list.add(EntropySource::activity, slow.activity, sizeof slow.activity);

    Secret<kSystemRandom> random;
    if (platform::system_random(random.data(), random.size()))
        list.add(EntropySource::system, random.data(), random.size());

    // The time that these readings took varies, so it is an event too.
    uint32_t value = static_cast<uint32_t>(platform::system_time());
    list.add(EntropySource::time, &value, sizeof value);
    value = platform::tick_count();
    list.add(EntropySource::ticks, &value, sizeof value);
}

} // namespace

void rng_stir(int option) {
    const OwnGenerator own;
    accumulator_stir(*own, option);
}

void accumulator_stir(RngState& state, int option) {
    if (option != 0 && option != 1)
        return;
    stage_readings(state);
    if (option == 0)
        return;

    Wiped<EventList> list;
    read_fully(state.slow, *list);
    const platform::LockGuard guard;
    enter_staged(state);
    for (size_t i = 0; i < list->count; i++)
        pools().add(list->events[i].source, list->events[i].data, list->events[i].size);
}

void rng_add_event(EntropySource source, const void* data, size_t size) {
    const platform::LockGuard guard;
    pools().add(source, data, size);
}

bool accumulator_may_yield(const RngState& state) {
    // The thread has read the time in the present tick, which is shorter than this. Whether a reseed is due
    // at both ends of the span tells of all between.
    constexpr uint64_t kTick = 200000;
    const auto is_due = [last = lastGather.load(std::memory_order_relaxed)](uint64_t now) {
        return last == 0 || reseed_is_due(1, UINT64_MAX, last, now);
    };
    return is_due(state.systemTime) || is_due(state.systemTime + kTick);
}

size_t accumulator_gather(RngState& state, bool force, uint8_t out[EntropyPools::kMaxYield]) {
    const uint64_t now = platform::system_time();
    const platform::LockGuard guard;
    enter_staged(state);
    const size_t size = pools().gather(force, now, out);
    if (size > 0)
        lastGather.store(now, std::memory_order_relaxed);
    return size;
}

uint32_t next_personalisation() {
    const uint64_t now = platform::system_time();
    const uint32_t first =
        static_cast<uint32_t>(now >> 32) ^ static_cast<uint32_t>(now) ^ (platform::process_id() << 16);
    const uint32_t generation = platform::fork_generation();

    const platform::LockGuard guard;
    if (!accumulator.personalised || accumulator.personalisedGeneration != generation) {
        accumulator.personalised = true;
        accumulator.personalisedGeneration = generation;
        accumulator.personalisation = first;
    } else {
        accumulator.personalisation++;
    }
    return accumulator.personalisation;
}

void rng_release_thread(RngState& state) {
    if (state.stagedCalls > 0) {
        const platform::LockGuard guard;
        enter_staged(state);
    }
    wipe_bytes(&state, sizeof state);
}

void rng_reset_pools() {
    const platform::LockGuard guard;
    wipe_bytes(&accumulator, sizeof accumulator);
    lastGather.store(0, std::memory_order_relaxed);
}

} // namespace zul
