// The standard alphabet of RFC 4648, clause 4.
#include "encode/encode_kernels.h"

#if ZUL_X86_64
#include <immintrin.h>

namespace zul {

ZUL_TARGET_AVX2 size_t b64_encode_avx2(char* out, const uint8_t* data, size_t len) {
    // Each group of three bytes is spread over four: the bytes 1, 0, 2, 1, from which two multiplications per
    // word move the four values of six bits to their places.
    const __m256i spread = _mm256_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10, //
                                            1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10);
    // What a value is away from its character, by range: 52 to 61 (ten entries), 62, 63, 0 to 25 (entry 13),
    // and 26 to 51 (entry 0).
    const __m256i offsets =
        _mm256_setr_epi8(71, -4, -4, -4, -4, -4, -4, -4, -4, -4, -4, -19, -16, 65, 0, 0, //
                         71, -4, -4, -4, -4, -4, -4, -4, -4, -4, -4, -19, -16, 65, 0, 0);
    size_t done = 0;
    for (; len - done >= 28; done += 24) { // four bytes more are read
        const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + done));
        const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + done + 12));
        const __m256i in =
            _mm256_shuffle_epi8(_mm256_inserti128_si256(_mm256_castsi128_si256(first), second, 1), spread);
        const __m256i odd = _mm256_mulhi_epu16(_mm256_and_si256(in, _mm256_set1_epi32(0x0FC0FC00)),
                                               _mm256_set1_epi32(0x04000040));
        const __m256i even = _mm256_mullo_epi16(_mm256_and_si256(in, _mm256_set1_epi32(0x003F03F0)),
                                                _mm256_set1_epi32(0x01000010));
        const __m256i values = _mm256_or_si256(odd, even);
        __m256i range = _mm256_subs_epu8(values, _mm256_set1_epi8(51));
        const __m256i isUpper = _mm256_cmpgt_epi8(_mm256_set1_epi8(26), values);
        range = _mm256_or_si256(range, _mm256_and_si256(isUpper, _mm256_set1_epi8(13)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done / 3 * 4),
                            _mm256_add_epi8(values, _mm256_shuffle_epi8(offsets, range)));
    }
    return done;
}

namespace {

// The bytes that are not 0 belong to characters outside the alphabet.
ZUL_TARGET_AVX2 inline __m256i wrong_characters(__m256i text, __m256i high) {
    // A bit per high half of a character: the two tables have one in common for every character outside the
    // alphabet.
    const __m256i byLow = _mm256_setr_epi8(
        0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A, //
        0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A);
    const __m256i byHigh = _mm256_setr_epi8(
        0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, //
        0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10);
    const __m256i low = _mm256_and_si256(text, _mm256_set1_epi8(0x0F));
    return _mm256_and_si256(_mm256_shuffle_epi8(byLow, low), _mm256_shuffle_epi8(byHigh, high));
}

ZUL_TARGET_AVX2 inline __m256i high_halves(__m256i text) {
    return _mm256_and_si256(_mm256_srli_epi32(text, 4), _mm256_set1_epi8(0x0F));
}

} // namespace

ZUL_TARGET_AVX2 size_t b64_decode_avx2(uint8_t* out, const char* text, size_t len) {
    // What a character is away from its value, by its high half; "/" takes the entry before that of "+".
    const __m256i offsets = _mm256_setr_epi8(0, 16, 19, 4, -65, -65, -71, -71, 0, 0, 0, 0, 0, 0, 0, 0, //
                                             0, 16, 19, 4, -65, -65, -71, -71, 0, 0, 0, 0, 0, 0, 0, 0);
    const __m256i join = _mm256_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1, //
                                          2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    size_t done = 0;
    for (; len - done >= 32; done += 32) {
        const __m256i in = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + done));
        const __m256i high = high_halves(in), wrong = wrong_characters(in, high);
        if (!_mm256_testz_si256(wrong, wrong))
            break;
        const __m256i isSlash = _mm256_cmpeq_epi8(in, _mm256_set1_epi8('/'));
        const __m256i values =
            _mm256_add_epi8(in, _mm256_shuffle_epi8(offsets, _mm256_add_epi8(high, isSlash)));
        const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));
        const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
        const __m256i bytes = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(groups, join),
                                                          _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7));
        uint8_t* const to = out + done / 4 * 3;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(bytes));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to + 16), _mm256_extracti128_si256(bytes, 1));
    }
    return done;
}

ZUL_TARGET_AVX2 size_t b64_count_avx2(size_t* count, const char* text, size_t len) {
    size_t done = 0;
    for (; len - done >= 32; done += 32) {
        const __m256i in = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + done));
        const __m256i isRight =
            _mm256_cmpeq_epi8(wrong_characters(in, high_halves(in)), _mm256_setzero_si256());
        *count += static_cast<size_t>(_mm_popcnt_u32(static_cast<unsigned>(_mm256_movemask_epi8(isRight))));
    }
    return done;
}

} // namespace zul
#endif
