#include <algorithm>

#include "bignum/mp.h"
#include "bignum/mp_exp_columns.h"
#include "bignum/mp_kernel.h"
#include "bignum/mp_portable.h"
#include "bignum/mp_scratch.h"
#include "bignum/mp_window.h"

namespace zul {

namespace {

constexpr size_t kBinaryBits = 15; // the longest exponent for which a table of powers would not pay

// For short moduli, and for a base that is not below the modulus. DigitEngine computes modulo m shifted left
// until its highest bit is set, so that no division has to normalise its divisor; only the result is reduced
// modulo m itself.
class DigitEngine {
  public:
    // x and m have n digits, of which m has size significant ones.
    DigitEngine(const DIGIT_T* x, const DIGIT_T* m, size_t size, size_t n, size_t powers)
        : m_(m), size_(size), scratch_((6 + powers) * size + n), shifted_(scratch_.take(size)),
          work_(scratch_.take(size)), square_(scratch_.take(size)), current_(scratch_.take(size)),
          product_(scratch_.take(2 * size)), table_(scratch_.take(powers * size)) {
        mpShiftLeft(shifted_, m, static_cast<size_t>(__builtin_clz(m[size - 1])), size);
        DIGIT_T* base = scratch_.take(n);
        mpSetEqual(base, x, n);
        remainder(table_, base, n, shifted_);
    }

    void power(size_t i) {
        if (i == 1)
            square_modulo(square_, table_);
        multiply_modulo(entry(i), entry(i - 1), square_);
    }
    void load(size_t i) { mpSetEqual(current_, entry(i), size_); }
    void square() { square_modulo(current_, current_); }
    void multiply(size_t i) { multiply_modulo(current_, current_, entry(i)); }
    void result(DIGIT_T* y) { remainder(y, current_, size_, m_); }

  private:
    DIGIT_T* entry(size_t i) { return table_ + i * size_; }
    void multiply_modulo(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v) {
        mp_portable_multiply(product_, u, v, size_);
        reduce_product(w);
    }
    void square_modulo(DIGIT_T* w, const DIGIT_T* x) {
        mp_portable_square(product_, x, size_);
        reduce_product(w);
    }
    void reduce_product(DIGIT_T* w) {
        if (size_ == 1) {
            w[0] = mpShortMod(product_, shifted_[0], 2);
            return;
        }
        const size_t last = 2 * size_ - 1;
        mp_divide_steps(nullptr, product_, product_[last], last, shifted_, size_);
        mpSetEqual(w, product_, size_);
    }
    // Overwrites the n digits of u.
    void remainder(DIGIT_T* w, DIGIT_T* u, size_t n, const DIGIT_T* divisor) {
        n = mpSizeof(u, n);
        mp_divide_with(nullptr, u, u, n, divisor, size_, work_);
        const size_t count = std::min(n, size_);
        mpSetEqual(w, u, count);
        mpSetZero(w + count, size_ - count);
    }

    const DIGIT_T* m_;
    size_t size_;
    MpScratch scratch_;
    DIGIT_T *shifted_, *work_, *square_, *current_, *product_, *table_;
};

void mpModExpBinary(DigitEngine& engine, const DIGIT_T* e, size_t bits) {
    engine.load(0);
    for (size_t i = bits - 1; i-- > 0;) {
        engine.square();
        if ((e[i / kDigitBits] >> i % kDigitBits & 1) != 0)
            engine.multiply(0);
    }
}

} // namespace

int mpModExp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, const DIGIT_T* m, size_t n) {
    const size_t bits = mpBitLength(e, n);
    if (bits == 0) {
        mpSetDigit(y, 1, n);
        return 1;
    }
    if (bits == 1) {
        mpSetEqual(y, x, n);
        return 1;
    }
    const size_t size = mpSizeof(m, n);
    if (size == 0) {
        mpSetZero(y, n);
        return 0;
    }
    if (size > 1 && mp_kernel_usable() && mpCompare(x, m, n) < 0) {
        mp_kernel_mod_exp(y, x, e, m, n);
        return 0;
    }

    if (mpBitLength(m, size) >= kLeastColumnBits && mpCompare(x, m, n) < 0) {
        mp_column_mod_exp(y, x, e, bits, m, size);
        mpSetZero(y + size, n - size);
        return 0;
    }

    DigitEngine engine(x, m, size, n, window_powers(bits));
    if (bits <= kBinaryBits)
        mpModExpBinary(engine, e, bits);
    else
        window_power(engine, e, bits);
    engine.result(y);
    mpSetZero(y + size, n - size);
    return 0;
}

void mpModExpPair(const MpPower& a, const MpPower& b, size_t n) {
    const size_t size = mpSizeof(a.m, n);
    const auto suits = [n, size](const MpPower& p) {
        return mpSizeof(p.m, n) == size && mpSizeof(p.e, n) <= size && mpBitLength(p.e, n) > 1 &&
               mpCompare(p.x, p.m, n) < 0;
    };
    if (size > 1 && suits(a) && suits(b) && mp_kernel_usable() && mp_kernel_mod_exp_pair(a, b, size)) {
        for (const MpPower* p : {&a, &b})
            mpSetZero(p->y + size, n - size);
        return;
    }
    mpModExp(a.y, a.x, a.e, a.m, n);
    mpModExp(b.y, b.x, b.e, b.m, n);
}

} // namespace zul
