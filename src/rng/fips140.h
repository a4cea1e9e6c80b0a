#pragma once
#include <cstdint>
#include <span>

// The four statistical tests of FIPS 140-2 (4.9.1, with change notice 1) on a sample of 20,000 bits.
namespace zul {

constexpr size_t kFips140Bytes = 2500;
constexpr int kFips140Bits = 20000;

struct Fips140Bounds {
    int low, high;
};
constexpr Fips140Bounds kFips140Ones = {9725, 10275};      // both excluded
constexpr Fips140Bounds kFips140Poker = {21600, 461700};   // in 1/10,000, both excluded
constexpr int kFips140RunLengths = 6;                      // 1 to 5, and 6 and more
constexpr Fips140Bounds kFips140Runs[kFips140RunLengths] = // both included
    {{2315, 2685}, {1114, 1386}, {527, 723}, {240, 384}, {103, 209}, {103, 209}};
constexpr int kFips140LongRun = 26; // too long

struct Fips140Result {
    int ones;                        // n1
    int poker;                       // X, in 1/10,000
    int runs[2][kFips140RunLengths]; // of zeros (gaps) and of ones (blocks), by length
    int longest[2];                  // the longest gap and the longest block

    bool monobit_passed() const;
    bool poker_passed() const;
    bool runs_passed() const;
    bool long_runs_passed() const;
    bool passed() const { return monobit_passed() && poker_passed() && runs_passed() && long_runs_passed(); }
};

// fips140_test counts; bits are taken from the highest of each byte on.
Fips140Result fips140_test(std::span<const uint8_t, kFips140Bytes> sample);

} // namespace zul
