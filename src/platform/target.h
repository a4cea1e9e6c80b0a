#pragma once
// The target attributes of the x86-64 kernels. A function marked with one of these may only be reached
// through a test of the matching feature set (platform/cpu.h); no file is compiled with special flags.

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define ZUL_X86_64 1
#else
#define ZUL_X86_64 0
#endif

#if ZUL_X86_64
#define ZUL_TARGET_SSSE3 __attribute__((target("ssse3,sse4.1")))
#define ZUL_TARGET_AESNI __attribute__((target("ssse3,sse4.1,aes")))
#define ZUL_TARGET_SHANI __attribute__((target("ssse3,sse4.1,sha")))
#define ZUL_TARGET_AVX2 __attribute__((target("avx2,bmi,bmi2")))
#define ZUL_TARGET_VAES256 __attribute__((target("avx2,aes,vaes")))
#define ZUL_TARGET_AVX512 __attribute__((target("avx2,bmi,bmi2,avx512f,avx512bw,avx512dq,avx512vl")))
#define ZUL_TARGET_VAES512 __attribute__((target("avx2,aes,vaes,avx512f,avx512bw,avx512dq,avx512vl")))
#define ZUL_TARGET_VBMI __attribute__((target("avx2,bmi,bmi2,avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi")))
#define ZUL_TARGET_IFMA __attribute__((target("avx2,bmi,bmi2,avx512f,avx512bw,avx512dq,avx512vl,avx512ifma")))
#endif

// Assembly reaches constants of hidden symbols directly, without a register for their address.
#ifdef __ELF__
#define ZUL_HIDDEN __attribute__((visibility("hidden")))
#else
#define ZUL_HIDDEN
#endif

#define ZUL_ALWAYS_INLINE inline __attribute__((always_inline))
