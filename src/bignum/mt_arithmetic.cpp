#include <algorithm>
#include <utility>

#include "bignum/mp_scratch.h"
#include "bignum/mt.h"

namespace zul {

namespace {

// widen makes room for as many digits in every operand as the longest has; their values and ndigits stay.
template<class... Operands>
size_t widen(Operands... operands) {
    const size_t n = std::max({operands->ndigits...});
    (mt_resize(operands, n), ...);
    return n;
}

// widen_for_power leaves room for the result 1, even if all operands are zero.
template<class... Operands>
size_t widen_for_power(Operands... operands) {
    const size_t n = std::max({size_t{1}, operands->ndigits...});
    (mt_resize(operands, n), ...);
    return n;
}

// settle counts the digits of a result that has been written over n digits.
void settle(MT w, size_t n) {
    w->ndigits = mpSizeof(w->digits, n);
}

// The short forms take an operand without digits as one zero digit.
size_t short_size(MT u) {
    const size_t n = std::max<size_t>(u->ndigits, 1);
    mt_resize(u, n);
    return n;
}

} // namespace

// Operands are widened before the result is resized: a result that is not an operand is cut to that length,
// and one that is an operand is no longer than that.

DIGIT_T mtShortAdd(MT w, MT u, DIGIT_T d) {
    const size_t n = short_size(u);
    mt_resize(w, n + 1);
    const DIGIT_T carry = mpShortAdd(w->digits, u->digits, d, n);
    w->digits[n] = carry;
    w->ndigits = n + carry;
    return carry;
}

DIGIT_T mtShortSub(MT w, MT u, DIGIT_T d) {
    const size_t n = short_size(u);
    mt_resize(w, n);
    const DIGIT_T borrow = mpShortSub(w->digits, u->digits, d, n);
    w->ndigits = n;
    return borrow;
}

DIGIT_T mtShortMult(MT w, MT u, DIGIT_T d) {
    const size_t n = short_size(u);
    mt_resize(w, n + 1);
    const DIGIT_T overflow = mpShortMult(w->digits, u->digits, d, n);
    w->digits[n] = overflow;
    settle(w, n + 1);
    return overflow;
}

DIGIT_T mtShortMod(MT r, const MtNumber* u, DIGIT_T d) {
    const DIGIT_T rest = mpShortMod(u->digits, d, u->ndigits);
    mtSetShort(r, rest);
    return rest;
}

int mtDecrement(MT b) {
    mtShortSub(b, b, 1);
    return 0;
}

DIGIT_T mtAdd(MT w, MT u, MT v) {
    if (v->ndigits == 1)
        return mtShortAdd(w, u, v->digits[0]);
    const size_t n = widen(u, v);
    mt_resize(w, n + 1);
    const DIGIT_T carry = mpAdd(w->digits, u->digits, v->digits, n);
    w->digits[n] = carry;
    settle(w, n + 1);
    return carry;
}

DIGIT_T mtSubtract(MT w, MT u, MT v) {
    if (v->ndigits == 1)
        return mtShortSub(w, u, v->digits[0]);
    const size_t n = widen(u, v);
    mt_resize(w, n);
    const DIGIT_T borrow = mpSubtract(w->digits, u->digits, v->digits, n);
    settle(w, n);
    return borrow;
}

int mtMultiply(MT w, MT u, MT v) {
    if (v->ndigits == 1) {
        mtShortMult(w, u, v->digits[0]);
        return 0;
    }
    if (w == u || w == v) {
        BigInt product;
        mtMultiply(product, u, v);
        std::swap(*w, *static_cast<MT>(product));
        return 0;
    }
    const size_t n = widen(u, v);
    mt_resize(w, 2 * n);
    if (u == v)
        mpSquare(w->digits, u->digits, n);
    else
        mpMultiply(w->digits, u->digits, v->digits, n);
    settle(w, 2 * n);
    return 0;
}

int mtModulo(MT r, MT u, MT m) {
    const size_t n = widen(u, m);
    mt_resize(r, n);
    mpModulo(r->digits, u->digits, n, m->digits, n);
    settle(r, n);
    return 0;
}

int mtShiftRight(MT a, MT b, size_t bits) {
    const size_t n = b->ndigits;
    mt_resize(a, n);
    mpShiftRight(a->digits, b->digits, bits, n);
    settle(a, n);
    return 0;
}

int mtModMult(MT a, MT x, MT y, MT m) {
    const size_t n = widen(x, y, m);
    mt_resize(a, n);
    mpModMult(a->digits, x->digits, y->digits, m->digits, n);
    settle(a, n);
    return 0;
}

int mtModExp(MT y, MT x, MT e, MT m) {
    const size_t n = widen_for_power(x, e, m);
    mt_resize(y, n);
    mpModExp(y->digits, x->digits, e->digits, m->digits, n);
    settle(y, n);
    return 0;
}

void mtModExpPair(const MtPower& a, const MtPower& b) {
    const size_t n = widen_for_power(a.x, a.e, a.m, b.x, b.e, b.m);
    mt_resize(a.y, n);
    mt_resize(b.y, n);
    mpModExpPair({a.y->digits, a.x->digits, a.e->digits, a.m->digits},
                 {b.y->digits, b.x->digits, b.e->digits, b.m->digits}, n);
    settle(a.y, n);
    settle(b.y, n);
}

int mtModInv(MT inv, MT u, MT m) {
    const size_t n = widen(u, m);
    mt_resize(inv, n);
    const int none = mpModInv(inv->digits, u->digits, m->digits, n);
    settle(inv, n);
    return none;
}

int mtGcd(MT g, MT x, MT y) {
    const size_t n = widen(x, y);
    mt_resize(g, n);
    mpGcd(g->digits, x->digits, y->digits, n);
    settle(g, n);
    return 0;
}

int mtRabinMiller(MT w, size_t t) {
    return mpRabinMiller(w->digits, w->ndigits, t);
}

} // namespace zul
