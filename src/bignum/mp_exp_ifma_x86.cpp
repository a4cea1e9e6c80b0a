// Modular exponentiation with AVX-512 IFMA.
#include "bignum/mp_exp_x86.h"

#if ZUL_X86_64
#include <algorithm>
#include <cstring>
#include <type_traits>

#include "bignum/mp_ifma_x86.h"
#include "bignum/mp_scratch.h"
#include "bignum/mp_window.h"

namespace zul {

namespace {

template<size_t L>
class IfmaEngine {
    using Modulus = IfmaModulus<L>;
    static constexpr size_t kLimbBits = Modulus::kLimbBits, kSize = Modulus::kSize,
                            kOffset = Modulus::kOffset;
    static constexpr size_t kWide = (kLimbBits * 2 * L + 63) / 64 + 3; // 64-bit limbs that hold a product

    static constexpr size_t kZeros = 8; // before and behind the limbs that are copied in every shift

  public:
    IfmaEngine(const DIGIT_T* x, const DIGIT_T* m, size_t digits, size_t powers)
        : digits_(digits), n_((digits + 1) / 2), scratch_(2 * scratch_limbs(powers)) {
        // Vectors need a stricter alignment than the allocation guarantees.
        uint8_t* start = reinterpret_cast<uint8_t*>(scratch_.take(2 * scratch_limbs(powers)));
        start += -reinterpret_cast<uintptr_t>(start) % 64;
        modulus_ = reinterpret_cast<Modulus*>(start);
        uint64_t* next = reinterpret_cast<uint64_t*>(start + sizeof(Modulus));
        const auto take = [&next](size_t limbs) {
            next += limbs;
            return next - limbs;
        };
        current_ = take(kSize);
        square_ = take(kSize);
        table_ = take(powers * kSize);
        divisor_ = take(kWide);
        wide_ = take(kWide);
        limbs_ = take(kSize + 2 * kZeros) + kZeros;

        std::memcpy(divisor_, m, digits * sizeof *m);
        bits_ = static_cast<unsigned>(__builtin_clzll(divisor_[n_ - 1]));
        prepare_modulus(64 * n_ - bits_);
        std::memset(wide_, 0, n_ * sizeof *wide_);
        std::memcpy(wide_, x, digits * sizeof *x);
        to_residue(table_, wide_, n_);
    }

    void power(size_t i) {
        if (i == 1)
            ifma_multiply<L, true>(*modulus_, square_, table_, table_);
        ifma_multiply<L, false>(*modulus_, entry(i), square_, entry(i - 1));
    }
    void load(size_t i) { std::memcpy(current_, entry(i), kSize * sizeof *current_); }
    void square() { ifma_multiply<L, true>(*modulus_, current_, current_, current_); }
    void multiply(size_t i) { ifma_multiply<L, false>(*modulus_, current_, entry(i), current_); }

    void result(DIGIT_T* y) {
        // The limbs of a residue may be above 51 bits, so they are added rather than put side by side.
        std::memset(wide_, 0, kWide * sizeof *wide_);
        for (size_t i = 0; i < L; i++)
            limbs_add_bits(wide_, kWide, current_[kOffset + i], i * kLimbBits);
        constexpr size_t kShifted = (kLimbBits * L + 63) / 64 + 1;
        limb_shift_left(wide_, wide_, kShifted, bits_);
        limb_divide(wide_, kShifted, divisor_, n_);
        limb_shift_right(wide_, wide_, n_, bits_);
        std::memcpy(y, wide_, digits_ * sizeof *y);
    }

  private:
    static size_t scratch_limbs(size_t powers) {
        return 8 + sizeof(Modulus) / 8 + (powers + 3) * kSize + 2 * kZeros + 2 * kWide;
    }
    uint64_t* entry(size_t i) { return table_ + i * kSize; }

    static void to_residue(uint64_t* z, const Limb* a, size_t n) {
        std::memset(z, 0, kOffset * sizeof *z);
        for (size_t i = 0; i < L; i++)
            z[kOffset + i] = limbs_bits(a, n, i * kLimbBits, kLimbBits);
    }

    void prepare_modulus(size_t bits) {
        // N = m * 2^shift; r^L - N
        const size_t shift = Modulus::kBits - bits;
        std::memset(wide_, 0, kWide * sizeof *wide_);
        for (size_t i = 0; i < n_; i++)
            limbs_add_bits(wide_, kWide, divisor_[i], 64 * i + shift);
        to_residue(modulus_->modulus, wide_, kWide);
        uint64_t borrow = 0;
        for (size_t i = 0; i < L; i++) {
            const uint64_t limb = modulus_->modulus[kOffset + i] + borrow;
            borrow = limb != 0;
            limbs_[i] = -limb & ((uint64_t{1} << kLimbBits) - 1);
        }
        for (size_t s = 0; s < 8; s++)
            std::memcpy(modulus_->negative[s], limbs_ - s, sizeof modulus_->negative[s]);

        // V = (r^(2L-1) - 1) / N is (2^e - 1) / (m * 2^bits_) for another e.
        limb_shift_left(divisor_, divisor_, n_, bits_);
        const size_t e = kLimbBits * (2 * L - 1) - Modulus::kBits + 64 * n_;
        for (size_t i = 0; i <= e / 64; i++)
            wide_[i] = i < e / 64 ? ~Limb{0} : (Limb{1} << e % 64) - 1;
        const size_t size = e / 64 + 1;
        limb_divide(wide_, size, divisor_, n_);
        for (size_t i = 0; i < L; i++)
            limbs_[i] = limbs_bits(wide_ + n_, size - n_, i * kLimbBits, kLimbBits);
        // Entry s has limb L - 1 - 8d + l - s in lane l of vector d.
        for (size_t s = 0; s < 8; s++)
            for (size_t d = 0; d <= L / 8; d++)
                std::memcpy(modulus_->reciprocal[s] + 8 * d, limbs_ + L - 1 - 8 * d - s, 64);
    }

    size_t digits_, n_;
    MpScratch scratch_;
    Modulus* modulus_;
    uint64_t *current_, *square_, *table_, *limbs_;
    Limb *divisor_, *wide_; // m, later shifted left by bits_; room for a division
    unsigned bits_;
};

template<size_t L>
void run(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m, size_t n) {
    IfmaEngine<L> engine(x, m, n, window_powers(exponentBits));
    window_power(engine, e, exponentBits);
    engine.result(y);
}

// Writes down what window_power asks of an engine.
class Steps {
  public:
    explicit Steps(const DIGIT_T* e, size_t exponentBits)
        : scratch_(2 * exponentBits + window_powers(exponentBits)),
          steps_(scratch_.take(2 * exponentBits + window_powers(exponentBits))) {
        window_power(*this, e, exponentBits);
    }
    void power(size_t i) { add(kPower, i); }
    void load(size_t i) { add(kLoad, i); }
    void square() { add(kSquare, 0); }
    void multiply(size_t i) { add(kMultiply, i); }

    size_t count() const { return count_; }
    template<class Engine>
    void play(Engine& engine, size_t at) const {
        const size_t i = steps_[at] >> 2;
        switch (steps_[at] & 3) {
        case kPower:
            return engine.power(i);
        case kLoad:
            return engine.load(i);
        case kSquare:
            return engine.square();
        default:
            return engine.multiply(i);
        }
    }

  private:
    enum Kind : DIGIT_T { kPower, kLoad, kSquare, kMultiply };
    void add(Kind kind, size_t i) { steps_[count_++] = static_cast<DIGIT_T>(i << 2 | kind); }

    MpScratch scratch_;
    DIGIT_T* steps_;
    size_t count_ = 0;
};

template<size_t L>
void run_pair(const MpPower& a, const MpPower& b, size_t n) {
    const Steps steps[] = {Steps(a.e, mpBitLength(a.e, n)), Steps(b.e, mpBitLength(b.e, n))};
    IfmaEngine<L> first(a.x, a.m, n, window_powers(mpBitLength(a.e, n)));
    IfmaEngine<L> second(b.x, b.m, n, window_powers(mpBitLength(b.e, n)));
    for (size_t i = 0; i < std::max(steps[0].count(), steps[1].count()); i++) {
        if (i < steps[0].count())
            steps[0].play(first, i);
        if (i < steps[1].count())
            steps[1].play(second, i);
    }
    first.result(a.y);
    second.result(b.y);
}

// choose gives what make gives for the least size that holds a modulus of the given bits, null if there is
// none.
template<class Function, class Make>
Function* choose(size_t bits, Make make) {
    return bits < 200                       ? nullptr
           : bits <= IfmaModulus<6>::kBits  ? make(std::integral_constant<size_t, 6>())
           : bits <= IfmaModulus<11>::kBits ? make(std::integral_constant<size_t, 11>())
           : bits <= IfmaModulus<16>::kBits ? make(std::integral_constant<size_t, 16>())
           : bits <= IfmaModulus<21>::kBits ? make(std::integral_constant<size_t, 21>())
           : bits <= IfmaModulus<31>::kBits ? make(std::integral_constant<size_t, 31>())
           : bits <= IfmaModulus<41>::kBits ? make(std::integral_constant<size_t, 41>())
           : bits <= IfmaModulus<61>::kBits ? make(std::integral_constant<size_t, 61>())
           : bits <= IfmaModulus<81>::kBits ? make(std::integral_constant<size_t, 81>())
                                            : nullptr;
}

} // namespace

bool mod_exp_ifma(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                  size_t n) {
    const auto chosen = choose<decltype(run<6>)>(mpBitLength(m, n), [](auto size) { return run<size>; });
    if (chosen == nullptr)
        return false;
    chosen(y, x, e, exponentBits, m, n);
    return true;
}

bool mod_exp_pair_ifma(const MpPower& a, const MpPower& b, size_t n) {
    const auto chosen = choose<decltype(run_pair<6>)>(std::max(mpBitLength(a.m, n), mpBitLength(b.m, n)),
                                                      [](auto size) { return run_pair<size>; });
    if (chosen == nullptr)
        return false;
    chosen(a, b, n);
    return true;
}

} // namespace zul
#endif
