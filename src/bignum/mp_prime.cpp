// The primality test of Miller and Rabin.
#include "bignum/mp.h"
#include "bignum/mp_scratch.h"
#include "frame/weak_random.h"

namespace zul {

namespace {

// A witness from 2 to bound. The bounds 0 and 1, of the numbers 2 and 3, give 2.
DIGIT_T pick_witness(WeakRandom& random, DIGIT_T bound) {
    if (bound <= 2)
        return 2;
    const DIGIT_T range = bound - 2;
    for (;;) {
        DIGIT_T pick = 0;
        for (unsigned i = 0; i < sizeof pick; i++)
            pick = pick << 8 | random.byte();
        pick &= kMaxDigit >> __builtin_clz(range);
        if (pick <= range)
            return pick + 2;
    }
}

// The factors of two in a number that is not zero.
size_t factors_of_two(const DIGIT_T* a) {
    size_t i = 0;
    while (a[i] == 0)
        i++;
    return i * kDigitBits + static_cast<size_t>(__builtin_ctz(a[i]));
}

} // namespace

int mpRabinMiller(const DIGIT_T* w, size_t n, size_t t) {
    n = mpSizeof(w, n);
    if (mpShortCmp(w, 1, n) <= 0)
        return 0;
    WeakRandom random;
    MpScratch scratch(4 * n);
    DIGIT_T *wMinus1 = scratch.take(n), *odd = scratch.take(n), *b = scratch.take(n), *z = scratch.take(n);
    mpShortSub(wMinus1, w, 1, n);
    const size_t twos = factors_of_two(wMinus1);
    mpShiftRight(odd, wMinus1, twos, n);
    const DIGIT_T bound = n == 1 ? w[0] - 2 : kMaxDigit;

    for (; t > 0; t--) {
        do
            mpSetDigit(b, pick_witness(random, bound), n);
        while (mpCompare(b, w, n) >= 0);
        mpModExp(z, b, odd, w, n);
        bool passed = mpShortCmp(z, 1, n) == 0 || mpCompare(z, wMinus1, n) == 0;
        for (size_t j = 1; j < twos && !passed; j++) {
            mpModMult(z, z, z, w, n);
            if (mpShortCmp(z, 1, n) == 0)
                return 0;
            passed = mpCompare(z, wMinus1, n) == 0;
        }
        if (!passed)
            return 0;
    }
    return 1;
}

} // namespace zul
