#pragma once
#include <utility>

#include "bignum/mp_limb.h"

#if ZUL_X86_64
#include <immintrin.h>

// Multiplication modulo N with the 52-bit multiplier of AVX-512 IFMA.
//
// A residue has L limbs of 51 bits, r = 2^51, in vectors of eight. Its limbs may reach a little above r,
// which the multiplier has room for (52 bits): a column sum is brought back by one carry step over all
// columns at once, and no carry ever has to run through. A product has its low 52 bits in its own column and
// its high ones, doubled (2^52 = 2r), in the next.
//
// N is shifted left until it has 51(L - 1) + 16 bits. A product T is reduced by long division with a single
// quotient digit as long as N:
//   U = T / r^(L-1)                the columns L - 1 to 2L - 2
//   Q = U * V / r^L                V = floor((r^(2L-1) - 1) / N)
//   R = T - (Q - 1) * N            modulo r^L, as T + Q * (r^L - N) + N
// Q is never too large, as U, V and the columns of U * V only lack something. It is below T / N by less than
// 1 + 2^-13: of U * V the columns below L - 1 are left out, which come to less than 6L units of column L - 1,
// and then that column itself, 1 together; U lacks less than 1.1, times V / r^L < 2^-14; V lacks at most 1,
// times T / r^(2L-1) < 2^-14. So N <= R < 3N. T < 9 N^2 < 2^36 r^(2L-2) and
// Q < 9N: U, V and Q end with limb L - 1.
//
// A column is a sum of at most L low halves (below 2^52) and L doubled high ones (2^51 and next to nothing),
// less than 2L * 2^52, and in R, where the columns of T join, less than 4L * 2^52. For L <= 128 its carry is
// below 2^10, a limb after the carry step below r + 2^10. The highest limb of R must be exact, because what
// is carried out of it is dropped: N has 16 bits in it and R is not below N, so that adding the carry does
// not wrap it.
namespace zul {

template<size_t L>
struct alignas(64) IfmaModulus {
    static_assert(L <= 128);
    static constexpr size_t kLimbBits = 51;
    static constexpr size_t kVectors = (L + 7) / 8;
    static constexpr size_t kSize = 8 * kVectors;       // limbs of a residue in memory ...
    static constexpr size_t kOffset = kSize - L;        // ... of which so many are zeros at the low end
    static constexpr size_t kColumns = (2 * L + 7) / 8; // vectors of a product
    static constexpr size_t kBits = kLimbBits * (L - 1) + 16;

    // V and r^L - N. Entry s serves the rows whose limb 0 would fall into lane s of a vector: of V, lane l of
    // vector d is limb L - 1 - 8d + l - s; of r^L - N, limb 8d + l - s.
    uint64_t reciprocal[8][8 * (L / 8 + 1)];
    uint64_t negative[8][kSize];
    uint64_t modulus[kSize]; // N as a residue
    uint64_t product[8 * kColumns];
    uint64_t quotient[kSize + 8];
};

using Lanes = __m512i;

// Thousands of straight-line instructions at fixed places would take minutes to build with checks on each.
#define ZUL_IFMA_BODY ZUL_TARGET_IFMA __attribute__((no_sanitize("address", "undefined")))
#define ZUL_IFMA ZUL_IFMA_BODY ZUL_ALWAYS_INLINE

// The lanes from position c on of low followed by high.
ZUL_IFMA Lanes lanes_from(Lanes high, Lanes low, size_t c) {
    switch (c) {
    case 1:
        return _mm512_alignr_epi64(high, low, 1);
    case 2:
        return _mm512_alignr_epi64(high, low, 2);
    case 3:
        return _mm512_alignr_epi64(high, low, 3);
    case 4:
        return _mm512_alignr_epi64(high, low, 4);
    case 5:
        return _mm512_alignr_epi64(high, low, 5);
    case 6:
        return _mm512_alignr_epi64(high, low, 6);
    case 7:
        return _mm512_alignr_epi64(high, low, 7);
    default:
        return c == 0 ? low : high;
    }
}

// Vectors in a row; beyond its ends there are zeros.
template<size_t K>
struct LaneRow {
    Lanes at[K];

    ZUL_IFMA void clear() {
#pragma GCC unroll 32
        for (size_t k = 0; k < K; k++)
            at[k] = _mm512_setzero_si512();
    }
    // The eight lanes that begin at position 8k + c, c from -7 to 7.
    ZUL_IFMA Lanes window(ptrdiff_t k, ptrdiff_t c) const {
        const ptrdiff_t first = c < 0 ? k - 1 : k;
        return lanes_from(vector(first + 1), vector(first), static_cast<size_t>(c < 0 ? c + 8 : c));
    }
    ZUL_IFMA Lanes vector(ptrdiff_t k) const {
        return k < 0 || k >= static_cast<ptrdiff_t>(K) ? _mm512_setzero_si512() : at[k];
    }
};

// The low or high halves of the products, added to sums.at[k].
template<bool kHigh, size_t K>
ZUL_IFMA void add_products(LaneRow<K>& sums, size_t k, Lanes a, Lanes b) {
    sums.at[k] = kHigh ? _mm512_madd52hi_epu64(sums.at[k], a, b) : _mm512_madd52lo_epu64(sums.at[k], a, b);
}

template<bool kHigh, size_t K>
ZUL_IFMA void add_products(LaneRow<K>& sums, size_t k, Lanes a, Lanes b, __mmask8 where) {
    sums.at[k] = kHigh ? _mm512_mask_madd52hi_epu64(sums.at[k], where, a, b)
                       : _mm512_mask_madd52lo_epu64(sums.at[k], where, a, b);
}

// One carry step over all columns.
template<size_t K>
ZUL_IFMA void carry_step(LaneRow<K>& x) {
    const Lanes mask = _mm512_set1_epi64((int64_t{1} << 51) - 1);
    LaneRow<K> carry;
#pragma GCC unroll 32
    for (size_t k = 0; k < K; k++)
        carry.at[k] = _mm512_srli_epi64(x.at[k], 51);
#pragma GCC unroll 32
    for (size_t k = 0; k < K; k++)
        x.at[k] =
            _mm512_add_epi64(_mm512_and_si512(x.at[k], mask), carry.window(static_cast<ptrdiff_t>(k), -1));
}

ZUL_IFMA Lanes broadcast(const uint64_t* limb) {
    return _mm512_set1_epi64(static_cast<int64_t>(*limb));
}

template<size_t K>
ZUL_IFMA void load_lanes(LaneRow<K>& x, const uint64_t* from) {
#pragma GCC unroll 32
    for (size_t k = 0; k < K; k++)
        x.at[k] = _mm512_load_si512(from + 8 * k);
}

template<size_t K>
ZUL_IFMA void store_lanes(uint64_t* to, const LaneRow<K>& x) {
#pragma GCC unroll 32
    for (size_t k = 0; k < K; k++)
        _mm512_store_si512(to + 8 * k, x.at[k]);
}

// What has just been stored is read again limb by limb: loads that broadcast are cheaper than the shuffles
// that a compiler would make of it.
ZUL_ALWAYS_INLINE void read_again_from_memory() {
    __asm__ volatile("" ::: "memory");
}

// The rows of Q = U * V / r^L: lane 0 is column L - 1, and row i fills the lanes 0 to i with low halves, 0 to
// i + 1 with high ones. Several sets of sums keep the rows from waiting for each other.
template<size_t L, size_t I, size_t K>
ZUL_IFMA void quotient_row(const IfmaModulus<L>& m, LaneRow<K>& low, LaneRow<K>& high) {
    const Lanes limb = broadcast(m.product + L - 1 + I);
#pragma GCC unroll 32
    for (size_t k = 0; k <= I / 8; k++)
        add_products<false>(low, k, limb, _mm512_load_si512(m.reciprocal[I % 8] + 8 * (I / 8 - k)));
#pragma GCC unroll 32
    for (size_t k = 0; k <= (I + 1) / 8; k++)
        add_products<true>(high, k, limb,
                           _mm512_load_si512(m.reciprocal[(I + 1) % 8] + 8 * ((I + 1) / 8 - k)));
}

// The rows of Q * (r^L - N) modulo r^L: row i fills the lanes from kOffset + i to the end.
template<size_t L, size_t I, size_t K>
ZUL_IFMA void remainder_row(const IfmaModulus<L>& m, LaneRow<K>& low, LaneRow<K>& high) {
    constexpr size_t kLane = I + IfmaModulus<L>::kOffset;
    const Lanes limb = broadcast(m.quotient + 1 + I);
#pragma GCC unroll 32
    for (size_t k = kLane / 8; k < K; k++)
        add_products<false>(low, k, limb, _mm512_load_si512(m.negative[kLane % 8] + 8 * (k - kLane / 8)));
#pragma GCC unroll 32
    for (size_t k = (kLane + 1) / 8; k < K; k++)
        add_products<true>(high, k, limb,
                           _mm512_load_si512(m.negative[(kLane + 1) % 8] + 8 * (k - (kLane + 1) / 8)));
}

constexpr size_t kSumSets = 4;

template<size_t K>
using SumSets = LaneRow<K>[kSumSets];

template<size_t L, size_t K, size_t... I>
ZUL_IFMA void quotient_rows(const IfmaModulus<L>& m, SumSets<K>& sums, std::index_sequence<I...>) {
    (quotient_row<L, I>(m, sums[I % 2], sums[2 + I % 2]), ...);
}

template<size_t L, size_t K, size_t... I>
ZUL_IFMA void remainder_rows(const IfmaModulus<L>& m, SumSets<K>& sums, std::index_sequence<I...>) {
    (remainder_row<L, I>(m, sums[I % 2], sums[2 + I % 2]), ...);
}

// High halves count twice.
template<size_t K>
ZUL_IFMA LaneRow<K> join(const SumSets<K>& sums) {
    LaneRow<K> all;
#pragma GCC unroll 32
    for (size_t k = 0; k < K; k++) {
        const Lanes high = _mm512_add_epi64(sums[2].at[k], sums[3].at[k]);
        all.at[k] =
            _mm512_add_epi64(_mm512_add_epi64(sums[0].at[k], sums[1].at[k]), _mm512_add_epi64(high, high));
    }
    return all;
}

template<size_t K>
ZUL_IFMA void clear(SumSets<K>& sums) {
#pragma GCC unroll 4
    for (size_t i = 0; i < 4; i++)
        sums[i].clear();
}

// A product of two residues, the rows of which are added for some of the column vectors at a time.
template<size_t L, bool kSquare>
struct IfmaProduct {
    using Modulus = IfmaModulus<L>;
    static constexpr size_t kVectors = Modulus::kVectors, kOffset = Modulus::kOffset;
    static constexpr size_t kColumns = Modulus::kColumns;

    const uint64_t* a;
    LaneRow<kVectors> b;
    LaneRow<kColumns> low, high;
    LaneRow<2 * kVectors> squares;

    ZUL_IFMA IfmaProduct(const uint64_t* left, const uint64_t* right) : a(left) {
        load_lanes(b, right);
        low.clear();
        high.clear();
        if constexpr (kSquare)
            square_limbs();
    }

    // All rows, for the columns of the vectors kFrom to kTo - 1.
    template<size_t kFrom, size_t kTo>
    ZUL_IFMA void add_rows() {
        shifts<kFrom, kTo>(std::make_index_sequence<8>());
    }

    ZUL_IFMA Lanes column(size_t k) const {
        const Lanes sum = _mm512_add_epi64(low.at[k], _mm512_add_epi64(high.at[k], high.at[k]));
        if constexpr (!kSquare)
            return sum;
        return _mm512_add_epi64(_mm512_add_epi64(sum, sum),
                                squares.window(static_cast<ptrdiff_t>(k + 2 * kOffset / 8), 2 * kOffset % 8));
    }

  private:
    // The squares of the limbs, low half and doubled high half side by side, from lane 2 * kOffset on.
    ZUL_IFMA void square_limbs() {
        const Lanes lowHalf = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
        const Lanes highHalf = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
        const Lanes zero = _mm512_setzero_si512();
#pragma GCC unroll 32
        for (size_t k = 0; k < kVectors; k++) {
            const Lanes lows = _mm512_madd52lo_epu64(zero, b.at[k], b.at[k]);
            Lanes highs = _mm512_madd52hi_epu64(zero, b.at[k], b.at[k]);
            highs = _mm512_add_epi64(highs, highs);
            squares.at[2 * k] = _mm512_permutex2var_epi64(lows, lowHalf, highs);
            squares.at[2 * k + 1] = _mm512_permutex2var_epi64(lows, highHalf, highs);
        }
    }

    template<size_t kFrom, size_t kTo, size_t... S>
    ZUL_IFMA void shifts(std::index_sequence<S...>) {
        (shifted_rows<kFrom, kTo, S>(std::make_index_sequence<kVectors>()), ...);
    }

    // b moved to begin in lane S, S from 0 to 8.
    template<size_t S>
    ZUL_IFMA LaneRow<kVectors + 1> shifted() const {
        LaneRow<kVectors + 1> moved;
#pragma GCC unroll 32
        for (size_t k = 0; k <= kVectors; k++)
            moved.at[k] = b.window(static_cast<ptrdiff_t>(k),
                                   static_cast<ptrdiff_t>(kOffset) - static_cast<ptrdiff_t>(S % 8));
        return moved;
    }

    // The rows S, S + 8, S + 16 ..., which share the operand that they move.
    template<size_t kFrom, size_t kTo, size_t S, size_t... J>
    ZUL_IFMA void shifted_rows(std::index_sequence<J...>) {
        const LaneRow<kVectors + 1> lows = shifted<S>(), highs = shifted<S + 1>();
        (row<kFrom, kTo, S + 8 * J>(lows, highs), ...);
    }

    template<size_t kFrom, size_t kTo, size_t I>
    ZUL_IFMA void row(const LaneRow<kVectors + 1>& lows, const LaneRow<kVectors + 1>& highs) {
        if constexpr (I < L) {
            const Lanes limb = broadcast(a + kOffset + I);
            half_row<kFrom, kTo, I, I, false>(low, limb, lows);
            half_row<kFrom, kTo, I + 1, I, true>(high, limb, highs);
        }
    }

    // The halves of row I, whose limb 0 falls into lane kShift. A row of a square has the products with the
    // higher limbs alone.
    template<size_t kFrom, size_t kTo, size_t kShift, size_t I, bool kHigh>
    ZUL_IFMA void half_row(LaneRow<kColumns>& sums, Lanes limb, const LaneRow<kVectors + 1>& moved) {
        constexpr size_t kLane = kSquare ? kShift + I + 1 : kShift;
        constexpr size_t kFirst = kLane / 8 > kFrom ? kLane / 8 : kFrom;
        constexpr size_t kEnd = (kShift + L - 1) / 8 + 1 < kTo ? (kShift + L - 1) / 8 + 1 : kTo;
#pragma GCC unroll 32
        for (size_t k = kFirst; k < kEnd; k++) {
            const Lanes other = moved.at[k - kShift / 8];
            if (kSquare && k == kLane / 8 && kLane % 8 != 0)
                add_products<kHigh>(sums, k, limb, other, static_cast<__mmask8>(0xFF << kLane % 8));
            else
                add_products<kHigh>(sums, k, limb, other);
        }
    }
};

// z = a * b mod N, up to a small multiple of N; z may be a or b. For a square, a = b.
template<size_t L, bool kSquare>
ZUL_IFMA_BODY void ifma_multiply(IfmaModulus<L>& m, uint64_t* z, const uint64_t* a, const uint64_t* b) {
    using Modulus = IfmaModulus<L>;
    constexpr size_t kVectors = Modulus::kVectors, kOffset = Modulus::kOffset, kColumns = Modulus::kColumns;
    // The columns that U is made of come first; the others fill the time that U and Q take through memory.
    constexpr size_t kSplit = (L - 2) / 8;
    IfmaProduct<L, kSquare> product(a, b);
    product.template add_rows<kSplit, kColumns>();
    LaneRow<kColumns - kSplit> u;
#pragma GCC unroll 32
    for (size_t k = kSplit; k < kColumns; k++)
        u.at[k - kSplit] = product.column(k);
    carry_step(u);
    store_lanes(m.product + 8 * kSplit, u);
    read_again_from_memory();

    product.template add_rows<0, kSplit / 2>();
    LaneRow<L / 8 + 1> quotient[kSumSets];
    clear(quotient);
    quotient_rows(m, quotient, std::make_index_sequence<L>());
    LaneRow<L / 8 + 1> q = join(quotient); // limb i in lane i + 1
    carry_step(q);
    store_lanes(m.quotient, q);
    read_again_from_memory();

    product.template add_rows<kSplit / 2, kSplit>();
    LaneRow<kVectors> low;
#pragma GCC unroll 32
    for (size_t k = 0; k < kVectors; k++)
        low.at[k] = product.column(k);
    LaneRow<kVectors> remainder[kSumSets];
    clear(remainder);
#pragma GCC unroll 32
    for (size_t k = 0; k < kVectors; k++)
        remainder[0].at[k] =
            _mm512_add_epi64(low.window(static_cast<ptrdiff_t>(k), -static_cast<ptrdiff_t>(kOffset)),
                             _mm512_load_si512(m.modulus + 8 * k));
    remainder_rows(m, remainder, std::make_index_sequence<L>());
    LaneRow<kVectors> r = join(remainder);
    carry_step(r);
    store_lanes(z, r);
}

} // namespace zul
#endif
