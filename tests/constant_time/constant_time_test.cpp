#include <cstdio>

#include "constant_time/constant_time.h"
#include "frame/constant_time.h"
#include "platform/cpu.h"

using namespace zul;

void zul::ct_mark_public(const void* value, size_t size) {
    VALGRIND_MAKE_MEM_DEFINED(value, size);
}

namespace constant_time {

volatile unsigned sink;

static int unexpected = 0;

void expect(bool isRight) {
    unexpected += isRight ? 0 : 1;
}

namespace {

const unsigned kTable[256] = {1, 2, 3};

void leaking_branch() {
    Hidden<1> secret;
    if ((secret.bytes[0] & 1) != 0)
        sink = sink + 1;
}

// A comparison that ends at the first difference.
void leaking_comparison() {
    Hidden<16> a, b(2);
    for (size_t i = 0; i < 16 && a.bytes[i] == b.bytes[i]; i++)
        sink = sink + 1;
}

// A padding that is looked at from its end, as long as it is right.
void leaking_padding() {
    Hidden<16> block;
    unsigned count = 0;
    while (count < block.bytes[15] && block.bytes[15 - count] == block.bytes[15])
        count++;
    sink = count;
}

void leaking_address() {
    Hidden<1> secret;
    sink = kTable[secret.bytes[0]];
}

constexpr Case kLeaks[] = {
    {"a branch on a secret is noticed", leaking_branch, true},
    {"a comparison that stops is noticed", leaking_comparison, true},
    {"a padding that is counted is noticed", leaking_padding, true},
    {"an address from a secret is noticed", leaking_address, true},
};

// run_all gives the number of cases that went wrong.
int run_all(const char* kernels) {
    int wrong = 0;
    for (const std::span<const Case> cases :
         {std::span<const Case>(kLeaks), curve_cases(), data_cases(), rsa_cases(), password_cases()}) {
        for (const Case& test : cases) {
            const auto before = VALGRIND_COUNT_ERRORS;
            unexpected = 0;
            test.run();
            const auto found = VALGRIND_COUNT_ERRORS - before;
            const bool isRight = (found > 0) == test.leaks && unexpected == 0;
            printf("%s: %s, %s: %u reports\n", isRight ? "good" : "WRONG", kernels, test.name,
                   static_cast<unsigned>(found));
            wrong += isRight ? 0 : 1;
        }
    }
    return wrong;
}

} // namespace

} // namespace constant_time

int main() {
    if (RUNNING_ON_VALGRIND == 0) {
        std::puts("This program says nothing outside valgrind.");
        return 1;
    }
    // It computes neither with the newest instructions nor tells that it knows ADX.
    cpu_mask_features(kCpuAvx512 | kCpuAvx512Ifma | kCpuVaes | kCpuShani);
    if (!cpu_has(kCpuAesni | kCpuSsse3 | kCpuAvx2))
        std::puts("Some kernels need a newer processor and are not reached.");
    cpu_detail::features |= kCpuAdx;
    int wrong = constant_time::run_all("kernels");
    cpu_mask_features(~kCpuDetected);
    wrong += constant_time::run_all("portable");
    return wrong == 0 ? 0 : 1;
}
