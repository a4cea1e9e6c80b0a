#include "rng/fips140.h"

#include <algorithm>

namespace zul {

static bool is_between(int value, const Fips140Bounds& bounds) {
    return bounds.low < value && value < bounds.high;
}

bool Fips140Result::monobit_passed() const {
    return is_between(ones, kFips140Ones);
}

bool Fips140Result::poker_passed() const {
    return is_between(poker, kFips140Poker);
}

bool Fips140Result::runs_passed() const {
    for (const auto& ofOneBit : runs)
        for (int i = 0; i < kFips140RunLengths; i++)
            if (ofOneBit[i] < kFips140Runs[i].low || ofOneBit[i] > kFips140Runs[i].high)
                return false;
    return true;
}

bool Fips140Result::long_runs_passed() const {
    return longest[0] < kFips140LongRun && longest[1] < kFips140LongRun;
}

// poker_statistic is X = 16/5000 * sum of f(i)^2 - 5000 over the counts of the 5,000 nibbles, in 1/10,000. A
// sample of one repeated nibble has the largest, 75,000.
static int poker_statistic(std::span<const uint8_t, kFips140Bytes> sample) {
    int counts[16] = {};
    for (const uint8_t byte : sample) {
        counts[byte >> 4]++;
        counts[byte & 15]++;
    }
    int64_t squares = 0;
    for (const int count : counts)
        squares += int64_t{count} * count;
    return static_cast<int>(32 * squares - 50000000);
}

Fips140Result fips140_test(std::span<const uint8_t, kFips140Bytes> sample) {
    Fips140Result result{};
    result.poker = poker_statistic(sample);

    unsigned current = sample[0] >> 7;
    int length = 0;
    const auto end_run = [&] {
        result.runs[current][std::min(length, kFips140RunLengths) - 1]++;
        result.longest[current] = std::max(result.longest[current], length);
    };
    for (const uint8_t byte : sample) {
        for (int shift = 7; shift >= 0; shift--) {
            const unsigned bit = (byte >> shift) & 1u;
            result.ones += static_cast<int>(bit);
            if (bit != current) {
                end_run();
                current = bit;
                length = 0;
            }
            length++;
        }
    }
    end_run();
    return result;
}

} // namespace zul
