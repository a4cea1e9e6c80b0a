// AES with the AES-NI instructions.
#include "platform/target.h"

#if ZUL_X86_64

#define AES_TARGET ZUL_TARGET_AESNI
#include <cstring>

#include "cipher/aes_parallel.h"

namespace zul {

namespace {

// The modes below are a chain of AES rounds, and only its latency counts. The state therefore stays whitened,
// that is, with the first round key added, from block to block: what the mode adds between two blocks goes
// into the last round key, off the chain.

// middle_rounds takes all rounds but the last.
AES_INLINE __m128i middle_rounds(__m128i x, const AesKey& key) {
    _Pragma("GCC unroll 9") for (int round = 1; round < 10; round++) {
        x = _mm_aesenc_si128(x, load_block(key.encrypt[round]));
    }
    if (key.rounds > 10) {
        x = _mm_aesenc_si128(x, load_block(key.encrypt[10]));
        x = _mm_aesenc_si128(x, load_block(key.encrypt[11]));
    }
    if (key.rounds > 12) {
        x = _mm_aesenc_si128(x, load_block(key.encrypt[12]));
        x = _mm_aesenc_si128(x, load_block(key.encrypt[13]));
    }
    return x;
}

} // namespace

AES_TARGET void aes_ni_cbc_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in,
                                   size_t blocks) {
    if (blocks == 0)
        return;
    const __m128i first = load_block(key.encrypt[0]);
    const __m128i last = load_block(key.encrypt[key.rounds]);
    __m128i whitened = _mm_xor_si128(load_block(in), first);
    __m128i state = _mm_xor_si128(load_block(iv), whitened);
    for (; blocks > 1; blocks--) {
        in += kAesBlock;
        whitened = _mm_xor_si128(load_block(in), first);
        state = _mm_aesenclast_si128(middle_rounds(state, key), _mm_xor_si128(last, whitened));
        store_block(out, _mm_xor_si128(state, whitened));
        out += kAesBlock;
    }
    state = _mm_aesenclast_si128(middle_rounds(state, key), last);
    store_block(out, state);
    store_block(iv, state);
}

AES_TARGET void aes_ni_cfb_encrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in,
                                   size_t blocks) {
    const __m128i first = load_block(key.encrypt[0]);
    const __m128i last = _mm_xor_si128(load_block(key.encrypt[key.rounds]), first);
    __m128i state = _mm_xor_si128(load_block(iv), first);
    for (size_t at = 0; at < blocks * kAesBlock; at += kAesBlock) {
        state = _mm_aesenclast_si128(middle_rounds(state, key), _mm_xor_si128(last, load_block(in + at)));
        store_block(out + at, _mm_xor_si128(state, first));
    }
    store_block(iv, _mm_xor_si128(state, first));
}

AES_TARGET void aes_ni_ofb(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    const __m128i first = load_block(key.encrypt[0]);
    const __m128i last = _mm_xor_si128(load_block(key.encrypt[key.rounds]), first);
    __m128i state = _mm_xor_si128(load_block(iv), first);
    for (size_t at = 0; at < blocks * kAesBlock; at += kAesBlock) {
        const __m128i whitened = _mm_xor_si128(load_block(in + at), first);
        state = _mm_aesenclast_si128(middle_rounds(state, key), last);
        store_block(out + at, _mm_xor_si128(state, whitened));
    }
    store_block(iv, _mm_xor_si128(state, first));
}

namespace {

// --- key expansion -------------------------------------------------------------------------------------

// substitute takes one word of x, with its bytes turned by RotWord if rotated, and gives its SubWord plus the
// constant in all four columns: AESENCLAST does that to a block of equal columns, where ShiftRows moves
// nothing.
template<int word, bool rotated>
AES_INLINE __m128i substitute(__m128i x, int constant) {
    constexpr int kFirst = 4 * word;
    constexpr int kPick = rotated
                              ? ((kFirst << 24) | ((kFirst + 3) << 16) | ((kFirst + 2) << 8) | (kFirst + 1))
                              : (((kFirst + 3) << 24) | ((kFirst + 2) << 16) | ((kFirst + 1) << 8) | kFirst);
    return _mm_aesenclast_si128(_mm_shuffle_epi8(x, _mm_set1_epi32(kPick)), _mm_set1_epi32(constant));
}

// accumulate replaces each word by the sum of the words up to and including it.
AES_INLINE __m128i accumulate(__m128i x) {
    x = _mm_xor_si128(x, _mm_slli_si128(x, 4));
    return _mm_xor_si128(x, _mm_slli_si128(x, 8));
}

constexpr int kRoundConstants[10] = {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0x1B, 0x36};

AES_INLINE void expand_128(AesKey& key, const uint8_t* bytes) {
    __m128i x = load_block(bytes);
    store_block(key.encrypt[0], x);
    for (int round = 1; round <= 10; round++) {
        x = _mm_xor_si128(accumulate(x), substitute<3, true>(x, kRoundConstants[round - 1]));
        store_block(key.encrypt[round], x);
    }
}

// Six words are made at a time; the last store runs into the round keys that AES-192 does not use.
AES_INLINE void expand_192(AesKey& key, const uint8_t* bytes) {
    static_assert(sizeof key.encrypt >= size_t{24} * 9);
    uint8_t* at = key.encrypt[0];
    __m128i x = load_block(bytes);
    __m128i y = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes + 16));
    for (int step = 0;; step++, at += 24) {
        store_block(at, x);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(at + 16), y);
        if (step == 8)
            break;
        x = _mm_xor_si128(accumulate(x), substitute<1, true>(y, kRoundConstants[step]));
        y = _mm_xor_si128(_mm_xor_si128(y, _mm_slli_si128(y, 4)), _mm_shuffle_epi32(x, 0xFF));
    }
}

AES_INLINE void expand_256(AesKey& key, const uint8_t* bytes) {
    __m128i x = load_block(bytes);
    __m128i y = load_block(bytes + 16);
    store_block(key.encrypt[0], x);
    store_block(key.encrypt[1], y);
    for (int round = 2; round <= 14; round += 2) {
        x = _mm_xor_si128(accumulate(x), substitute<3, true>(y, kRoundConstants[round / 2 - 1]));
        store_block(key.encrypt[round], x);
        if (round == 14)
            break;
        y = _mm_xor_si128(accumulate(y), substitute<3, false>(x, 0));
        store_block(key.encrypt[round + 1], y);
    }
}

} // namespace

AES_TARGET void aes_ni_expand(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo) {
    if (length == 16)
        expand_128(key, bytes);
    else if (length == 24)
        expand_192(key, bytes);
    else
        expand_256(key, bytes);
    if (!decryptToo)
        return;
    std::memcpy(key.decrypt[0], key.encrypt[key.rounds], kAesBlock);
    for (unsigned round = 1; round < key.rounds; round++)
        store_block(key.decrypt[round], _mm_aesimc_si128(load_block(key.encrypt[key.rounds - round])));
    std::memcpy(key.decrypt[key.rounds], key.encrypt[0], kAesBlock);
}

const AesKernel kAesNi = {
    .name = "aesni",
    .expand = aes_ni_expand,
    .ecbEncrypt = ecb_encrypt<Xmm>,
    .ecbDecrypt = ecb_decrypt<Xmm>,
    .cbcEncrypt = aes_ni_cbc_encrypt,
    .cbcDecrypt = cbc_decrypt<Xmm>,
    .cfbEncrypt = aes_ni_cfb_encrypt,
    .cfbDecrypt = cfb_decrypt<Xmm>,
    .ofb = aes_ni_ofb,
    .ctr = ctr<Xmm>,
};

} // namespace zul

#endif
