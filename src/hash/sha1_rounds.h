#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/wipe.h"
#include "hash/digest_words.h"
#include "platform/target.h"

// The rounds of SHA-1 (FIPS 180-4, clauses 4.1.1 and 6.1.2), inlined into the kernels, whose instruction sets
// they are compiled for.
namespace zul {

constexpr size_t kSha1Rounds = 80;
alignas(16) inline constexpr uint32_t kSha1Constants[4] = {0x5a827999, 0x6ed9eba1, 0x8f1bbcdc, 0xca62c1d6};

// The working variables of one block.
struct Sha1Variables {
    uint32_t a, b, c, d, e;

    ZUL_ALWAYS_INLINE explicit Sha1Variables(const uint32_t* state)
        : a(state[0]), b(state[1]), c(state[2]), d(state[3]), e(state[4]) {}

    ZUL_ALWAYS_INLINE void add_to(uint32_t* state) const { add_words(state, a, b, c, d, e); }
};

struct Sha1PortableRound {
    // One round of the given quarter (0 to 3). The terms of Ch and Maj have no bit in common, so that they
    // can be added one after the other, which keeps them off the longest path.
    template<size_t Quarter>
    ZUL_ALWAYS_INLINE static void round(uint32_t a, uint32_t& b, uint32_t c, uint32_t d, uint32_t& e,
                                        const uint32_t& input) {
        e += input;
        if constexpr (Quarter == 0) {
            e += b & c;
            e += ~b & d;
        } else if constexpr (Quarter == 2) {
            e += c & d;
            e += b & (c ^ d);
        } else {
            e += b ^ c ^ d;
        }
        e += std::rotl(a, 5);
        b = std::rotl(b, 30);
    }
};

// sha1_round_at is round t of five, after which every variable has its old name again. t is known when this
// is compiled.
template<class Round, size_t Quarter>
ZUL_ALWAYS_INLINE void sha1_round_at(size_t t, Sha1Variables& v, const uint32_t& input) {
    switch (t % 5) {
    case 0:
        return Round::template round<Quarter>(v.a, v.b, v.c, v.d, v.e, input);
    case 1:
        return Round::template round<Quarter>(v.e, v.a, v.b, v.c, v.d, input);
    case 2:
        return Round::template round<Quarter>(v.d, v.e, v.a, v.b, v.c, input);
    case 3:
        return Round::template round<Quarter>(v.c, v.d, v.e, v.a, v.b, input);
    default:
        return Round::template round<Quarter>(v.b, v.c, v.d, v.e, v.a, input);
    }
}

// The rounds of one quarter in a block whose last 16 words of schedule stand in w.
template<size_t Quarter>
ZUL_ALWAYS_INLINE void sha1_scalar_quarter(Sha1Variables& v, uint32_t (&w)[16], const uint8_t* block) {
#pragma GCC unroll 20
    for (size_t t = 20 * Quarter; t < 20 * Quarter + 20; t++) {
        uint32_t& word = w[t % 16];
        if (t < 16)
            word = load_word<uint32_t, std::endian::big>(block + sizeof word * t);
        else
            word = std::rotl(w[(t + 13) % 16] ^ w[(t + 8) % 16] ^ w[(t + 2) % 16] ^ word, 1);
        sha1_round_at<Sha1PortableRound, Quarter>(t, v, word + kSha1Constants[Quarter]);
    }
}

// sha1_compress_scalar absorbs whole blocks, one after the other, in general registers.
ZUL_ALWAYS_INLINE void sha1_compress_scalar(uint32_t* state, const uint8_t* data, size_t blocks) {
    uint32_t w[16];
    for (; blocks > 0; blocks--, data += 64) {
        Sha1Variables v(state);
        sha1_scalar_quarter<0>(v, w, data);
        sha1_scalar_quarter<1>(v, w, data);
        sha1_scalar_quarter<2>(v, w, data);
        sha1_scalar_quarter<3>(v, w, data);
        v.add_to(state);
    }
    wipe_object(w); // from which the whole block could be told
}

} // namespace zul
