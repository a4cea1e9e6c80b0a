#include "machine.h"

#if defined(__x86_64__)
#include <cpuid.h>
#endif

namespace tool {

namespace {

struct Features {
    bool ssse3 = false, aes = false, sha = false, avx2 = false, avx512 = false, vaes = false, adx = false,
         ifma = false;
};

Features read_features() {
    Features has;
#if defined(__x86_64__)
    __builtin_cpu_init();
    has.ssse3 = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("sse4.1");
    has.aes = __builtin_cpu_supports("aes");
    has.avx2 =
        __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
    has.avx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                 __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    has.ifma = has.avx512 && __builtin_cpu_supports("avx512ifma");
    // Not every compiler has names for these. That the system saves the registers of VAES, AVX2 says.
    unsigned eax, ebx, ecx, edx;
    if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx)) {
        has.sha = (ebx & bit_SHA) != 0;
        has.adx = (ebx & bit_ADX) != 0;
        has.vaes = (ecx & bit_VAES) != 0;
    }
#endif
    return has;
}

} // namespace

std::vector<Named> library_kernels() {
    const Features has = read_features();
    const std::string vectors = has.avx512 && has.avx2 ? "AVX-512" : has.avx2 ? "AVX2" : "portable";
    const std::string aes = !(has.aes && has.ssse3)   ? "portable"
                            : !(has.vaes && has.avx2) ? "AES-NI"
                            : has.avx512              ? "VAES, AVX-512"
                                                      : "VAES, AVX2";
    const std::string curves = has.avx2 && has.adx ? "BMI2, ADX" : "portable";
    return {
        {"SHA-1, SHA-256", has.sha && has.ssse3 ? "SHA extensions"
                           : has.avx2           ? "AVX2"
                                                : "portable"},
        {"SHA-512", vectors},
        {"SHA-3, hex, base64", has.avx2 ? "AVX2" : "portable"},
        {"AES", aes},
        {"Triple DES", vectors},
        {"ChaCha20", has.avx2 || has.avx512 ? vectors
                     : has.ssse3            ? "SSSE3"
                                            : "portable"},
        {"Poly1305", has.ifma ? "AVX-512 IFMA" : "portable"},
        {"RSA", has.ifma ? "AVX-512 IFMA" : curves},
        {"P-256, P-384", curves},
        {"X25519", has.ifma ? "AVX-512 IFMA" : "portable"},
        {"scrypt, Argon2id", vectors},
    };
}

} // namespace tool
