#pragma once
#include <utility>

#include "hash/lanes_x86.h"
#include "hash/sha2_rounds.h"

// SHA-2 with AVX2 and BMI2: the message schedules of several blocks are computed side by side in vector
// registers, the rounds run in general registers.
namespace zul {

// The word operations of the two families; the rest of a Schedule (see LaneSchedules) follows from the
// family.
struct Sha256Vectors {
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i add(__m256i a, __m256i b) {
        return _mm256_add_epi32(a, b);
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i right(__m256i a, int n) {
        return _mm256_srli_epi32(a, n);
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i rotate(__m256i a, int n) {
        return _mm256_xor_si256(_mm256_srli_epi32(a, n), _mm256_slli_epi32(a, 32 - n));
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i with_constant(__m256i words, uint32_t k) {
        return add(words, _mm256_set1_epi32(static_cast<int>(k)));
    }
};

struct Sha512Vectors {
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i add(__m256i a, __m256i b) {
        return _mm256_add_epi64(a, b);
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i right(__m256i a, int n) {
        return _mm256_srli_epi64(a, n);
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i rotate(__m256i a, int n) {
        if (n == 8)
            return _mm256_shuffle_epi8(
                a, _mm256_setr_epi8(1, 2, 3, 4, 5, 6, 7, 0, 9, 10, 11, 12, 13, 14, 15, 8, //
                                    1, 2, 3, 4, 5, 6, 7, 0, 9, 10, 11, 12, 13, 14, 15, 8));
        return _mm256_xor_si256(_mm256_srli_epi64(a, n), _mm256_slli_epi64(a, 64 - n));
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i with_constant(__m256i words, uint64_t k) {
        return add(words, _mm256_set1_epi64x(static_cast<long long>(k)));
    }
};

template<class Family, class Vectors>
struct Sha2Schedule : Vectors {
    using Word = typename Family::Word;
    static constexpr size_t kLanes = sizeof(__m256i) / sizeof(Word);
    static constexpr size_t kRows = Family::kRounds;
    static constexpr const Word* kConstants = Family::kConstants;

    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i small_sigma(__m256i x, const int (&amounts)[3]) {
        return _mm256_xor_si256(
            _mm256_xor_si256(Vectors::rotate(x, amounts[0]), Vectors::rotate(x, amounts[1])),
            Vectors::right(x, amounts[2]));
    }

    template<class Row>
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i next_words(const Row* row) {
        const __m256i old =
            Vectors::add(Vectors::add(load_vector(row[-16].words),
                                      small_sigma(load_vector(row[-15].words), Family::kSmallSigma0)),
                         load_vector(row[-7].words));
        return Vectors::add(old, small_sigma(load_vector(row[-2].words), Family::kSmallSigma1));
    }
};

// The round in the order of instructions that keeps the processors' execution units busiest; compilers find
// slower ones. Its Maj is left for the next round.
template<class Family>
struct Sha2Bmi2Round {
    using Word = typename Family::Word;

    ZUL_ALWAYS_INLINE static void round(Word& a, Word b, Word& d, Word e, Word f, Word g, Word& h,
                                        Word& bXorC, Word& majority, const Word& input) {
        Word t0, t1;
        __asm__("add %[majority], %[a]\n\t"
                "add %[input], %[h]\n\t"
                "mov %[f], %[t0]\n\t"
                "xor %[g], %[t0]\n\t"
                "rorx %[r12], %[e], %[t1]\n\t"
                "rorx %[r11], %[e], %[majority]\n\t"
                "and %[e], %[t0]\n\t"
                "xor %[majority], %[t1]\n\t"
                "xor %[g], %[t0]\n\t" // Ch(e, f, g)
                "rorx %[r10], %[e], %[majority]\n\t"
                "add %[t0], %[h]\n\t"
                "xor %[majority], %[t1]\n\t"
                "mov %[a], %[majority]\n\t"
                "xor %[b], %[majority]\n\t" // a ^ b
                "add %[t1], %[h]\n\t"
                "rorx %[r02], %[a], %[t0]\n\t"
                "rorx %[r01], %[a], %[t1]\n\t"
                "and %[majority], %[bXorC]\n\t"
                "add %[h], %[d]\n\t"
                "xor %[t1], %[t0]\n\t"
                "rorx %[r00], %[a], %[t1]\n\t"
                "xor %[b], %[bXorC]\n\t" // Maj(a, b, c)
                "xor %[t1], %[t0]\n\t"
                "add %[t0], %[h]\n\t"
                : [a] "+&r"(a), [d] "+&r"(d), [h] "+&r"(h), [bXorC] "+&r"(bXorC), [majority] "+&r"(majority),
                  [t0] "=&r"(t0), [t1] "=&r"(t1)
                : [b] "r"(b), [e] "r"(e), [f] "r"(f), [g] "r"(g), [input] "m"(input),
                  [r00] "n"(Family::kBigSigma0[0]), [r01] "n"(Family::kBigSigma0[1]),
                  [r02] "n"(Family::kBigSigma0[2]), [r10] "n"(Family::kBigSigma1[0]),
                  [r11] "n"(Family::kBigSigma1[1]), [r12] "n"(Family::kBigSigma1[2])
                : "cc");
        std::swap(bXorC, majority);
    }
};

// The rounds of a group of blocks.
template<class Family, class Schedule>
struct Sha2Rounds {
    using Word = typename Family::Word;
    using Schedules = LaneSchedules<Schedule>;

    // Of each block's rounds, which are compiled as a loop of two parts, and of the rows to be woven into
    // them.
    static constexpr size_t kPartRounds = Family::kRounds / 2;
    static constexpr size_t kPartRows = (Family::kRounds - 16) / Schedule::kLanes / 2;

    template<bool weave>
    __attribute__((noinline)) ZUL_TARGET_AVX2 static void
    run(Word* state, const typename Schedules::Row* rows, size_t blocks, Schedules& schedules) {
        constexpr size_t kStride = sizeof(*rows) / sizeof(Word);
        for (size_t lane = 0; lane < blocks; lane++) {
            const Word* input = rows->inputs + lane;
            Sha2Variables<Family> v(state);
#pragma GCC unroll 1
            for (const Word* end = input + Family::kRounds * kStride; input != end;
                 input += kPartRounds * kStride) {
#pragma GCC unroll 40
                for (size_t t = 0; t < kPartRounds; t++) {
                    if (weave && t * kPartRows % kPartRounds < kPartRows)
                        schedules.advance();
                    sha2_round_at<Sha2Bmi2Round<Family>>(t, v, input[t * kStride]);
                }
            }
            v.add_to(state);
        }
    }
};

} // namespace zul
