#pragma once
#include <atomic>
#include <cstdint>

#include "platform/target.h"

namespace zul {

// Sets of instruction-set extensions that kernels ask for. A vector set counts as present only when the
// operating system saves its registers (XGETBV).
enum CpuFeature : uint32_t {
    kCpuSsse3 = 1u << 0, // SSSE3 and SSE4.1
    kCpuAesni = 1u << 1,
    kCpuShani = 1u << 2,
    kCpuAvx2 = 1u << 3,   // AVX2, BMI1, BMI2 and POPCNT
    kCpuAvx512 = 1u << 4, // AVX-512 F, BW, DQ and VL, with all of kCpuAvx2
    kCpuVaes = 1u << 5,
    kCpuAdx = 1u << 6,
    kCpuAvx512Ifma = 1u << 7,
    kCpuAvx = 1u << 8, // the registers alone: system libraries use them without AVX2 too
    kCpuAvx512Vbmi = 1u << 9,
    kCpuClmul = 1u << 10,  // PCLMULQDQ, which virtual machines may lack beside AES-NI
    kCpuVclmul = 1u << 11, // VPCLMULQDQ
    kCpuDetected = 1u << 31,
};

namespace cpu_detail {
extern std::atomic<uint32_t> features; // 0 until the first question
uint32_t detect();
} // namespace cpu_detail

// cpu_has tells whether every feature in the set is present (and not masked).
inline bool cpu_has(uint32_t set) {
    uint32_t have = cpu_detail::features.load(std::memory_order_relaxed);
    if (have == 0)
        have = cpu_detail::detect();
    return (have & set) == set;
}

// cpu_cycles reads the processor's cycle counter, which is the cheapest clock; elsewhere the finest one.
#if ZUL_X86_64
inline uint64_t cpu_cycles() {
    return __builtin_ia32_rdtsc();
}
#else
uint64_t cpu_cycles();
#endif

// cpu_fetch_for_writing asks for a cache line that this processor is going to write, so that it comes alone
// and ahead. All processors with kCpuShani know the instruction; not all older ones do.
#if ZUL_X86_64
inline void cpu_fetch_for_writing(const void* line) {
    __asm__ volatile("prefetchw %0" : : "m"(*static_cast<const char*>(line)));
}
#else
inline void cpu_fetch_for_writing(const void*) {}
#endif

// cpu_mask_features hides the given features from cpu_has until it is called again; 0 shows all that the
// processor has. For tests, so that every kernel can be reached on one machine.
void cpu_mask_features(uint32_t hidden);

// cpu_clear_registers zeroes every register that a function need not preserve for its caller, but that of the
// result. Kernels, and the system's functions that copy memory, leave keys and plain text there.
void cpu_clear_registers();

} // namespace zul
