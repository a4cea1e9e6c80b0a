// POLYVAL with carry-less multiplication, of one block or of four at a time (PCLMULQDQ, VPCLMULQDQ).
#include "cipher/polyval_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

#define CLMUL_TARGET __attribute__((target("ssse3,sse4.1,pclmul")))
#define VCLMUL_TARGET                                                                                        \
    __attribute__((target("avx2,bmi,bmi2,avx512f,avx512bw,avx512dq,avx512vl,pclmul,vpclmulqdq")))

namespace zul {
namespace {

constexpr long long kModulus = static_cast<long long>(0xC200000000000000); // x^127 + x^126 + x^121

CLMUL_TARGET ZUL_ALWAYS_INLINE __m128i load(const void* bytes) {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

CLMUL_TARGET ZUL_ALWAYS_INLINE __m128i reverse(__m128i x) {
    return _mm_shuffle_epi8(x, _mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
}

// A product before its reduction: low + middle x^64 + high x^128.
struct Product {
    __m128i low, middle, high;
};

CLMUL_TARGET ZUL_ALWAYS_INLINE void add_product(Product& sum, __m128i a, __m128i b) {
    sum.low = _mm_xor_si128(sum.low, _mm_clmulepi64_si128(a, b, 0x00));
    sum.high = _mm_xor_si128(sum.high, _mm_clmulepi64_si128(a, b, 0x11));
    sum.middle = _mm_xor_si128(
        sum.middle, _mm_xor_si128(_mm_clmulepi64_si128(a, b, 0x01), _mm_clmulepi64_si128(a, b, 0x10)));
}

// reduce divides by x^128, 64 bits at a time.
CLMUL_TARGET ZUL_ALWAYS_INLINE __m128i reduce(const Product& p) {
    const __m128i modulus = _mm_set_epi64x(0, kModulus);
    __m128i low = _mm_xor_si128(p.low, _mm_slli_si128(p.middle, 8));
    const __m128i high = _mm_xor_si128(p.high, _mm_srli_si128(p.middle, 8));
    for (int i = 0; i < 2; i++)
        low = _mm_xor_si128(_mm_shuffle_epi32(low, 0x4E), _mm_clmulepi64_si128(low, modulus, 0x00));
    return _mm_xor_si128(low, high);
}

CLMUL_TARGET void multiply_clmul(uint64_t product[2], const uint64_t a[2], const uint64_t b[2]) {
    Product sum = {_mm_setzero_si128(), _mm_setzero_si128(), _mm_setzero_si128()};
    add_product(sum, load(a), load(b));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(product), reduce(sum));
}

// As many blocks as there are powers are reduced together.
CLMUL_TARGET void update_clmul(uint64_t state[2], const PolyvalKey& key, const uint8_t* blocks,
                               size_t count) {
    __m128i x = load(state);
    while (count > 0) {
        const size_t together = count < key.count ? count : key.count;
        const uint64_t(*power)[2] = key.powers + (PolyvalKey::kPowers - together);
        Product sum = {_mm_setzero_si128(), _mm_setzero_si128(), _mm_setzero_si128()};
        for (size_t i = 0; i < together; i++, blocks += kPolyvalBlock, power++) {
            __m128i block = load(blocks);
            if (key.isReversed)
                block = reverse(block);
            if (i == 0)
                block = _mm_xor_si128(block, x);
            add_product(sum, block, load(power));
        }
        x = reduce(sum);
        count -= together;
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), x);
}

VCLMUL_TARGET ZUL_ALWAYS_INLINE __m128i fold(__m512i x) {
    const __m256i half = _mm256_xor_si256(_mm512_castsi512_si256(x), _mm512_extracti64x4_epi64(x, 1));
    return _mm_xor_si128(_mm256_castsi256_si128(half), _mm256_extracti128_si256(half, 1));
}

template<size_t Vectors>
VCLMUL_TARGET ZUL_ALWAYS_INLINE __m128i sum_of_vectors(__m128i x, const PolyvalKey& key,
                                                       const uint8_t* blocks) {
    const __m512i order = _mm512_maskz_broadcast_i32x4(
        0xFFFF, key.isReversed ? _mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0)
                               : _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    const uint64_t(*const powers)[2] = key.powers + (PolyvalKey::kPowers - 4 * Vectors);
    __m512i low = _mm512_setzero_si512(), middle = low, high = low;
#pragma GCC unroll 4
    for (size_t i = 0; i < Vectors; i++) {
        __m512i block = _mm512_shuffle_epi8(_mm512_loadu_si512(blocks + 64 * i), order);
        if (i == 0)
            block = _mm512_xor_si512(block, _mm512_zextsi128_si512(x));
        const __m512i power = _mm512_loadu_si512(powers[4 * i]);
        low = _mm512_xor_si512(low, _mm512_clmulepi64_epi128(block, power, 0x00));
        high = _mm512_xor_si512(high, _mm512_clmulepi64_epi128(block, power, 0x11));
        middle = _mm512_ternarylogic_epi64(middle, _mm512_clmulepi64_epi128(block, power, 0x01),
                                           _mm512_clmulepi64_epi128(block, power, 0x10), 0x96);
    }
    return reduce({fold(low), fold(middle), fold(high)});
}

VCLMUL_TARGET void update_vclmul512(uint64_t state[2], const PolyvalKey& key, const uint8_t* blocks,
                                    size_t count) {
    __m128i x = load(state);
    if (key.count == PolyvalKey::kPowers) {
        for (; count >= 16; count -= 16, blocks += 16 * kPolyvalBlock)
            x = sum_of_vectors<4>(x, key, blocks);
    }
    if (key.count >= 4) {
        for (; count >= 4; count -= 4, blocks += 4 * kPolyvalBlock)
            x = sum_of_vectors<1>(x, key, blocks);
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), x);
    if (count > 0)
        update_clmul(state, key, blocks, count);
}

} // namespace

const PolyvalKernel kPolyvalClmul = {multiply_clmul, update_clmul};
const PolyvalKernel kPolyvalVclmul512 = {multiply_clmul, update_vclmul512};

} // namespace zul
#endif
