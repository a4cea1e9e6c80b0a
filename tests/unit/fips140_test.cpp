#include <array>

#include "rng/fips140.h"
#include "rng/fips140_report.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

using Sample = std::array<uint8_t, kFips140Bytes>;

Sample repeated(const std::vector<uint8_t>& pattern) {
    Sample sample;
    for (size_t i = 0; i < sample.size(); i++)
        sample[i] = pattern[i % pattern.size()];
    return sample;
}

// passing has all counts at the middle of their intervals, for the bounds to be approached one by one.
Fips140Result passing() {
    return {10000, 150000, {{2500, 1250, 625, 312, 156, 156}, {2500, 1250, 625, 312, 156, 156}}, {14, 14}};
}

} // namespace

TEST(Fips140, CountsHandMadeSamples) {
    const struct {
        std::vector<uint8_t> pattern;
        int ones, poker;
        std::array<int, 6> gaps, blocks;
        int longestGap, longestBlock;
    } cases[] = {
        // Poker: 16/5000 * sum of squares - 5000: 75,000 of one nibble, 35,000 of two in equal parts.
        {{0x00}, 0, 750000000, {0, 0, 0, 0, 0, 1}, {}, 20000, 0},
        {{0xFF}, 20000, 750000000, {}, {0, 0, 0, 0, 0, 1}, 0, 20000},
        {{0x55}, 10000, 750000000, {10000}, {10000}, 1, 1},
        {{0xF0}, 10000, 350000000, {0, 0, 0, 2500}, {0, 0, 0, 2500}, 4, 4},
        // 1 00 111 0000 11111 000000 111 00000000
        {{0x9C, 0x3E, 0x07, 0x00},
         7500,
         125000000,
         {0, 625, 0, 625, 0, 1250},
         {625, 0, 1250, 0, 625, 0},
         8,
         5},
        {{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}, 9996, 128, {}, {}, 0, 0},
    };
    for (const auto& c : cases) {
        const Fips140Result result = fips140_test(repeated(c.pattern));
        SCOPED_TRACE(test::to_hex(c.pattern));
        EXPECT_EQ(result.ones, c.ones);
        EXPECT_EQ(result.poker, c.poker);
        if (c.longestGap == 0 && c.longestBlock == 0)
            continue;
        EXPECT_EQ(std::to_array(result.runs[0]), c.gaps);
        EXPECT_EQ(std::to_array(result.runs[1]), c.blocks);
        EXPECT_EQ(result.longest[0], c.longestGap);
        EXPECT_EQ(result.longest[1], c.longestBlock);
        EXPECT_FALSE(result.passed());
    }
}

TEST(Fips140, Bounds) {
    EXPECT_TRUE(passing().passed());
    const struct {
        const char* name;
        int Fips140Result::*count;
        int value;
        bool passes;
    } cases[] = {
        {"ones", &Fips140Result::ones, 9725, false},    {"ones", &Fips140Result::ones, 9726, true},
        {"ones", &Fips140Result::ones, 10274, true},    {"ones", &Fips140Result::ones, 10275, false},
        {"poker", &Fips140Result::poker, 21600, false}, {"poker", &Fips140Result::poker, 21632, true},
        {"poker", &Fips140Result::poker, 461696, true}, {"poker", &Fips140Result::poker, 461728, false},
    };
    for (const auto& c : cases) {
        Fips140Result result = passing();
        result.*c.count = c.value;
        EXPECT_EQ(result.passed(), c.passes) << c.name << " " << c.value;
    }

    const int published[6][2] = {{2315, 2685}, {1114, 1386}, {527, 723}, {240, 384}, {103, 209}, {103, 209}};
    for (int bit = 0; bit < 2; bit++) {
        for (int i = 0; i < 6; i++) {
            Fips140Result result = passing();
            int& count = result.runs[bit][i];
            const auto passes = [&](int value) { return count = value, result.passed(); };
            EXPECT_FALSE(passes(published[i][0] - 1)) << bit << " " << i;
            EXPECT_TRUE(passes(published[i][0])) << bit << " " << i;
            EXPECT_TRUE(passes(published[i][1])) << bit << " " << i;
            EXPECT_FALSE(passes(published[i][1] + 1)) << bit << " " << i;
        }
        Fips140Result result = passing();
        result.longest[bit] = 25;
        EXPECT_TRUE(result.passed());
        result.longest[bit] = 26;
        EXPECT_FALSE(result.passed());
    }
}

TEST(Fips140, ReportOfAFailingSample) {
    const test::TempDir dir;
    const std::string path = dir.file("report.txt");
    const Sample sample = repeated({0xF0});
    ASSERT_EQ(fips140_write_report(path.c_str(), fips140_test(sample), sample), 0);
    const std::string expected =
        "FIPS140-2 test for 20000 bits (2500 bytes)\n"
        "1. Monobits test n1 = 10000 (9725 - 10275)\n"
        "Passed\n"
        "2. Poker test X = 35000.00 (2.16 - 46.17)\n"
        "FAILED!\n"
        "3. Runs test:\n"
        "Length:             1          2          3          4          5         6+\n"
        "Interval:   2315-2685  1114-1386    527-723    240-384    103-209    103-209\n"
        "Blocks:             0          0          0       2500          0          0\n"
        "Gaps:               0          0          0       2500          0          0\n"
        "FAILED!\n"
        "4. Long runs test: Gmax = 4 Bmax = 4 (26)\n"
        "Passed\n"
        "Test sample was:-\n";
    const std::string report = test::read_text(path);
    EXPECT_EQ(report.substr(0, expected.size()), expected);
    std::string lines;
    for (size_t i = 1; i <= sample.size(); i++)
        lines += i % 32 == 0 || i == sample.size() ? "f0\n" : "f0";
    EXPECT_TRUE(report.ends_with("was:-\n" + lines));

    EXPECT_EQ(fips140_write_report(dir.path().c_str(), fips140_test(sample), sample), PRNG_ERR_FILE_CREATE);
}
