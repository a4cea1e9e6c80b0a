#pragma once
#include "ec/limbs.h"

// Arithmetic modulo an odd number of fixed size in Montgomery's form: an element a stands for a * 2^-64N.
namespace zul {

// Modulus constants, computed at compile time.
template<size_t N>
struct MontgomeryModulus {
    Limbs<N> p;
    Limbs<N> one, square, cube; // 2^64N, its square and its cube modulo p
    uint64_t negatedInverse;    // -1/p modulo 2^64
};

// montgomery_reduce_once subtracts p from high:a if that is not below p; the whole is below 2p.
template<size_t N>
constexpr ZUL_ALWAYS_INLINE void montgomery_reduce_once(Limbs<N>& a, uint64_t high, const Limbs<N>& p) {
    Limbs<N> reduced{};
    const uint64_t borrow = limbs_subtract(reduced, a, p);
    limbs_select(a, limb_mask(borrow & ~high & 1), a, reduced);
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE void montgomery_add(Limbs<N>& sum, const Limbs<N>& a, const Limbs<N>& b,
                                                const Limbs<N>& p) {
    const uint64_t carry = limbs_add(sum, a, b);
    montgomery_reduce_once(sum, carry, p);
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE void montgomery_subtract(Limbs<N>& difference, const Limbs<N>& a,
                                                     const Limbs<N>& b, const Limbs<N>& p) {
    Limbs<N> raised{};
    const uint64_t mask = limb_mask(limbs_subtract(difference, a, b));
#pragma GCC unroll 16
    for (size_t i = 0; i < N; i++)
        raised[i] = p[i] & mask;
    limbs_add(difference, difference, raised);
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE void montgomery_halve(Limbs<N>& half, const Limbs<N>& a, const Limbs<N>& p) {
    Limbs<N> raised{};
    const uint64_t isOdd = limb_mask(a[0] & 1);
    for (size_t i = 0; i < N; i++)
        raised[i] = p[i] & isOdd;
    const uint64_t carry = limbs_add(raised, raised, a);
    for (size_t i = 0; i < N; i++)
        half[i] = raised[i] >> 1 | (i + 1 < N ? raised[i + 1] : carry) << 63;
}

// A step of the reduction adds the multiple of p that clears limb 0 of top:t and moves the rest down by a
// limb; the carry out of it is the result.
template<size_t N>
struct MontgomeryStep {
    const MontgomeryModulus<N>& modulus;

    constexpr ZUL_ALWAYS_INLINE uint64_t operator()(Limbs<N>& t, uint64_t top) const {
        const uint64_t quotient = t[0] * modulus.negatedInverse;
        uint64_t high = 0, carry = 0;
        multiply_add(t[0], quotient, modulus.p[0], high);
#pragma GCC unroll 16
        for (size_t j = 1; j < N; j++)
            t[j - 1] = multiply_add(t[j], quotient, modulus.p[j], high);
        t[N - 1] = add_carry(top, high, carry);
        return carry;
    }
};

// montgomery_multiply gives a * b * 2^-64N modulo p, below p if a * b < p * 2^64N (operand scanning, with the
// reduction of each limb in the same pass).
template<size_t N, class Step>
constexpr ZUL_ALWAYS_INLINE void montgomery_multiply(Limbs<N>& product, const Limbs<N>& a, const Limbs<N>& b,
                                                     const Limbs<N>& p, const Step& step) {
    Limbs<N> t{};
    uint64_t top = 0;
#pragma GCC unroll 16
    for (size_t i = 0; i < N; i++) {
        uint64_t high = 0;
#pragma GCC unroll 16
        for (size_t j = 0; j < N; j++)
            t[j] = multiply_add(t[j], a[i], b[j], high);
        uint64_t carry = 0;
        const uint64_t sum = add_carry(top, high, carry);
        top = carry + step(t, sum);
    }
    product = t;
    montgomery_reduce_once(product, top, p);
}

template<size_t N>
constexpr ZUL_ALWAYS_INLINE void montgomery_multiply(Limbs<N>& product, const Limbs<N>& a, const Limbs<N>& b,
                                                     const MontgomeryModulus<N>& modulus) {
    montgomery_multiply(product, a, b, modulus.p, MontgomeryStep<N>{modulus});
}

template<size_t N>
constexpr MontgomeryModulus<N> montgomery_modulus(const Limbs<N>& p) {
    MontgomeryModulus<N> modulus{};
    modulus.p = p;
    uint64_t inverse = 1; // Newton's iteration doubles the bits that are right
    for (int i = 0; i < 6; i++)
        inverse *= 2 - p[0] * inverse;
    modulus.negatedInverse = 0 - inverse;
    // 2^(64N + 64N) by doubling; p need not fill its limbs.
    Limbs<N> power{1};
    for (size_t i = 0; i < 128 * N; i++) {
        montgomery_add(power, power, power, p);
        if (i + 1 == 64 * N)
            modulus.one = power;
    }
    modulus.square = power;
    montgomery_multiply(modulus.cube, power, power, modulus);
    return modulus;
}

} // namespace zul
