// Modular exponentiation by columns of products, for any processor with 64-bit multiplication.
//
// A residue has L limbs of B bits, r = 2^B. Limbs are a few bits short of a word, so that all products of a
// column add up in two words without a third for carries, and one carry is taken per column.
//
// N is the modulus shifted left until it has B(L - 1) + t bits, t = B/2 - 2. A product T is reduced by long
// division with a single quotient digit as long as N:
//   U = T / r^(L-1)                T < r^(2L-1), so L limbs
//   Q = U * V / r^L                V = floor((r^(2L-1) - 1) / N)
//   R = T - Q * N                  modulo r^L, as T + Q * (r^L - N)
// Q is never too large, as U, V and the columns of U * V only lack something. Residues are below 2N, so T < 4
// N^2 < 2^(2t + 2 - B) r^(2L-1). Q is below T / N by less than 1 for its own fraction, and by
//   2^(1-t)          U lacks less than 1, times V / r^L
//   2^(2t + 2 - B)   V lacks at most 1, times T / r^(2L-1); at most 1/4
//   2L / r           the columns of U * V below L - 2, and the fraction of column L - 2,
// together less than 2. So R < 2N again.
#include "bignum/mp_exp_columns.h"

#include <cstring>
#include <utility>

#include "bignum/mp_limb.h"
#include "bignum/mp_scratch.h"
#include "bignum/mp_window.h"
#include "frame/wipe.h"

namespace zul {

namespace {

// What a product modulo N needs; all have as many limbs as a residue, the product twice as many.
struct ColumnModulus {
    size_t size;
    uint64_t *reciprocal, *negative, *product, *quotient;
};

template<unsigned B>
ZUL_ALWAYS_INLINE uint64_t next_limb(WideLimb& carry, WideLimb sum) {
    carry += sum;
    const uint64_t limb = static_cast<uint64_t>(carry) & ((uint64_t{1} << B) - 1);
    carry >>= B;
    return limb;
}

// Columns of any number of limbs.
template<unsigned B>
struct AnyColumns {
    // sum_products: a[0] * b[0] + a[1] * b[-1] + a[2] * b[-2] ...
    static WideLimb sum_products(const uint64_t* a, const uint64_t* b, size_t count) {
        WideLimb sum = 0;
        size_t i = 0;
        for (; i + 4 <= count; i += 4, a += 4, b -= 4) {
            sum += static_cast<WideLimb>(a[0]) * b[0];
            sum += static_cast<WideLimb>(a[1]) * b[-1];
            sum += static_cast<WideLimb>(a[2]) * b[-2];
            sum += static_cast<WideLimb>(a[3]) * b[-3];
        }
        for (; i < count; i++)
            sum += static_cast<WideLimb>(*a++) * *b--;
        return sum;
    }

    static void square(const ColumnModulus& m, const uint64_t* a) {
        WideLimb carry = 0;
        for (size_t k = 0; k < 2 * m.size - 1; k++) {
            const size_t low = k < m.size ? 0 : k - m.size + 1;
            WideLimb sum = 2 * sum_products(a + low, a + (k - low), (k + 1) / 2 - low);
            if (k % 2 == 0)
                sum += static_cast<WideLimb>(a[k / 2]) * a[k / 2];
            m.product[k] = next_limb<B>(carry, sum);
        }
    }

    static void multiply(const ColumnModulus& m, const uint64_t* a, const uint64_t* b) {
        WideLimb carry = 0;
        for (size_t k = 0; k < 2 * m.size - 1; k++) {
            const size_t low = k < m.size ? 0 : k - m.size + 1;
            m.product[k] = next_limb<B>(carry, sum_products(a + low, b + (k - low), k + 1 - 2 * low));
        }
    }

    static void reduce(const ColumnModulus& m, uint64_t* z) {
        const uint64_t* u = m.product + m.size - 1;
        WideLimb carry = 0;
        for (size_t k = m.size - 2; k < 2 * m.size - 1; k++) {
            const size_t low = k < m.size ? 0 : k - m.size + 1;
            const uint64_t limb =
                next_limb<B>(carry, sum_products(u + low, m.reciprocal + (k - low), k + 1 - 2 * low));
            if (k >= m.size)
                m.quotient[k - m.size] = limb;
        }
        m.quotient[m.size - 1] = static_cast<uint64_t>(carry);
        carry = 0;
        for (size_t k = 0; k < m.size; k++)
            z[k] = next_limb<B>(carry, m.product[k] + sum_products(m.quotient, m.negative + k, k + 1));
    }
};

// The same for L limbs, without a loop.
template<unsigned B, size_t L>
struct FixedColumns {
    template<size_t kFirst, size_t K, size_t... I>
    static ZUL_ALWAYS_INLINE WideLimb sum_products(const uint64_t* a, const uint64_t* b,
                                                   std::index_sequence<I...>) {
        return (WideLimb{0} + ... + (static_cast<WideLimb>(a[kFirst + I]) * b[K - kFirst - I]));
    }
    template<size_t K>
    static ZUL_ALWAYS_INLINE WideLimb column(const uint64_t* a, const uint64_t* b) {
        constexpr size_t kFirst = K < L ? 0 : K - L + 1;
        return sum_products<kFirst, K>(a, b, std::make_index_sequence<K + 1 - 2 * kFirst>());
    }
    template<size_t K>
    static ZUL_ALWAYS_INLINE WideLimb square_column(const uint64_t* a) {
        constexpr size_t kFirst = K < L ? 0 : K - L + 1;
        WideLimb sum = 2 * sum_products<kFirst, K>(a, a, std::make_index_sequence<(K + 1) / 2 - kFirst>());
        if constexpr (K % 2 == 0)
            sum += static_cast<WideLimb>(a[K / 2]) * a[K / 2];
        return sum;
    }

    template<size_t... K>
    static ZUL_ALWAYS_INLINE void square_columns(uint64_t* p, const uint64_t* a, std::index_sequence<K...>) {
        WideLimb carry = 0;
        ((p[K] = next_limb<B>(carry, square_column<K>(a))), ...);
    }
    template<size_t... K>
    static ZUL_ALWAYS_INLINE void columns(uint64_t* p, const uint64_t* a, const uint64_t* b,
                                          std::index_sequence<K...>) {
        WideLimb carry = 0;
        ((p[K] = next_limb<B>(carry, column<K>(a, b))), ...);
    }
    template<size_t... K>
    static ZUL_ALWAYS_INLINE void high_columns(uint64_t* q, const uint64_t* u, const uint64_t* v,
                                               std::index_sequence<K...>) {
        WideLimb carry = column<L - 2>(u, v) >> B;
        carry = (carry + column<L - 1>(u, v)) >> B;
        ((q[K] = next_limb<B>(carry, column<L + K>(u, v))), ...);
        q[L - 1] = static_cast<uint64_t>(carry);
    }
    template<size_t... K>
    static ZUL_ALWAYS_INLINE void low_columns(uint64_t* z, const uint64_t* t, const uint64_t* q,
                                              const uint64_t* n, std::index_sequence<K...>) {
        WideLimb carry = 0;
        ((z[K] = next_limb<B>(carry, t[K] + column<K>(q, n))), ...);
    }

    static __attribute__((noinline)) void square(const ColumnModulus& m, const uint64_t* a) {
        square_columns(m.product, a, std::make_index_sequence<2 * L - 1>());
    }
    static __attribute__((noinline)) void multiply(const ColumnModulus& m, const uint64_t* a,
                                                   const uint64_t* b) {
        columns(m.product, a, b, std::make_index_sequence<2 * L - 1>());
    }
    static __attribute__((noinline)) void reduce(const ColumnModulus& m, uint64_t* z) {
        high_columns(m.quotient, m.product + L - 1, m.reciprocal, std::make_index_sequence<L - 1>());
        low_columns(z, m.product, m.quotient, m.negative, std::make_index_sequence<L>());
    }
};

constexpr size_t top_bits(unsigned B) {
    return B / 2 - 2;
}

// The limbs of a residue modulo a number of so many bits.
constexpr size_t column_limbs(unsigned B, size_t bits) {
    return (bits - top_bits(B) + B - 1) / B + 1;
}

// A column of so many products, the carry and a limb are less than 2^128.
constexpr size_t most_column_limbs(unsigned B) {
    return (size_t{1} << (128 - 2 * B)) - 2;
}

template<unsigned B, class Columns>
class ColumnEngine {
    static constexpr uint64_t kMask = (uint64_t{1} << B) - 1;
    static constexpr size_t kTop = top_bits(B);

  public:
    ColumnEngine(const DIGIT_T* x, const DIGIT_T* m, size_t digits, size_t powers)
        : digits_(digits), n_((digits + 1) / 2), size_(column_limbs(B, mpBitLength(m, digits))),
          wideSize_(size_t{B} * 2 * size_ / 64 + 2), scratch_(2 * ((powers + 8) * size_ + n_ + wideSize_)),
          divisor_(take(n_)),
          wide_(take(wideSize_)), modulus_{size_, take(size_), take(size_), take(2 * size_), take(size_)},
          square_(take(size_)), current_(take(size_)), table_(take(powers * size_)) {
        limbs_from_digits(divisor_, m, digits);
        bits_ = static_cast<unsigned>(__builtin_clzll(divisor_[n_ - 1]));
        const size_t most = B * (size_ - 1) + kTop; // bits of N
        prepare(most - (64 * n_ - bits_), most);
        limbs_from_digits(wide_, x, digits);
        to_residue(table_, wide_, n_);
    }

    void power(size_t i) {
        if (i == 1)
            square_modulo(square_, table_);
        multiply_modulo(entry(i), entry(i - 1), square_);
    }
    void load(size_t i) { std::memcpy(current_, entry(i), size_ * sizeof *current_); }
    void square() { square_modulo(current_, current_); }
    void multiply(size_t i) { multiply_modulo(current_, current_, entry(i)); }

    void result(DIGIT_T* y) {
        from_residue(wide_, current_);
        const size_t size = (B * size_ + 63) / 64 + 1;
        limb_shift_left(wide_, wide_, size, bits_);
        limb_divide(wide_, size, divisor_, n_);
        limb_shift_right(wide_, wide_, n_, bits_);
        limbs_to_digits(y, wide_, digits_);
    }

  private:
    uint64_t* take(size_t limbs) { return reinterpret_cast<uint64_t*>(scratch_.take(2 * limbs)); }
    uint64_t* entry(size_t i) { return table_ + i * size_; }

    void square_modulo(uint64_t* z, const uint64_t* a) {
        Columns::square(modulus_, a);
        Columns::reduce(modulus_, z);
    }
    void multiply_modulo(uint64_t* z, const uint64_t* a, const uint64_t* b) {
        Columns::multiply(modulus_, a, b);
        Columns::reduce(modulus_, z);
    }

    void to_residue(uint64_t* z, const Limb* a, size_t n) {
        for (size_t i = 0; i < size_; i++)
            z[i] = limbs_bits(a, n, i * B, B);
    }
    void from_residue(Limb* wide, const uint64_t* z) {
        std::memset(wide, 0, wideSize_ * sizeof *wide);
        for (size_t i = 0; i < size_; i++)
            limbs_add_bits(wide, wideSize_, z[i], i * B);
    }

    void prepare(size_t shift, size_t bits) {
        // r^L - N
        for (size_t i = 0; i < n_; i++)
            limbs_add_bits(wide_, wideSize_, divisor_[i], 64 * i + shift);
        to_residue(modulus_.negative, wide_, wideSize_);
        uint64_t borrow = 0;
        for (size_t i = 0; i < size_; i++) {
            const uint64_t limb = modulus_.negative[i] + borrow;
            borrow = limb != 0;
            modulus_.negative[i] = -limb & kMask;
        }
        // V is (2^e - 1) / (m * 2^bits_) for another e.
        limb_shift_left(divisor_, divisor_, n_, bits_);
        const size_t e = B * (2 * size_ - 1) - bits + 64 * n_;
        std::memset(wide_, 0, wideSize_ * sizeof *wide_);
        for (size_t i = 0; i <= e / 64; i++)
            wide_[i] = i < e / 64 ? ~Limb{0} : (Limb{1} << e % 64) - 1;
        limb_divide(wide_, wideSize_, divisor_, n_);
        to_residue(modulus_.reciprocal, wide_ + n_, wideSize_ - n_);
        std::memset(wide_, 0, wideSize_ * sizeof *wide_);
    }

    size_t digits_, n_, size_, wideSize_;
    MpScratch scratch_;
    uint64_t *divisor_, *wide_; // m, later shifted left by bits_; room for a division
    ColumnModulus modulus_;
    uint64_t *square_, *current_, *table_;
    unsigned bits_;
};

template<unsigned B, class Columns>
void run(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m, size_t n) {
    ColumnEngine<B, Columns> engine(x, m, n, window_powers(exponentBits));
    window_power(engine, e, exponentBits);
    engine.result(y);
}

auto choose(size_t bits) {
    constexpr unsigned kWidest = 61;
    switch (column_limbs(kWidest, bits)) {
    case 9: // 512 bits
        return run<kWidest, FixedColumns<kWidest, 9>>;
    case 18: // 1024
        return run<kWidest, FixedColumns<kWidest, 18>>;
    case 26: // 1536
        return run<kWidest, FixedColumns<kWidest, 26>>;
    case 35: // 2048
        return run<kWidest, FixedColumns<kWidest, 35>>;
    default:
        return column_limbs(kWidest, bits) <= most_column_limbs(kWidest) ? run<kWidest, AnyColumns<kWidest>>
               : column_limbs(60, bits) <= most_column_limbs(60)         ? run<60, AnyColumns<60>>
                                                                         : run<56, AnyColumns<56>>;
    }
}

} // namespace

void mp_column_mod_exp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, size_t exponentBits, const DIGIT_T* m,
                       size_t n) {
    choose(mpBitLength(m, n))(y, x, e, exponentBits, m, n);
    constexpr size_t kDepth = 8192; // where words of the modulus and of residues are left
    wipe_dead_stack(kDepth);
}

} // namespace zul
