#include "hash/sha1_kernels.h"

#if ZUL_X86_64
#include <array>

#include "hash/lanes_x86.h"
#include "hash/sha1_rounds.h"
#include "hash/sha1_vectors_x86.h"

namespace zul {

namespace {

struct Schedule {
    using Word = uint32_t;
    static constexpr size_t kLanes = 8;
    static constexpr size_t kRows = kSha1Rounds;
    static constexpr auto kRowConstants = [] {
        std::array<uint32_t, kRows> constants{};
        for (size_t t = 0; t < kRows; t++)
            constants[t] = kSha1Constants[t / 20];
        return constants;
    }();
    static constexpr const uint32_t* kConstants = kRowConstants.data();

    template<class Row>
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i next_words(const Row* row) {
        const __m256i old =
            _mm256_xor_si256(_mm256_xor_si256(load_vector(row[-16].words), load_vector(row[-14].words)),
                             load_vector(row[-8].words));
        const __m256i mixed = _mm256_xor_si256(old, load_vector(row[-3].words));
        return _mm256_or_si256(_mm256_add_epi32(mixed, mixed), _mm256_srli_epi32(mixed, 31));
    }
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE __m256i with_constant(__m256i words, uint32_t k) {
        return _mm256_add_epi32(words, _mm256_set1_epi32(static_cast<int>(k)));
    }
};

// The round in an order of instructions that keeps the processors' execution units busy; compilers find
// slower ones.
struct Bmi2Round {
    template<size_t Quarter>
    ZUL_ALWAYS_INLINE static void round(uint32_t a, uint32_t& b, uint32_t c, uint32_t d, uint32_t& e,
                                        const uint32_t& input) {
        if constexpr (Quarter == 0) {
            // Ch(b, c, d)
            uint32_t t0, t1, t2;
            __asm__("add %[input], %[e]\n\t"
                    "rorx $27, %[a], %[t0]\n\t"
                    "mov %[b], %[t2]\n\t"
                    "andn %[d], %[b], %[t1]\n\t"
                    "and %[c], %[t2]\n\t"
                    "add %[t2], %[e]\n\t"
                    "rorx $2, %[b], %[b]\n\t"
                    "add %[t1], %[e]\n\t"
                    "add %[t0], %[e]\n\t"
                    : [b] "+&r"(b), [e] "+&r"(e), [t0] "=&r"(t0), [t1] "=&r"(t1), [t2] "=&r"(t2)
                    : [a] "r"(a), [c] "r"(c), [d] "r"(d), [input] "m"(input)
                    : "cc");
        } else if constexpr (Quarter == 2) {
            // Maj(b, c, d)
            uint32_t t0, t1, t2;
            __asm__("mov %[c], %[t2]\n\t"
                    "add %[input], %[e]\n\t"
                    "rorx $27, %[a], %[t0]\n\t"
                    "mov %[c], %[t1]\n\t"
                    "xor %[d], %[t1]\n\t"
                    "and %[d], %[t2]\n\t"
                    "add %[t2], %[e]\n\t"
                    "and %[b], %[t1]\n\t"
                    "rorx $2, %[b], %[b]\n\t"
                    "add %[t1], %[e]\n\t"
                    "add %[t0], %[e]\n\t"
                    : [b] "+&r"(b), [e] "+&r"(e), [t0] "=&r"(t0), [t1] "=&r"(t1), [t2] "=&r"(t2)
                    : [a] "r"(a), [c] "r"(c), [d] "r"(d), [input] "m"(input)
                    : "cc");
        } else {
            // Parity(b, c, d)
            uint32_t t0, t1;
            __asm__("mov %[d], %[t1]\n\t"
                    "add %[input], %[e]\n\t"
                    "xor %[c], %[t1]\n\t"
                    "xor %[b], %[t1]\n\t"
                    "rorx $2, %[b], %[b]\n\t"
                    "rorx $27, %[a], %[t0]\n\t"
                    "add %[t1], %[e]\n\t"
                    "add %[t0], %[e]\n\t"
                    : [b] "+&r"(b), [e] "+&r"(e), [t0] "=&r"(t0), [t1] "=&r"(t1)
                    : [a] "r"(a), [c] "r"(c), [d] "r"(d), [input] "m"(input)
                    : "cc");
        }
    }
};

// The rounds of a group of blocks.
struct Rounds {
    using Schedules = LaneSchedules<Schedule>;

    template<bool weave>
    __attribute__((noinline)) ZUL_TARGET_AVX2 static void run(uint32_t* state, const Schedules::Row* rows,
                                                              size_t blocks, Schedules& schedules) {
        for (const uint32_t *input = rows->inputs, *end = input + blocks; input != end; input++) {
            Sha1Variables v(state);
            quarter<weave, 0>(v, input, schedules);
            quarter<weave, 1>(v, input, schedules);
            quarter<weave, 2>(v, input, schedules);
            quarter<weave, 3>(v, input, schedules);
            v.add_to(state);
        }
    }

    template<bool weave, size_t Quarter>
    ZUL_TARGET_AVX2 static ZUL_ALWAYS_INLINE void quarter(Sha1Variables& v, const uint32_t* input,
                                                          Schedules& schedules) {
        constexpr size_t kStride = sizeof(Schedules::Row) / sizeof *input;
#pragma GCC unroll 20
        for (size_t t = 20 * Quarter; t < 20 * Quarter + 20; t++) {
            if (weave && t % 10 == 0)
                schedules.advance();
            sha1_round_at<Bmi2Round, Quarter>(t, v, input[t * kStride]);
        }
    }
};

} // namespace

ZUL_TARGET_AVX2 void sha1_compress_avx2(uint32_t state[5], const uint8_t* data, size_t blocks) {
    // Fewer blocks than this are not worth the vectors.
    constexpr size_t kLeastBlocks = 12;
    if (blocks < kLeastBlocks)
        return sha1_compress_scalar(state, data, blocks);
    compress_lanes<Schedule, Rounds>(state, data, blocks);
}

static ZUL_TARGET_SHANI ZUL_ALWAYS_INLINE Sha1Vectors absorb_block(const Sha1Vectors& before,
                                                                   const uint8_t* data) {
    auto* words = reinterpret_cast<const __m128i*>(data);
    return sha1_block(
        before, sha1_reverse_bytes(_mm_loadu_si128(words)), sha1_reverse_bytes(_mm_loadu_si128(words + 1)),
        sha1_reverse_bytes(_mm_loadu_si128(words + 2)), sha1_reverse_bytes(_mm_loadu_si128(words + 3)));
}

ZUL_TARGET_SHANI void sha1_compress_shani(uint32_t state[5], const uint8_t* data, size_t blocks) {
    Sha1Vectors vectors = sha1_load_state(state);
    for (; blocks > 0; blocks--, data += 64)
        vectors = absorb_block(vectors, data);
    sha1_store_state(state, vectors);
}

// The processor looks far enough ahead to run a block of the second message with one of the first.
ZUL_TARGET_SHANI void sha1_compress_two_shani(uint32_t first[5], const uint8_t* firstData, uint32_t second[5],
                                              const uint8_t* secondData, size_t blocks) {
    Sha1Vectors one = sha1_load_state(first), two = sha1_load_state(second);
    for (; blocks > 0; blocks--, firstData += 64, secondData += 64) {
        one = absorb_block(one, firstData);
        two = absorb_block(two, secondData);
    }
    sha1_store_state(first, one);
    sha1_store_state(second, two);
}

} // namespace zul
#endif
