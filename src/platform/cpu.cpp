#include "platform/cpu.h"

#include "platform/target.h"

#if ZUL_X86_64
#include <cpuid.h>
#endif

namespace zul {

namespace cpu_detail {

std::atomic<uint32_t> features{0};

#if ZUL_X86_64
static uint64_t read_xcr0() {
    uint32_t low, high;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return (static_cast<uint64_t>(high) << 32) | low;
}

static uint32_t read_features() {
    uint32_t found = kCpuDetected;
    unsigned eax, ebx, ecx, edx;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &edx))
        return found;
    if ((ecx & bit_SSSE3) && (ecx & bit_SSE4_1))
        found |= kCpuSsse3;
    if (ecx & bit_AES)
        found |= kCpuAesni;

    bool ymm = false, zmm = false;
    if (ecx & bit_OSXSAVE) {
        const uint64_t xcr0 = read_xcr0();
        ymm = (xcr0 & 0x06) == 0x06 && (ecx & bit_AVX);
        zmm = ymm && (xcr0 & 0xE6) == 0xE6;
    }
    if (!__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx))
        return found;
    if (ebx & bit_SHA)
        found |= kCpuShani;
    if (ebx & bit_ADX)
        found |= kCpuAdx;
    if (ymm && (ebx & bit_AVX2) && (ebx & bit_BMI) && (ebx & bit_BMI2))
        found |= kCpuAvx2;
    if (ymm && (ecx & bit_VAES))
        found |= kCpuVaes;
    const unsigned avx512 = bit_AVX512F | bit_AVX512BW | bit_AVX512DQ | bit_AVX512VL;
    if (zmm && (ebx & avx512) == avx512) {
        found |= kCpuAvx512;
        if (ebx & bit_AVX512IFMA)
            found |= kCpuAvx512Ifma;
    }
    return found;
}
#else
static uint32_t read_features() {
    return kCpuDetected;
}
#endif

uint32_t detect() {
    const uint32_t found = read_features();
    features.store(found, std::memory_order_relaxed);
    return found;
}

} // namespace cpu_detail

void cpu_mask_features(uint32_t hidden) {
    const uint32_t found = cpu_detail::detect();
    cpu_detail::features.store((found & ~hidden) | kCpuDetected, std::memory_order_relaxed);
}

} // namespace zul
