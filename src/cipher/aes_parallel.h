// The modes whose blocks do not wait for each other, written once for every width of vector. A kernel file
// defines AES_TARGET (its target attribute) and includes this; everything is local to that file, since the
// same text is compiled for different instruction sets.
//
// V is a vector of kBlocks blocks with the few operations that differ between widths. A step takes N vectors,
// loads all of its input before it stores, and leaves in chain what the next step needs.
#pragma once
#include <immintrin.h>

#include "cipher/aes_kernels.h"

#ifndef AES_TARGET
#error "aes_parallel.h is included by the kernel files only"
#endif

#define AES_INLINE AES_TARGET ZUL_ALWAYS_INLINE

// N is 8 at most, and the vectors of a step must all live in registers.
#define AES_EACH _Pragma("GCC unroll 8") for (size_t v = 0; v < N; v++)

namespace zul {

namespace {

AES_INLINE __m128i load_block(const uint8_t* bytes) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

AES_INLINE void store_block(uint8_t* bytes, __m128i block) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes), block);
}

// byte_swap_pattern turns a counter block into two little-endian halves, the low one first, and back.
AES_INLINE __m128i byte_swap_pattern() {
    return _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
}

struct Xmm {
    using Vector = __m128i;
    static constexpr size_t kBlocks = 1;
    static constexpr size_t kBytes = 16;

    AES_INLINE static Vector load(const uint8_t* bytes) { return load_block(bytes); }
    AES_INLINE static void store(uint8_t* bytes, Vector x) { store_block(bytes, x); }
    AES_INLINE static Vector repeat(__m128i block) { return block; }
    AES_INLINE static Vector add(Vector a, Vector b) { return _mm_xor_si128(a, b); }
    AES_INLINE static Vector encrypt_round(Vector x, Vector k) { return _mm_aesenc_si128(x, k); }
    AES_INLINE static Vector encrypt_last(Vector x, Vector k) { return _mm_aesenclast_si128(x, k); }
    AES_INLINE static Vector decrypt_round(Vector x, Vector k) { return _mm_aesdec_si128(x, k); }
    AES_INLINE static Vector decrypt_last(Vector x, Vector k) { return _mm_aesdeclast_si128(x, k); }
    AES_INLINE static Vector shift_in(__m128i previous, Vector) { return previous; }
    AES_INLINE static Vector count_from(__m128i counter) { return counter; }
    AES_INLINE static Vector advance(Vector counter) { return _mm_add_epi64(counter, _mm_set_epi64x(0, 1)); }
    AES_INLINE static Vector swap_bytes(Vector x) { return _mm_shuffle_epi8(x, byte_swap_pattern()); }
};

// One set of instructions per round and key length, without a loop: a loop would copy the vectors around.
template<class V, size_t N, unsigned from, unsigned to>
AES_INLINE void encrypt_rounds(const AesKey& key, typename V::Vector (&x)[N]) {
    const typename V::Vector roundKey = V::repeat(load_block(key.encrypt[from]));
    AES_EACH x[v] = V::encrypt_round(x[v], roundKey);
    if constexpr (from < to)
        encrypt_rounds<V, N, from + 1, to>(key, x);
}

template<class V, size_t N, unsigned from, unsigned to>
AES_INLINE void decrypt_rounds(const AesKey& key, typename V::Vector (&x)[N]) {
    const typename V::Vector roundKey = V::repeat(load_block(key.decrypt[from]));
    AES_EACH x[v] = V::decrypt_round(x[v], roundKey);
    if constexpr (from < to)
        decrypt_rounds<V, N, from + 1, to>(key, x);
}

// These leave out the last round and return its key: what a mode adds to the result goes into that key, so
// that it does not wait for the rounds.
template<class V, size_t N>
AES_INLINE typename V::Vector encrypt_but_last(const AesKey& key, typename V::Vector (&x)[N]) {
    const typename V::Vector first = V::repeat(load_block(key.encrypt[0]));
    AES_EACH x[v] = V::add(x[v], first);
    encrypt_rounds<V, N, 1, 9>(key, x);
    if (key.rounds > 10)
        encrypt_rounds<V, N, 10, 11>(key, x);
    if (key.rounds > 12)
        encrypt_rounds<V, N, 12, 13>(key, x);
    return V::repeat(load_block(key.encrypt[key.rounds]));
}

template<class V, size_t N>
AES_INLINE typename V::Vector decrypt_but_last(const AesKey& key, typename V::Vector (&x)[N]) {
    const typename V::Vector first = V::repeat(load_block(key.decrypt[0]));
    AES_EACH x[v] = V::add(x[v], first);
    decrypt_rounds<V, N, 1, 9>(key, x);
    if (key.rounds > 10)
        decrypt_rounds<V, N, 10, 11>(key, x);
    if (key.rounds > 12)
        decrypt_rounds<V, N, 12, 13>(key, x);
    return V::repeat(load_block(key.decrypt[key.rounds]));
}

struct EcbEncrypt {
    template<class V, size_t N>
    AES_INLINE static void step(const AesKey& key, __m128i&, uint8_t* out, const uint8_t* in) {
        typename V::Vector x[N];
        AES_EACH x[v] = V::load(in + v * V::kBytes);
        const typename V::Vector last = encrypt_but_last<V, N>(key, x);
        AES_EACH x[v] = V::encrypt_last(x[v], last);
        AES_EACH V::store(out + v * V::kBytes, x[v]);
    }
};

struct EcbDecrypt {
    template<class V, size_t N>
    AES_INLINE static void step(const AesKey& key, __m128i&, uint8_t* out, const uint8_t* in) {
        typename V::Vector x[N];
        AES_EACH x[v] = V::load(in + v * V::kBytes);
        const typename V::Vector last = decrypt_but_last<V, N>(key, x);
        AES_EACH x[v] = V::decrypt_last(x[v], last);
        AES_EACH V::store(out + v * V::kBytes, x[v]);
    }
};

struct CbcDecrypt {
    template<class V, size_t N>
    AES_INLINE static void step(const AesKey& key, __m128i& chain, uint8_t* out, const uint8_t* in) {
        typename V::Vector x[N];
        AES_EACH x[v] = V::load(in + v * V::kBytes);
        const typename V::Vector last = decrypt_but_last<V, N>(key, x);
        x[0] = V::decrypt_last(x[0], V::add(last, V::shift_in(chain, V::load(in))));
        chain = load_block(in + N * V::kBytes - kAesBlock);
        AES_EACH {
            if (v > 0)
                x[v] = V::decrypt_last(x[v], V::add(last, V::load(in + v * V::kBytes - kAesBlock)));
        }
        AES_EACH V::store(out + v * V::kBytes, x[v]);
    }
};

struct CfbDecrypt {
    template<class V, size_t N>
    AES_INLINE static void step(const AesKey& key, __m128i& chain, uint8_t* out, const uint8_t* in) {
        typename V::Vector x[N];
        x[0] = V::shift_in(chain, V::load(in));
        AES_EACH {
            if (v > 0)
                x[v] = V::load(in + v * V::kBytes - kAesBlock);
        }
        chain = load_block(in + N * V::kBytes - kAesBlock);
        const typename V::Vector last = encrypt_but_last<V, N>(key, x);
        AES_EACH x[v] = V::encrypt_last(x[v], V::add(last, V::load(in + v * V::kBytes)));
        AES_EACH V::store(out + v * V::kBytes, x[v]);
    }
};

// The chain is the counter with its bytes swapped.
struct Ctr {
    template<class V, size_t N>
    AES_INLINE static void step(const AesKey& key, __m128i& chain, uint8_t* out, const uint8_t* in) {
        typename V::Vector x[N];
        typename V::Vector counter = V::count_from(chain);
        AES_EACH {
            x[v] = V::swap_bytes(counter);
            counter = V::advance(counter);
        }
        chain = _mm_add_epi64(chain, _mm_set_epi64x(0, N * V::kBlocks));
        const typename V::Vector last = encrypt_but_last<V, N>(key, x);
        AES_EACH x[v] = V::encrypt_last(x[v], V::add(last, V::load(in + v * V::kBytes)));
        AES_EACH V::store(out + v * V::kBytes, x[v]);
    }
};

// run_steps takes as many whole steps as the blocks allow; the number of blocks done.
template<class Mode, class V, size_t N>
AES_INLINE size_t run_steps(const AesKey& key, __m128i& chain, uint8_t* out, const uint8_t* in,
                            size_t blocks) {
    constexpr size_t kStep = N * V::kBlocks;
    size_t done = 0;
    for (; blocks - done >= kStep; done += kStep)
        Mode::template step<V, N>(key, chain, out + done * kAesBlock, in + done * kAesBlock);
    return done;
}

// What the vectors leave over, less than one of them, is done in single blocks.
template<class Mode, class V>
AES_INLINE void run(const AesKey& key, __m128i& chain, uint8_t* out, const uint8_t* in, size_t blocks) {
    size_t done = run_steps<Mode, V, 8>(key, chain, out, in, blocks);
    done += run_steps<Mode, V, 4>(key, chain, out + done * kAesBlock, in + done * kAesBlock, blocks - done);
    done += run_steps<Mode, V, 2>(key, chain, out + done * kAesBlock, in + done * kAesBlock, blocks - done);
    done += run_steps<Mode, V, 1>(key, chain, out + done * kAesBlock, in + done * kAesBlock, blocks - done);
    if constexpr (V::kBlocks > 1)
        run_steps<Mode, Xmm, 1>(key, chain, out + done * kAesBlock, in + done * kAesBlock, blocks - done);
}

// --- the modes, as a kernel's table names them ---------------------------------------------------------

template<class V>
AES_TARGET void ecb_encrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    __m128i none = _mm_setzero_si128();
    run<EcbEncrypt, V>(key, none, out, in, blocks);
}

template<class V>
AES_TARGET void ecb_decrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    __m128i none = _mm_setzero_si128();
    run<EcbDecrypt, V>(key, none, out, in, blocks);
}

template<class V>
AES_TARGET void cbc_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    __m128i chain = load_block(iv);
    run<CbcDecrypt, V>(key, chain, out, in, blocks);
    store_block(iv, chain);
}

template<class V>
AES_TARGET void cfb_decrypt(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    __m128i chain = load_block(iv);
    run<CfbDecrypt, V>(key, chain, out, in, blocks);
    store_block(iv, chain);
}

template<class V>
AES_TARGET void ctr(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    __m128i chain = Xmm::swap_bytes(load_block(iv));
    run<Ctr, V>(key, chain, out, in, blocks);
    store_block(iv, Xmm::swap_bytes(chain));
}

} // namespace

} // namespace zul
