#include "pbe/scrypt_block_mix.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {

// Compilers that know AVX-512 do not make one rotation of two shifts in vectors.
struct ScryptRotate512 {
    template<int n>
    static ZUL_ALWAYS_INLINE ScryptWords left(ScryptWords x) {
        __asm__("vprold %1, %0, %0" : "+v"(x) : "n"(n));
        return x;
    }
};

ZUL_TARGET_AVX2 void scrypt_block_mix_avx2(uint32_t* out, const uint32_t* in, const uint32_t* other,
                                           size_t r) {
    scrypt_mix_blocks<ScryptRotate>(out, in, other, r);
}

ZUL_TARGET_AVX512 void scrypt_block_mix_avx512(uint32_t* out, const uint32_t* in, const uint32_t* other,
                                               size_t r) {
    scrypt_mix_blocks<ScryptRotate512>(out, in, other, r);
}

} // namespace zul

#endif
