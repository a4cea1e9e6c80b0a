// AES with vectors of two blocks (VAES), in the modes that have blocks to fill them; the others are left to
// AES-NI.
#include "platform/target.h"

#if ZUL_X86_64

#define AES_TARGET ZUL_TARGET_VAES256
#include "cipher/aes_parallel.h"

namespace zul {

namespace {

struct Ymm {
    using Vector = __m256i;
    static constexpr size_t kBlocks = 2;
    static constexpr size_t kBytes = 32;

    AES_INLINE static Vector load(const uint8_t* bytes) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
    }
    AES_INLINE static void store(uint8_t* bytes, Vector x) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(bytes), x);
    }
    AES_INLINE static Vector repeat(__m128i block) { return _mm256_broadcastsi128_si256(block); }
    AES_INLINE static Vector add(Vector a, Vector b) { return _mm256_xor_si256(a, b); }
    AES_INLINE static Vector encrypt_round(Vector x, Vector k) { return _mm256_aesenc_epi128(x, k); }
    AES_INLINE static Vector encrypt_last(Vector x, Vector k) { return _mm256_aesenclast_epi128(x, k); }
    AES_INLINE static Vector decrypt_round(Vector x, Vector k) { return _mm256_aesdec_epi128(x, k); }
    AES_INLINE static Vector decrypt_last(Vector x, Vector k) { return _mm256_aesdeclast_epi128(x, k); }
    AES_INLINE static Vector shift_in(__m128i previous, Vector x) {
        return _mm256_inserti128_si256(_mm256_castsi128_si256(previous), _mm256_castsi256_si128(x), 1);
    }
    AES_INLINE static Vector count_from(__m128i counter) {
        return _mm256_add_epi64(repeat(counter), _mm256_set_epi64x(0, 1, 0, 0));
    }
    AES_INLINE static Vector advance(Vector counter) {
        return _mm256_add_epi64(counter, _mm256_set_epi64x(0, 2, 0, 2));
    }
    AES_INLINE static Vector swap_bytes(Vector x) {
        return _mm256_shuffle_epi8(x, repeat(byte_swap_pattern()));
    }
};

} // namespace

const AesKernel kAesVaes256 = {
    .name = "vaes256",
    .expand = aes_ni_expand,
    .ecbEncrypt = ecb_encrypt<Ymm>,
    .ecbDecrypt = ecb_decrypt<Ymm>,
    .cbcEncrypt = aes_ni_cbc_encrypt,
    .cbcDecrypt = cbc_decrypt<Ymm>,
    .cfbEncrypt = aes_ni_cfb_encrypt,
    .cfbDecrypt = cfb_decrypt<Ymm>,
    .ofb = aes_ni_ofb,
    .ctr = ctr<Ymm>,
};

} // namespace zul

#endif
