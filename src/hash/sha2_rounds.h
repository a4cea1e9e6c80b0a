#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/wipe.h"
#include "hash/digest_words.h"
#include "hash/sha2_constants.h"
#include "platform/target.h"

// The rounds of SHA-2 (FIPS 180-4, clauses 4.1 and 6.2), which SHA-256 and SHA-512 share but for the size of
// a word and the constants. Everything here is inlined into the kernels, whose instruction sets it is
// compiled for.
namespace zul {

struct Sha256Family {
    using Word = uint32_t;
    static constexpr size_t kRounds = 64;
    static constexpr const Word* kConstants = kSha256Constants;
    static constexpr int kBigSigma0[3] = {2, 13, 22};
    static constexpr int kBigSigma1[3] = {6, 11, 25};
    static constexpr int kSmallSigma0[3] = {7, 18, 3}; // the last one is a shift
    static constexpr int kSmallSigma1[3] = {17, 19, 10};
};

struct Sha512Family {
    using Word = uint64_t;
    static constexpr size_t kRounds = 80;
    static constexpr const Word* kConstants = kSha512Constants;
    static constexpr int kBigSigma0[3] = {28, 34, 39};
    static constexpr int kBigSigma1[3] = {14, 18, 41};
    static constexpr int kSmallSigma0[3] = {1, 8, 7};
    static constexpr int kSmallSigma1[3] = {19, 61, 6};
};

// The working variables of one block. Maj(a, b, c) is computed as ((a ^ b) & (b ^ c)) ^ b, where bXorC is the
// a ^ b of the round before; a round may leave its Maj in majority for the next one to add to a.
template<class Family>
struct Sha2Variables {
    using Word = typename Family::Word;
    Word a, b, c, d, e, f, g, h, bXorC, majority;

    ZUL_ALWAYS_INLINE explicit Sha2Variables(const Word* state)
        : a(state[0]), b(state[1]), c(state[2]), d(state[3]), e(state[4]), f(state[5]), g(state[6]),
          h(state[7]), bXorC(b ^ c), majority(0) {}

    ZUL_ALWAYS_INLINE void add_to(Word* state) const { add_words(state, a + majority, b, c, d, e, f, g, h); }
};

template<class Family>
struct Sha2PortableRound {
    using Word = typename Family::Word;

    ZUL_ALWAYS_INLINE static void round(Word& a, Word b, Word& d, Word e, Word f, Word g, Word& h,
                                        Word& bXorC, Word&, const Word& input) {
        constexpr auto& r0 = Family::kBigSigma0;
        constexpr auto& r1 = Family::kBigSigma1;
        // The two halves of Ch have no bit in common, so that they can be added one after the other, which
        // keeps them off the longest path.
        h += input;
        h += e & f;
        h += ~e & g;
        h += std::rotr(e, r1[0]) ^ std::rotr(e, r1[1]) ^ std::rotr(e, r1[2]);
        d += h;
        const Word aXorB = a ^ b;
        h += (aXorB & bXorC) ^ b;
        h += std::rotr(a, r0[0]) ^ std::rotr(a, r0[1]) ^ std::rotr(a, r0[2]);
        bXorC = aXorB;
    }
};

// sha2_round_at is round t of eight, after which every variable has its old name again. t is known when this
// is compiled.
template<class Round, class Family>
ZUL_ALWAYS_INLINE void sha2_round_at(size_t t, Sha2Variables<Family>& v, const typename Family::Word& input) {
    switch (t % 8) {
    case 0:
        return Round::round(v.a, v.b, v.d, v.e, v.f, v.g, v.h, v.bXorC, v.majority, input);
    case 1:
        return Round::round(v.h, v.a, v.c, v.d, v.e, v.f, v.g, v.bXorC, v.majority, input);
    case 2:
        return Round::round(v.g, v.h, v.b, v.c, v.d, v.e, v.f, v.bXorC, v.majority, input);
    case 3:
        return Round::round(v.f, v.g, v.a, v.b, v.c, v.d, v.e, v.bXorC, v.majority, input);
    case 4:
        return Round::round(v.e, v.f, v.h, v.a, v.b, v.c, v.d, v.bXorC, v.majority, input);
    case 5:
        return Round::round(v.d, v.e, v.g, v.h, v.a, v.b, v.c, v.bXorC, v.majority, input);
    case 6:
        return Round::round(v.c, v.d, v.f, v.g, v.h, v.a, v.b, v.bXorC, v.majority, input);
    default:
        return Round::round(v.b, v.c, v.e, v.f, v.g, v.h, v.a, v.bXorC, v.majority, input);
    }
}

template<class Word>
ZUL_ALWAYS_INLINE Word sha2_small_sigma(Word x, const int (&amounts)[3]) {
    return std::rotr(x, amounts[0]) ^ std::rotr(x, amounts[1]) ^ (x >> amounts[2]);
}

// sha2_compress_scalar absorbs whole blocks, one after the other, in general registers.
template<class Family, class Word = typename Family::Word>
ZUL_ALWAYS_INLINE void sha2_compress_scalar(Word* state, const uint8_t* data, size_t blocks) {
    constexpr const Word* k = Family::kConstants;
    Word w[16];
    for (; blocks > 0; blocks--) {
        Sha2Variables<Family> v(state);
#pragma GCC unroll 16
        for (size_t t = 0; t < 16; t++, data += sizeof(Word)) {
            w[t] = load_word<Word, std::endian::big>(data);
            sha2_round_at<Sha2PortableRound<Family>>(t, v, static_cast<Word>(w[t] + k[t]));
        }
        for (size_t base = 16; base < Family::kRounds; base += 16) {
#pragma GCC unroll 16
            for (size_t t = 0; t < 16; t++) {
                w[t] += sha2_small_sigma(w[(t + 1) % 16], Family::kSmallSigma0) + w[(t + 9) % 16] +
                        sha2_small_sigma(w[(t + 14) % 16], Family::kSmallSigma1);
                sha2_round_at<Sha2PortableRound<Family>>(t, v, static_cast<Word>(w[t] + k[base + t]));
            }
        }
        v.add_to(state);
    }
    wipe_object(w); // from which the whole block could be told
}

} // namespace zul
