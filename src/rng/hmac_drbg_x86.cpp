#include "rng/drbg_kernels.h"

#if ZUL_X86_64
#include "hash/sha1_vectors_x86.h"

// The chain stays in registers from the first block to the last: the time of a request is that of SHA-1's
// rounds, which follow one another.
namespace zul {

namespace {

// The words behind V, or behind the inner digest, in the block that ends a message.
struct Tail {
    uint32_t first; // the byte that the message has left, if any, and the one bit
    int bits;       // of the message, with the block of the pad
};
constexpr Tail kDigestTail = {0x80000000, 8 * (64 + 20)};
constexpr Tail kUpdateTail = {0x00800000, 8 * (64 + 21)}; // the message ends with a zero byte

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors absorb(const Sha1Vectors& pad, const Sha1Vectors& message,
                                                      const Tail& tail) {
    const __m128i first = _mm_set_epi32(0, static_cast<int>(tail.first), 0, 0);
    return sha1_block(pad, message.abcd, _mm_or_si128(message.e, first), _mm_setzero_si128(),
                      _mm_set_epi32(0, 0, 0, tail.bits));
}

// A key as the two digests of HMAC have absorbed it.
struct Key {
    Sha1Vectors inner, outer;

    ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors mac(const Sha1Vectors& message, const Tail& tail) const {
        return absorb(outer, absorb(inner, message, tail), kDigestTail);
    }
};

ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors absorb_pad(const Sha1Vectors& key, uint32_t pad) {
    const Sha1Vectors start = {
        _mm_set_epi32(0x67452301, static_cast<int>(0xefcdab89), static_cast<int>(0x98badcfe), 0x10325476),
        sha1_first_word(0xc3d2e1f0)};
    const __m128i pads = _mm_set1_epi32(static_cast<int>(pad));
    return sha1_block(start, _mm_xor_si128(key.abcd, pads), _mm_xor_si128(key.e, pads), pads, pads);
}

} // namespace

ZUL_TARGET_SHANI void drbg_produce_shani(DrbgState& drbg, uint8_t* out, size_t size, bool update) {
    Key key{sha1_load_state(drbg.inner), sha1_load_state(drbg.outer)};
    Sha1Vectors value = sha1_load_digest(drbg.value);
    for (; size >= sizeof drbg.value; size -= sizeof drbg.value) {
        value = key.mac(value, kDigestTail);
        sha1_store_digest(out, value);
        out += sizeof drbg.value;
    }
    if (size > 0)
        value = key.mac(value, kDigestTail);
    sha1_store_digest(drbg.value, value);
    if (size > 0)
        memcpy(out, drbg.value, size);
    if (!update)
        return;

    const Sha1Vectors newKey = key.mac(value, kUpdateTail);
    key = {absorb_pad(newKey, 0x36363636), absorb_pad(newKey, 0x5c5c5c5c)};
    sha1_store_state(drbg.inner, key.inner);
    sha1_store_state(drbg.outer, key.outer);
    // Too much for the registers: V comes from memory, and nothing is left on the stack.
    __asm__ volatile("" : : : "memory");
    value = key.mac(sha1_load_digest(drbg.value), kDigestTail);
    sha1_store_digest(drbg.value, value);
}

} // namespace zul
#endif
