#include "encode/encode_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {
namespace {

// The value of each character as a digit, with the top bit set in those that are none.
ZUL_TARGET_AVX2 inline __m256i digit_values(__m256i text) {
    // A character minus '0' is 0 to 9 for a decimal digit; a letter without its bit of case minus 'A' is 0
    // to 5.
    const __m256i decimal = _mm256_sub_epi8(text, _mm256_set1_epi8('0'));
    const __m256i isDecimal = _mm256_cmpeq_epi8(_mm256_min_epu8(decimal, _mm256_set1_epi8(9)), decimal);
    const __m256i letter = _mm256_sub_epi8(_mm256_and_si256(text, _mm256_set1_epi8(static_cast<char>(0xDF))),
                                           _mm256_set1_epi8('A'));
    const __m256i isLetter = _mm256_cmpeq_epi8(_mm256_min_epu8(letter, _mm256_set1_epi8(5)), letter);
    const __m256i letterValue = _mm256_or_si256(_mm256_add_epi8(letter, _mm256_set1_epi8(10)),
                                                _mm256_xor_si256(isLetter, _mm256_set1_epi8(-1)));
    return _mm256_blendv_epi8(letterValue, decimal, isDecimal);
}

} // namespace

ZUL_TARGET_AVX2 size_t hex_encode_avx2(char* out, const uint8_t* data, size_t len, const char digits[16]) {
    const __m256i table =
        _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(digits)));
    const __m256i low = _mm256_set1_epi8(0x0F);
    size_t done = 0;
    for (; len - done >= 16; done += 16) {
        const __m256i words =
            _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data + done)));
        const __m256i nibbles =
            _mm256_and_si256(_mm256_or_si256(_mm256_srli_epi16(words, 4), _mm256_slli_epi16(words, 8)), low);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 2 * done), _mm256_shuffle_epi8(table, nibbles));
    }
    return done;
}

ZUL_TARGET_AVX2 size_t hex_decode_avx2(uint8_t* out, const char* text, size_t len) {
    const __m256i weights = _mm256_set1_epi16(0x0110); // 16 times the first digit and the second
    size_t done = 0;
    for (; len - done >= 64; done += 64) {
        const __m256i a = digit_values(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + done)));
        const __m256i b =
            digit_values(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + done + 32)));
        if (_mm256_movemask_epi8(_mm256_or_si256(a, b)) != 0)
            break;
        const __m256i bytes =
            _mm256_packus_epi16(_mm256_maddubs_epi16(a, weights), _mm256_maddubs_epi16(b, weights));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done / 2),
                            _mm256_permute4x64_epi64(bytes, 0xD8));
    }
    return done;
}

ZUL_TARGET_AVX2 size_t hex_count_avx2(size_t* count, const char* text, size_t len) {
    size_t done = 0;
    for (; len - done >= 32; done += 32) {
        const __m256i values =
            digit_values(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + done)));
        *count +=
            32 - static_cast<size_t>(_mm_popcnt_u32(static_cast<unsigned>(_mm256_movemask_epi8(values))));
    }
    return done;
}

} // namespace zul
#endif
