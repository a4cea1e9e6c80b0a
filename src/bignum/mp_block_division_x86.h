#pragma once
#include "bignum/mp_limb.h"

#if ZUL_X86_64
namespace zul {

// A divisor N of n limbs, n a multiple of 8 and the highest bit set, made ready for long division with
// quotient digits of eight limbs. All of it lies in limbs that the caller owns and wipes.
struct BlockDivisor {
    static constexpr size_t kGuardedLimbs = 9; // of a quotient digit: the lowest is the guard
    static constexpr size_t kStateLimbs = kGuardedLimbs + 8;

    size_t n;
    const Limb* divisor;
    Limb* negative; // B^n - N
    Limb* state;    // floor((B^(n + 9) - 1) / N) - B^9, then the quotient digit at work
    LimbReciprocal reciprocal;
    void (*reduce)(const BlockDivisor& by, Limb* w);
};

// block_divisor: negative has n limbs, state kStateLimbs; scratch of n + 9 limbs is used.
BlockDivisor block_divisor(const Limb* divisor, size_t n, Limb* negative, Limb* state, Limb* scratch);

// block_reduce divides the 2n limbs of w, the n highest of them less than N; the remainder is left in the n
// low limbs, the others hold nothing of use.
inline void block_reduce(const BlockDivisor& by, Limb* w) {
    by.reduce(by, w);
}

} // namespace zul
#endif
