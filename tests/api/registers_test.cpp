#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <iterator>

#include "zulcore.h"

// The sanitizer's runtime uses the registers between a call and the look at them.
#if defined(__x86_64__) && !defined(__SANITIZE_THREAD__)

namespace {

uint8_t registers[32][64], out[4096], data[4096];
const bool hasAvx = __builtin_cpu_supports("avx"), hasAvx512 = __builtin_cpu_supports("avx512vl");

// look copies the registers as the call before has left them.
#define ZUL_LOW "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15"
#define ZUL_COPY(list, move)                                                                                 \
    __asm__ volatile(".irp i," list "\n\t" move "\\i, 64*\\i(%0)\n\t.endr" : : "r"(registers) : "memory")
inline __attribute__((always_inline)) void look() {
    if (hasAvx512)
        ZUL_COPY(ZUL_LOW ",16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31", "vmovdqu64 %%zmm");
    else if (hasAvx)
        ZUL_COPY(ZUL_LOW, "vmovdqu %%ymm");
    else
        ZUL_COPY(ZUL_LOW, "movdqu %%xmm");
}

// What Windows has a function preserve is its caller's.
bool is_callers(int index, int at) {
#ifdef _WIN32
    return index >= 6 && index <= 15 && at < 16;
#else
    static_cast<void>(index + at);
    return false;
#endif
}

template<class Call>
__attribute__((noinline)) int look_after(Call call) {
    const int result = call();
    look();
    return result;
}

} // namespace

TEST(Registers, HoldNothingOfACallThatHasReturned) {
    std::fill(std::begin(data), std::end(data), uint8_t{0x5A});
    const auto expect_cleared = [](const char* name, auto call) {
        EXPECT_GT(look_after(call), -1) << name;
        for (int i = 0; i < 32; i++)
            for (int at = 0; at < 64; at++)
                EXPECT_TRUE(registers[i][at] == 0 || is_callers(i, at)) << name << " " << i << " " << at;
    };
    expect_cleared("AES", [] { return CIPHER_Bytes(1, out, data, 4096, data, data, "aes128ctr", 0); });
    expect_cleared("TDEA", [] { return TDEA_BytesMode(out, data, 4096, data, 0, "CBC", data); });
    expect_cleared("HMAC", [] { return HMAC_Bytes(out, 64, data, 4096, data, 100, ZUL_HASH_SHA512); });
    expect_cleared("wrap", [] { return CIPHER_KeyWrap(out, 40, data, 32, data, 16, ZUL_CIPHER_AES128); });
    expect_cleared("pad", [] { return PAD_BytesBlock(out, 4096, data, 1000, 16, 0); });
    expect_cleared("random", [] { return RNG_Bytes(out, 4096, nullptr, 0); });
}

#endif
