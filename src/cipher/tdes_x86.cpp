// Bit-sliced Triple DES in vector registers.
#include "platform/target.h"

#if ZUL_X86_64

#include <immintrin.h>

#include "cipher/tdes_bitslice.h"
#include "cipher/tdes_kernels.h"

namespace zul {

namespace {

namespace sse2 {

typedef uint64_t V __attribute__((vector_size(16), may_alias));

ZUL_ALWAYS_INLINE V key_bit(const uint64_t* masks, unsigned offset) {
    return *reinterpret_cast<const V*>(masks + offset);
}

#define ZUL_DES_TARGET
#define ZUL_DES_SBOXES "cipher/des_sboxes.inc"
#include "cipher/tdes_bitslice.inc"
#undef ZUL_DES_TARGET

} // namespace sse2

namespace avx2 {

typedef uint64_t V __attribute__((vector_size(32), may_alias));

#define ZUL_DES_TARGET ZUL_TARGET_AVX2

ZUL_ALWAYS_INLINE ZUL_DES_TARGET V key_bit(const uint64_t* masks, unsigned offset) {
    return V{} + masks[offset];
}

#include "cipher/tdes_bitslice.inc"
#undef ZUL_DES_TARGET
#undef ZUL_DES_SBOXES

} // namespace avx2

namespace avx512 {

typedef uint64_t V __attribute__((vector_size(64), may_alias));

#define ZUL_DES_TARGET ZUL_TARGET_AVX512
#define ZUL_DES_SBOXES "cipher/des_sboxes_lut3.inc"
#define ZUL_DES_LUT(table, a, b, c)                                                                          \
    reinterpret_cast<V>(_mm512_ternarylogic_epi64(                                                           \
        reinterpret_cast<__m512i>(a), reinterpret_cast<__m512i>(b), reinterpret_cast<__m512i>(c), table))

ZUL_ALWAYS_INLINE ZUL_DES_TARGET V key_bit(const uint64_t* masks, unsigned offset) {
    return V{} + masks[offset];
}

#include "cipher/tdes_bitslice.inc"
#undef ZUL_DES_LUT
#undef ZUL_DES_TARGET
#undef ZUL_DES_SBOXES

} // namespace avx512

} // namespace

const TdesKernel kTdesSse2 = {"sse2", 128, 16, tdes_bit_key, sse2::crypt};
const TdesKernel kTdesAvx2 = {"avx2", 256, 16, tdes_bit_key, avx2::crypt};
const TdesKernel kTdesAvx512 = {"avx512", 512, 16, tdes_bit_key, avx512::crypt};

} // namespace zul

#endif
