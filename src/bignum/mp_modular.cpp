#include <algorithm>
#include <utility>

#include "bignum/mp.h"
#include "bignum/mp_portable.h"
#include "bignum/mp_scratch.h"

namespace zul {

namespace {

// The two numbers of Euclid's algorithm. divide is one step of it: (u, v) = (v, u mod v), and q = u div v if
// q is not null.
struct Remainders {
    DIGIT_T *u, *v;
    size_t un, vn; // significant digits

    void divide(DIGIT_T* q, DIGIT_T* scratch) {
        mp_divide_with(q, u, u, un, v, vn, scratch);
        un = mpSizeof(u, std::min(un, vn));
        std::swap(u, v);
        std::swap(un, vn);
    }
};

} // namespace

void mpModMult(DIGIT_T* a, const DIGIT_T* x, const DIGIT_T* y, const DIGIT_T* m, size_t n) {
    MpScratch scratch(2 * n);
    DIGIT_T* product = scratch.take(2 * n);
    if (x == y)
        mpSquare(product, x, n);
    else
        mpMultiply(product, x, y, n);
    mpModulo(a, product, 2 * n, m, n);
}

// The signs of the coefficients alternate from step to step, so the parity of the step gives them. No
// coefficient exceeds v.
int mpModInv(DIGIT_T* inv, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    MpScratch scratch(6 * n);
    Remainders r{scratch.take(n), scratch.take(n), mpSizeof(u, n), mpSizeof(v, n)};
    mpSetEqual(r.u, u, n);
    mpSetEqual(r.v, v, n);
    DIGIT_T *a = scratch.take(n), *b = scratch.take(n), *q = scratch.take(n), *work = scratch.take(n);
    mpSetDigit(a, 1, n);
    bool negative = false;
    for (; r.vn > 0; negative = !negative) {
        const size_t qn = r.un;
        r.divide(q, work);
        mp_add_product(a, b, mpSizeof(b, n), q, mpSizeof(q, qn), n);
        std::swap(a, b);
    }
    if (mpShortCmp(r.u, 1, r.un) != 0) {
        mpSetZero(inv, n);
        return 1;
    }
    if (negative)
        mpSubtract(inv, v, a, n);
    else
        mpSetEqual(inv, a, n);
    return 0;
}

int mpGcd(DIGIT_T* g, const DIGIT_T* x, const DIGIT_T* y, size_t n) {
    MpScratch scratch(3 * n);
    Remainders r{scratch.take(n), scratch.take(n), mpSizeof(x, n), mpSizeof(y, n)};
    mpSetEqual(r.u, x, n);
    mpSetEqual(r.v, y, n);
    DIGIT_T* work = scratch.take(n);
    while (r.vn > 0)
        r.divide(nullptr, work);
    mpSetEqual(g, r.u, r.un);
    mpSetZero(g + r.un, n - r.un);
    return 0;
}

} // namespace zul
