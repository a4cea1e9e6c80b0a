#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

#include "platform/target.h"

// Message schedules of several blocks side by side, for kernels with AVX2: a vector register holds one word
// of each block.
namespace zul {

template<class Word>
ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE __m256i load_vector(const Word* words) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
}

template<class Word>
ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void store_vector(Word* words, __m256i vector) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), vector);
}

// transpose_words reads 32 bytes at the same place of each block; vector i receives word i of all of them.
ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void transpose_words(__m256i (&out)[8], const uint8_t* const (&blocks)[8],
                                                       size_t offset) {
    const __m256i swap =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12));
    __m256i r[8], pair[8];
#pragma GCC unroll 8
    for (size_t i = 0; i < 8; i++)
        r[i] = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(blocks[i] + offset));
#pragma GCC unroll 4
    for (size_t i = 0; i < 8; i += 2) {
        pair[i] = _mm256_unpacklo_epi32(r[i], r[i + 1]);
        pair[i + 1] = _mm256_unpackhi_epi32(r[i], r[i + 1]);
    }
#pragma GCC unroll 2
    for (size_t i = 0; i < 8; i += 4) {
        r[i] = _mm256_unpacklo_epi64(pair[i], pair[i + 2]);
        r[i + 1] = _mm256_unpackhi_epi64(pair[i], pair[i + 2]);
        r[i + 2] = _mm256_unpacklo_epi64(pair[i + 1], pair[i + 3]);
        r[i + 3] = _mm256_unpackhi_epi64(pair[i + 1], pair[i + 3]);
    }
#pragma GCC unroll 4
    for (size_t i = 0; i < 4; i++) {
        out[i] = _mm256_shuffle_epi8(_mm256_permute2x128_si256(r[i], r[i + 4], 0x20), swap);
        out[i + 4] = _mm256_shuffle_epi8(_mm256_permute2x128_si256(r[i], r[i + 4], 0x31), swap);
    }
}

ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void transpose_words(__m256i (&out)[4], const uint8_t* const (&blocks)[4],
                                                       size_t offset) {
    const __m256i swap =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8));
    __m256i r[4], pair[4];
#pragma GCC unroll 4
    for (size_t i = 0; i < 4; i++)
        r[i] = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(blocks[i] + offset));
#pragma GCC unroll 2
    for (size_t i = 0; i < 4; i += 2) {
        pair[i] = _mm256_unpacklo_epi64(r[i], r[i + 1]);
        pair[i + 1] = _mm256_unpackhi_epi64(r[i], r[i + 1]);
    }
#pragma GCC unroll 2
    for (size_t i = 0; i < 2; i++) {
        out[i] = _mm256_shuffle_epi8(_mm256_permute2x128_si256(pair[i], pair[i + 2], 0x20), swap);
        out[i + 2] = _mm256_shuffle_epi8(_mm256_permute2x128_si256(pair[i], pair[i + 2], 0x31), swap);
    }
}

// LaneSchedules holds the schedules of two groups of blocks: while the rounds of one are running, the rows of
// the other are made, a few at a time; the rounds depend on each other so closely that they leave room for
// it. The message in it is wiped at its end. A Schedule has
//   Word, kLanes, kRows        the size of a row and the number of rows, one for each round
//   next_words(row)            the words that follow the 16 rows before row
//   with_constant(words, k)    the words with the round constant k added
//   kConstants                 the round constants
template<class Schedule>
class LaneSchedules {
  public:
    using Word = typename Schedule::Word;
    static constexpr size_t kLanes = Schedule::kLanes;
    static constexpr size_t kRows = Schedule::kRows;
    static constexpr size_t kBlockSize = 16 * sizeof(Word);

    // The words of a round, as they come from the message and with the round constant added. The cursor into
    // them and the one into the constants are all that making a row takes: the rounds leave few registers
    // free.
    struct Row {
        Word words[kLanes], inputs[kLanes];
    };

    LaneSchedules() = default;
    LaneSchedules(const LaneSchedules&) = delete;
    LaneSchedules& operator=(const LaneSchedules&) = delete;
    // Wipes by whole vectors: with some thousand bytes in every call, however short its message, wipe_bytes
    // would show.
    ZUL_TARGET_AVX2 ~LaneSchedules() {
        for (auto& group : rows_) {
            for (Row& row : group) {
                store_vector(row.words, _mm256_setzero_si256());
                store_vector(row.inputs, _mm256_setzero_si256());
            }
        }
        __asm__ volatile("" : : "r"(rows_) : "memory"); // so that the stores are not dropped
    }

    // begin makes the first 16 rows of the next group, of 1 to kLanes blocks. In a group that is not full
    // some lanes repeat its last block.
    ZUL_TARGET_AVX2 void begin(const uint8_t* data, size_t blocks) {
        const uint8_t* lanes[kLanes];
        for (size_t i = 0; i < kLanes; i++)
            lanes[i] = data + std::min(i, blocks - 1) * kBlockSize;
        current_ ^= 1;
        Row* row = rows_[current_];
        const Word* constant = Schedule::kConstants;
        for (size_t t = 0; t < 16; t += kLanes) {
            __m256i words[kLanes];
            transpose_words(words, lanes, t * sizeof(Word));
#pragma GCC unroll 8
            for (size_t i = 0; i < kLanes; i++)
                put(*row++, words[i], *constant++);
        }
        next_ = row;
        constant_ = constant;
    }

    // advance makes one row more; kRows - 16 of them make the group complete.
    ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void advance() {
        put(*next_, Schedule::next_words(next_), *constant_);
        next_++;
        constant_++;
    }

    // rows gives those of the group that began last.
    const Row* rows() const {
        return rows_[current_];
    }

  private:
    ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE static void put(Row& row, __m256i words, Word constant) {
        store_vector(row.words, words);
        store_vector(row.inputs, Schedule::with_constant(words, constant));
    }

    // Not side by side: the compiler would advance both in one vector register, which takes longer.
    Row* next_ = nullptr;
    size_t current_ = 0;
    const Word* constant_ = nullptr;
    Row rows_[2][kRows];
};

// compress_lanes absorbs whole blocks. Rounds::run<weave>(state, rows, blocks, schedules) runs the rounds of
// the first blocks lanes of the rows; if weave, it also advances schedules by (kRows - 16) / kLanes rows with
// each.
template<class Schedule, class Rounds, class Word = typename Schedule::Word>
ZUL_TARGET_AVX2 ZUL_ALWAYS_INLINE void compress_lanes(Word* state, const uint8_t* data, size_t blocks) {
    constexpr size_t kLanes = Schedule::kLanes;
    LaneSchedules<Schedule> schedules;
    schedules.begin(data, std::min(blocks, kLanes));
    for (size_t i = 16; i < Schedule::kRows; i++)
        schedules.advance();
    for (; blocks > kLanes; blocks -= kLanes) {
        const auto* rows = schedules.rows();
        data += kLanes * schedules.kBlockSize;
        schedules.begin(data, std::min(blocks - kLanes, kLanes));
        Rounds::template run<true>(state, rows, kLanes, schedules);
    }
    Rounds::template run<false>(state, schedules.rows(), blocks, schedules);
}

} // namespace zul
