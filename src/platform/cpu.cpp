#include "platform/cpu.h"

#include "platform/platform.h"
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
    if (ecx & bit_PCLMUL)
        found |= kCpuClmul;
    const bool popcnt = (ecx & bit_POPCNT) != 0;

    bool ymm = false, zmm = false;
    if (ecx & bit_OSXSAVE) {
        const uint64_t xcr0 = read_xcr0();
        ymm = (xcr0 & 0x06) == 0x06 && (ecx & bit_AVX);
        zmm = ymm && (xcr0 & 0xE6) == 0xE6;
    }
    if (ymm)
        found |= kCpuAvx;
    if (!__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx))
        return found;
    if (ebx & bit_SHA)
        found |= kCpuShani;
    if (ebx & bit_ADX)
        found |= kCpuAdx;
    const unsigned avx2 = bit_AVX2 | bit_BMI | bit_BMI2;
    if (ymm && popcnt && (ebx & avx2) == avx2)
        found |= kCpuAvx2;
    if (ymm && (ecx & bit_VAES))
        found |= kCpuVaes;
    if (ymm && (ecx & bit_VPCLMULQDQ))
        found |= kCpuVclmul;
    const unsigned avx512 = bit_AVX512F | bit_AVX512BW | bit_AVX512DQ | bit_AVX512VL;
    if (zmm && (found & kCpuAvx2) && (ebx & avx512) == avx512) {
        found |= kCpuAvx512;
        if (ebx & bit_AVX512IFMA)
            found |= kCpuAvx512Ifma;
        if (ecx & bit_AVX512VBMI)
            found |= kCpuAvx512Vbmi;
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

#if ZUL_X86_64
// The Windows convention preserves the low halves of the registers 6 to 15: what its callers find there is
// their own.
#ifdef __MINGW32__
#define ZUL_CLEAR_LOW ".irp i,0,1,2,3,4,5\n\tpxor %xmm\\i, %xmm\\i\n\t.endr\n\t"
#define ZUL_CLEAR_LOW_AND_HIGH ZUL_CLEAR_LOW "vzeroupper"
#define ZUL_CLEAR_GENERAL ".irp i,ecx,edx,r8d,r9d,r10d,r11d\n\txorl %\\i, %\\i\n\t.endr"
#else
#define ZUL_CLEAR_LOW ".irp i,0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n\tpxor %xmm\\i, %xmm\\i\n\t.endr"
#define ZUL_CLEAR_LOW_AND_HIGH "vzeroall"
#define ZUL_CLEAR_GENERAL ".irp i,ecx,edx,esi,edi,r8d,r9d,r10d,r11d\n\txorl %\\i, %\\i\n\t.endr"
#endif

// No clobbers are declared: these are the registers that a caller of this function expects to be lost.
void cpu_clear_registers() {
    if (cpu_has(kCpuAvx))
        __asm__ volatile(ZUL_CLEAR_LOW_AND_HIGH);
    else
        __asm__ volatile(ZUL_CLEAR_LOW);
    if (cpu_has(kCpuAvx512)) // a write to the low quarter of a register zeroes the rest
        __asm__ volatile(".irp i,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31\n\t"
                         "vpxord %xmm\\i, %xmm\\i, %xmm\\i\n\t"
                         ".endr\n\t"
                         ".irp i,0,1,2,3,4,5,6,7\n\t"
                         "kxorq %k\\i, %k\\i, %k\\i\n\t"
                         ".endr");
    __asm__ volatile(ZUL_CLEAR_GENERAL);
}
#else
uint64_t cpu_cycles() {
    return platform::precise_ticks();
}
void cpu_clear_registers() {}
#endif

} // namespace zul
