// Moeller and Granlund, "Improved division by invariant integers", 2011; Knuth's Algorithm D.
#include "bignum/mp_limb.h"

namespace zul {

static WideLimb wide(Limb high, Limb low) {
    return (static_cast<WideLimb>(high) << 64) | low;
}

static Limb high_of(WideLimb x) {
    return static_cast<Limb>(x >> 64);
}

void limbs_from_digits(Limb* w, const DIGIT_T* digits, size_t n) {
    for (size_t i = 0; i < n; i += 2)
        w[i / 2] = digits[i] | (i + 1 < n ? Limb{digits[i + 1]} << kDigitBits : 0);
}

void limbs_to_digits(DIGIT_T* digits, const Limb* w, size_t n) {
    for (size_t i = 0; i < n; i++)
        digits[i] = static_cast<DIGIT_T>(w[i / 2] >> i % 2 * kDigitBits);
}

LimbReciprocal limb_reciprocal(Limb d1, Limb d0) {
    const Limb ones = ~Limb{0};
    Limb v = static_cast<Limb>(wide(~d1, ones) / d1);
    // v is the reciprocal of d1 alone: the effect of d0 on d * (B + v) is taken off it.
    Limb p = d1 * v + d0;
    if (p < d0) {
        v--;
        if (p >= d1) {
            v--;
            p -= d1;
        }
        p -= d1;
    }
    const WideLimb t = static_cast<WideLimb>(v) * d0;
    p += high_of(t);
    if (p < high_of(t)) {
        v--;
        if (wide(p, static_cast<Limb>(t)) >= wide(d1, d0))
            v--;
    }
    return {d1, d0, v};
}

// The three limbs u2, u1, u0 divided by d1, d0, for (u2, u1) below (d1, d0).
static Limb divide_3by2(Limb u2, Limb u1, Limb u0, const LimbReciprocal& by) {
    const WideLimb q = static_cast<WideLimb>(by.v) * u2 + wide(u2, u1);
    Limb q1 = high_of(q);
    const Limb r1 = u1 - q1 * by.d1;
    const WideLimb d = wide(by.d1, by.d0);
    WideLimb r = wide(r1, u0) - static_cast<WideLimb>(q1) * by.d0 - d;
    q1++;
    if (high_of(r) >= static_cast<Limb>(q)) {
        q1--;
        r += d;
    }
    if (r >= d)
        q1++;
    return q1;
}

Limb limb_divide_step(Limb* w, const Limb* d, size_t n, const LimbReciprocal& reciprocal) {
    // Equal highest limbs make the quotient B - 1.
    const bool greatest = w[n] == reciprocal.d1 && w[n - 1] == reciprocal.d0;
    Limb q = greatest ? ~Limb{0} : divide_3by2(w[n], w[n - 1], w[n - 2], reciprocal);
    // What is added to the complement of w is taken off w, with one chain of carries instead of two.
    Limb carry = 0;
#pragma GCC unroll 4
    for (size_t i = 0; i < n; i++) {
        const WideLimb sum = static_cast<WideLimb>(q) * d[i] + carry + static_cast<Limb>(~w[i]);
        w[i] = ~static_cast<Limb>(sum);
        carry = high_of(sum);
    }
    const Limb top = w[n];
    w[n] = 0;
    if (top < carry) {
        q--;
        WideLimb sum = 0;
        for (size_t i = 0; i < n; i++) {
            sum += static_cast<WideLimb>(w[i]) + d[i];
            w[i] = static_cast<Limb>(sum);
            sum >>= 64;
        }
    }
    return q;
}

void limb_divide(Limb* w, size_t size, const Limb* d, size_t n) {
    const LimbReciprocal reciprocal = limb_reciprocal(d[n - 1], d[n - 2]);
    for (size_t k = size - n; k-- > 0;)
        w[k + n] = limb_divide_step(w + k, d, n, reciprocal);
}

Limb limb_shift_left(Limb* w, const Limb* u, size_t n, unsigned bits) {
    Limb carry = 0;
    for (size_t i = 0; i < n; i++) {
        const WideLimb x = static_cast<WideLimb>(u[i]) << bits;
        w[i] = static_cast<Limb>(x) | carry;
        carry = high_of(x);
    }
    return carry;
}

void limb_shift_right(Limb* w, const Limb* u, size_t n, unsigned bits) {
    for (size_t i = 0; i < n; i++)
        w[i] = static_cast<Limb>(wide(i + 1 < n ? u[i + 1] : 0, u[i]) >> bits);
}

Limb limb_subtract(Limb* w, const Limb* u, const Limb* v, size_t n) {
    Limb borrow = 0;
    for (size_t i = 0; i < n; i++) {
        const WideLimb x = static_cast<WideLimb>(u[i]) - v[i] - borrow;
        w[i] = static_cast<Limb>(x);
        borrow = high_of(x) & 1;
    }
    return borrow;
}

} // namespace zul
