#include <array>
#include <climits>
#include <set>

#include "support/unit_test.h"
#include "zulcore.h"

TEST(RngNumber, StaysWithinItsBoundsAndReachesThem) {
    const struct {
        int lower, upper;
        unsigned values; // 0: too many to be seen
    } cases[] = {
        {5, 5, 1},
        {7, 14, 8}, // a power of two
        {INT_MAX - 2, INT_MAX, 3},
        {INT_MIN, INT_MIN + 2, 3},
        {-1, 0x3FFFFFFF, 0},
        {INT_MIN + 1, -2, 0}, // needs 31 bits, the most that are served
        // Without a range, or with one of 32 bits, the lower bound is the answer.
        {INT_MAX, INT_MIN, 1},
        {INT_MIN, INT_MAX, 1},
        {0, INT_MAX, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.lower << " " << c.upper);
        std::set<int> seen;
        for (int i = 0; i < 400; i++)
            seen.insert(RNG_Number(c.lower, c.upper));
        EXPECT_GE(seen.size(), c.values == 0 ? 390 : c.values);
        EXPECT_LE(seen.size(), c.values == 0 ? 400 : c.values);
        EXPECT_GE(*seen.begin(), c.lower);
        EXPECT_LE(*seen.rbegin(), std::max(c.lower, c.upper));
    }
}

TEST(RngNumber, IsUniform) {
    constexpr int kDraws = 6000;
    std::array<int, 6> counts{};
    for (int i = 0; i < kDraws; i++)
        counts[static_cast<size_t>(RNG_Number(1, 6) - 1)]++;
    double chiSquare = 0;
    for (const int count : counts)
        chiSquare += (count - kDraws / 6.0) * (count - kDraws / 6.0) / (kDraws / 6.0);
    EXPECT_LT(chiSquare, 40); // 5 degrees of freedom: passed by chance but once in 5 million
}
