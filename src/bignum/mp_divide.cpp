// Division: Knuth, The Art of Computer Programming, volume 2, section 4.3.1, Algorithm D.
#include <algorithm>

#include "bignum/mp.h"
#include "bignum/mp_portable.h"
#include "bignum/mp_scratch.h"

namespace zul {

namespace {

// estimate gives the digit of the quotient: right or one too big. The three highest digits of the remainder
// are u2, u1, u0, those of the divisor v1, v0.
DIGIT_T estimate(DIGIT_T u2, DIGIT_T u1, DIGIT_T u0, DIGIT_T v1, DIGIT_T v0) {
    uint64_t guess = kMaxDigit;
    uint64_t rest = uint64_t{u1} + v1;
    if (u2 < v1) {
        const uint64_t high = uint64_t{u2} << kDigitBits | u1;
        guess = high / v1;
        rest = high % v1;
    }
    // At most two rounds: a remainder of more than one digit ends the loop.
    while (rest <= kMaxDigit && guess * v0 > (rest << kDigitBits | u0)) {
        guess--;
        rest += v1;
    }
    return static_cast<DIGIT_T>(guess);
}

// subtract_product: r -= v * d over n digits; the borrow from the digit that follows is returned.
// It adds to the complement of r, which makes one chain of carries where a product and a subtraction had two.
DIGIT_T subtract_product(DIGIT_T* r, const DIGIT_T* v, DIGIT_T d, size_t n) {
    uint64_t carry = 0;
    for (size_t i = 0; i < n; i++) {
        carry += uint64_t{v[i]} * d + static_cast<DIGIT_T>(~r[i]);
        r[i] = ~static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
    }
    return static_cast<DIGIT_T>(carry);
}

} // namespace

void mp_divide_steps(DIGIT_T* q, DIGIT_T* r, DIGIT_T top, size_t un, const DIGIT_T* v, size_t vn) {
    for (size_t j = un - vn + 1; j-- > 0;) {
        DIGIT_T* part = r + j;
        DIGIT_T digit = estimate(top, part[vn - 1], part[vn - 2], v[vn - 1], v[vn - 2]);
        if (subtract_product(part, v, digit, vn) > top) {
            digit--;
            mpAdd(part, part, v, vn);
        }
        if (q != nullptr)
            q[j] = digit;
        if (j > 0) {
            top = part[vn - 1];
            part[vn - 1] = 0;
        }
    }
}

void mp_divide_with(DIGIT_T* q, DIGIT_T* r, const DIGIT_T* u, size_t un, const DIGIT_T* v, size_t vn,
                    DIGIT_T* scratch) {
    if (un < vn) {
        mpSetEqual(r, u, un);
        if (q != nullptr)
            mpSetZero(q, un);
        return;
    }
    if (vn == 1) {
        const DIGIT_T rest = q != nullptr ? mpShortDiv(q, u, v[0], un) : mpShortMod(u, v[0], un);
        mpSetDigit(r, rest, un);
        return;
    }
    const auto shift = static_cast<size_t>(__builtin_clz(v[vn - 1]));
    if (shift > 0) {
        mpShiftLeft(scratch, v, shift, vn);
        v = scratch;
    }
    if (q != nullptr)
        mpSetZero(q + (un - vn + 1), vn - 1);
    const DIGIT_T top = mpShiftLeft(r, u, shift, un);
    mp_divide_steps(q, r, top, un, v, vn);
    mpShiftRight(r, r, shift, vn);
}

int mpDivide(DIGIT_T* q, DIGIT_T* r, const DIGIT_T* u, size_t udigits, const DIGIT_T* v, size_t vdigits) {
    const size_t un = mpSizeof(u, udigits);
    const size_t vn = mpSizeof(v, vdigits);
    mpSetZero(q, udigits);
    mpSetZero(r, udigits);
    if (vn == 0)
        return -1;
    MpScratch scratch(vn);
    mp_divide_with(q, r, u, un, v, vn, scratch.take(vn));
    return 0;
}

void mpModulo(DIGIT_T* r, const DIGIT_T* u, size_t udigits, const DIGIT_T* v, size_t vdigits) {
    const size_t un = mpSizeof(u, udigits);
    const size_t vn = mpSizeof(v, vdigits);
    if (vn == 0) {
        mpSetZero(r, vdigits);
        return;
    }
    MpScratch scratch(un + vn);
    DIGIT_T* rest = scratch.take(un);
    mp_divide_with(nullptr, rest, u, un, v, vn, scratch.take(vn));
    const size_t size = std::min(un, vn);
    mpSetEqual(r, rest, size);
    mpSetZero(r + size, vdigits - size);
}

DIGIT_T mpShortDiv(DIGIT_T* q, const DIGIT_T* u, DIGIT_T d, size_t n) {
    if (d == 0)
        return 0;
    uint64_t rest = 0;
    while (n-- > 0) {
        rest = rest << kDigitBits | u[n];
        q[n] = static_cast<DIGIT_T>(rest / d);
        rest %= d;
    }
    return static_cast<DIGIT_T>(rest);
}

DIGIT_T mpShortMod(const DIGIT_T* a, DIGIT_T d, size_t n) {
    if (d == 0)
        return 0;
    uint64_t rest = 0;
    while (n-- > 0)
        rest = (rest << kDigitBits | a[n]) % d;
    return static_cast<DIGIT_T>(rest);
}

} // namespace zul
