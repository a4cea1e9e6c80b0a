// AES with vectors of four blocks (VAES and AVX-512), in the modes that have blocks to fill them; the others
// are left to AES-NI.
#include "platform/target.h"

#if ZUL_X86_64

#define AES_TARGET ZUL_TARGET_VAES512
#include "cipher/aes_parallel.h"

namespace zul {

namespace {

struct Zmm {
    using Vector = __m512i;
    static constexpr size_t kBlocks = 4;
    static constexpr size_t kBytes = 64;

    AES_INLINE static Vector load(const uint8_t* bytes) { return _mm512_loadu_si512(bytes); }
    AES_INLINE static void store(uint8_t* bytes, Vector x) { _mm512_storeu_si512(bytes, x); }
    // The zero-masked forms, with every lane kept: in the plain ones GCC 12 sees an uninitialised variable.
    AES_INLINE static Vector repeat(__m128i block) { return _mm512_maskz_broadcast_i32x4(0xFFFF, block); }
    AES_INLINE static Vector add(Vector a, Vector b) { return _mm512_xor_si512(a, b); }
    AES_INLINE static Vector encrypt_round(Vector x, Vector k) { return _mm512_aesenc_epi128(x, k); }
    AES_INLINE static Vector encrypt_last(Vector x, Vector k) { return _mm512_aesenclast_epi128(x, k); }
    AES_INLINE static Vector decrypt_round(Vector x, Vector k) { return _mm512_aesdec_epi128(x, k); }
    AES_INLINE static Vector decrypt_last(Vector x, Vector k) { return _mm512_aesdeclast_epi128(x, k); }
    AES_INLINE static Vector shift_in(__m128i previous, Vector x) {
        return _mm512_maskz_alignr_epi64(0xFF, x, repeat(previous), 6);
    }
    AES_INLINE static Vector count_from(__m128i counter) {
        return _mm512_add_epi64(repeat(counter), _mm512_set_epi64(0, 3, 0, 2, 0, 1, 0, 0));
    }
    AES_INLINE static Vector advance(Vector counter) {
        return _mm512_add_epi64(counter, _mm512_set_epi64(0, 4, 0, 4, 0, 4, 0, 4));
    }
    AES_INLINE static Vector swap_bytes(Vector x) {
        return _mm512_shuffle_epi8(x, repeat(byte_swap_pattern()));
    }
};

} // namespace

const AesKernel kAesVaes512 = {
    .name = "vaes512",
    .expand = aes_ni_expand,
    .ecbEncrypt = ecb_encrypt<Zmm>,
    .ecbDecrypt = ecb_decrypt<Zmm>,
    .cbcEncrypt = aes_ni_cbc_encrypt,
    .cbcDecrypt = cbc_decrypt<Zmm>,
    .cfbEncrypt = aes_ni_cfb_encrypt,
    .cfbDecrypt = cfb_decrypt<Zmm>,
    .ofb = aes_ni_ofb,
    .ctr = ctr<Zmm>,
};

} // namespace zul

#endif
