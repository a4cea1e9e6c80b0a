#include <random>

#include "hash/digest.h"
#include "platform/cpu.h"
#include "rng/pools.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

constexpr uint64_t kMillisecond = 10000;

// Pool contents as plain bytes, digested only when a pool is drained.
struct ExpectedPools {
    std::string pools[EntropyPools::kPools];
    unsigned next[7] = {};

    void add(EntropySource source, const std::string& data) {
        unsigned& pool = next[static_cast<size_t>(source)];
        pools[pool] += static_cast<char>(source);
        pools[pool] += static_cast<char>(data.size());
        pools[pool] += data;
        pool = (pool + 1) % EntropyPools::kPools;
    }
    std::string drain(unsigned pool) {
        uint8_t digest[kSha1Size];
        const std::string content = std::exchange(pools[pool], "");
        EXPECT_EQ(
            hash_bytes(digest, kSha1Size, content.data(), static_cast<int64_t>(content.size()), kDigestSha1),
            int{kSha1Size});
        return test::to_hex(digest, sizeof digest);
    }
};

std::string gather(EntropyPools& pools) {
    uint8_t out[EntropyPools::kMaxYield];
    const size_t size = pools.gather(true, 0, out);
    return test::to_hex(out, size);
}

} // namespace

TEST(EntropyPools, DrainPoolIAtEveryReseedDivisibleByTwoToTheI) {
    EntropyPools pools;
    pools.reset();
    ExpectedPools expected;
    std::minstd_rand random(1);
    for (unsigned reseed = 1; reseed <= 72; reseed++) {
        for (unsigned n = 0; n < 50; n++) {
            const auto source = static_cast<EntropySource>(random() % 7);
            const std::string data(random() % 50, static_cast<char>(n)); // longer ones are cut
            pools.add(source, data.data(), data.size());
            expected.add(source, data.substr(0, 32));
        }
        std::string yield;
        for (unsigned i = 0; i < 32 && reseed % (1ull << i) == 0; i++)
            yield += expected.drain(i);
        ASSERT_EQ(gather(pools), yield) << "reseed " << reseed;
    }
}

TEST(EntropyPools, TakeReadingsInBatchesAsOneByOne) {
    std::vector<uint32_t> readings(800);
    for (size_t i = 0; i < readings.size(); i++)
        readings[i] = static_cast<uint32_t>(i * 2654435761u);
    for (const uint32_t hidden : {0u, uint32_t{kCpuShani}}) { // with both ways to feed two pools
        cpu_mask_features(hidden);
        EntropyPools batches, single;
        batches.reset();
        single.reset();
        size_t start = 0;
        for (const size_t count : {1u, 0u, 31u, 32u, 33u, 256u, 256u, 77u}) {
            const EntropyPools::Series all[] = {{EntropySource::time, &readings[start]},
                                                {EntropySource::memory, &readings[start / 2]}};
            batches.add_readings(all, count);
            for (const EntropyPools::Series& series : all)
                for (size_t i = 0; i < count; i++)
                    single.add(series.source, &series.values[i], 4);
            // The sources do not go in step.
            batches.add(EntropySource::time, "abc", 3);
            single.add(EntropySource::time, "abc", 3);
            start += count;
        }
        const EntropyPools::Series longer[] = {{EntropySource::ticks, readings.data()}};
        batches.add_readings(longer, 257);
        for (size_t i = 0; i < 257; i++)
            single.add(EntropySource::ticks, &readings[i], 4);
        for (int reseed = 1; reseed <= 64; reseed++)
            ASSERT_EQ(gather(batches), gather(single)) << reseed;
    }
    cpu_mask_features(0);
}

TEST(EntropyPools, ElapsedTime) {
    constexpr uint64_t kHigh = 1ull << 32;
    const struct {
        uint64_t from, to;
        int64_t milliseconds;
    } cases[] = {
        {0, 0, 0},
        {5 * kHigh, 5 * kHigh + 101 * kMillisecond - 1, 100},
        {5 * kHigh + 300 * kMillisecond, 5 * kHigh, -300},
        {kHigh, 2 * kHigh - 1, 429496}, // the longest within one high part
        {kHigh - 1, kHigh, 10000},      // the shortest across two
        {0, UINT64_MAX, 10000},
        {UINT64_MAX, 0, -10000},
    };
    for (const auto& c : cases)
        EXPECT_EQ(elapsed_milliseconds(c.from, c.to), c.milliseconds) << c.from << " " << c.to;
}

TEST(EntropyPools, ReseedIsDue) {
    constexpr uint64_t kNow = 1000ull << 32 | 1u << 31;
    const struct {
        uint32_t count;
        uint64_t poolZeroBytes, last;
        bool due;
    } cases[] = {
        {0, 0, kNow, true}, // the first one
        {1, 32, kNow - 101 * kMillisecond, true},
        {1, 31, kNow - 101 * kMillisecond, false},
        {1, 32, kNow - 100 * kMillisecond, false},
        {1, 32, kNow + 50 * kMillisecond, false}, // a clock slightly adjusted
        {1, 32, kNow + 101 * kMillisecond, true}, // a clock set back
        {UINT32_MAX, 31, 0, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(reseed_is_due(c.count, c.poolZeroBytes, c.last, kNow), c.due)
            << c.count << " " << c.poolZeroBytes << " " << c.last;
}

TEST(EntropyPools, CountWhatPoolZeroTakesIn) {
    EntropyPools pools;
    pools.reset();
    uint8_t out[EntropyPools::kMaxYield];
    constexpr uint64_t kLater = 200 * kMillisecond;
    EXPECT_EQ(pools.gather(false, 0, out), kSha1Size); // the first is always due
    const uint32_t values[6 * 32] = {};
    const EntropyPools::Series readings[] = {{EntropySource::time, values}};
    pools.add_readings(readings, 5 * 32); // 30 bytes for each pool
    EXPECT_EQ(pools.gather(false, kLater, out), 0u);
    pools.add(EntropySource::ticks, values, 4); // the source's first event: pool 0
    EXPECT_EQ(pools.gather(false, kLater, out), 2 * kSha1Size);
    EXPECT_EQ(pools.gather(false, 2 * kLater, out), 0u); // drained: the count starts again
}
