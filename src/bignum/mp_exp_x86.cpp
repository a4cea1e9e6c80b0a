// Modular exponentiation on 64-bit limbs.
#include "bignum/mp_exp_x86.h"

#if ZUL_X86_64
#include <cstring>
#include <utility>

#include "bignum/mp_block_division_x86.h"
#include "bignum/mp_limb_product_x86.h"
#include "bignum/mp_scratch.h"
#include "bignum/mp_window.h"

namespace zul {

namespace {

// Works modulo N = m * 2^shift, which fills n limbs. What is congruent modulo N is congruent modulo m too;
// only the result has to be brought down to m.
class LimbEngine {
  public:
    LimbEngine(const DIGIT_T* x, const DIGIT_T* m, size_t digits, size_t powers)
        : digits_(digits), n_((digits + 15) / 16 * 8), scratch_(2 * scratch_limbs(n_, powers)),
          divisor_(take(n_)), square_(take(n_)), table_(take(powers * n_)), current_(take(2 * n_ + 9)),
          other_(take(2 * n_ + 9)), multiplyLimbs_(limb_multiply_for(n_)), squareLimbs_(limb_square_for(n_)) {
        const size_t zeros = n_ - (digits + 1) / 2;
        std::memcpy(divisor_ + zeros, m, digits * sizeof *m);
        bits_ = static_cast<unsigned>(__builtin_clzll(divisor_[n_ - 1]));
        limb_shift_left(divisor_, divisor_, n_, bits_);
        shiftLimbs_ = zeros;
        Limb* const negative = take(n_);
        by_ = block_divisor(divisor_, n_, negative, take(BlockDivisor::kStateLimbs), current_);
        std::memcpy(table_, x, digits * sizeof *x);
    }

    void power(size_t i) {
        if (i == 1) {
            squareLimbs_(other_, table_, n_);
            block_reduce(by_, other_);
            std::memcpy(square_, other_, n_ * sizeof *other_);
        }
        multiplyLimbs_(other_, entry(i - 1), square_, n_);
        block_reduce(by_, other_);
        std::memcpy(entry(i), other_, n_ * sizeof *other_);
    }
    void load(size_t i) { std::memcpy(current_, entry(i), n_ * sizeof *current_); }
    void square() {
        squareLimbs_(other_, current_, n_);
        finish_product();
    }
    void multiply(size_t i) {
        multiplyLimbs_(other_, current_, entry(i), n_);
        finish_product();
    }

    // (z * 2^shift) mod N = (z mod m) * 2^shift
    void result(DIGIT_T* y) {
        std::memset(other_, 0, 2 * n_ * sizeof *other_);
        other_[shiftLimbs_ + n_] = limb_shift_left(other_ + shiftLimbs_, current_, n_, bits_);
        block_reduce(by_, other_);
        limb_shift_right(other_, other_, n_, bits_);
        std::memcpy(y, other_ + shiftLimbs_, digits_ * sizeof *y);
    }

  private:
    static size_t scratch_limbs(size_t n, size_t powers) {
        return (powers + 7) * n + size_t{2} * 9 + BlockDivisor::kStateLimbs;
    }
    Limb* take(size_t limbs) { return limbs_of(scratch_.take(2 * limbs)); }
    Limb* entry(size_t i) { return table_ + i * n_; }
    void finish_product() {
        block_reduce(by_, other_);
        std::swap(current_, other_);
    }

    size_t digits_, n_;
    MpScratch scratch_;
    Limb *divisor_, *square_, *table_, *current_, *other_; // the two products take turns
    LimbMultiply multiplyLimbs_;
    LimbSquare squareLimbs_;
    unsigned bits_;
    size_t shiftLimbs_;
    BlockDivisor by_;
};

} // namespace

void mod_exp_adx(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                 size_t n) {
    LimbEngine engine(x, m, n, window_powers(exponentBits));
    window_power(engine, e, exponentBits);
    engine.result(y);
}

} // namespace zul
#endif
