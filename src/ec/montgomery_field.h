#pragma once
#include "ec/modular_inverse.h"
#include "ec/montgomery.h"

namespace zul {

// The field of a curve in Montgomery's form. Curve has the constants: the lengths, the prime, the order and
// the integers B, X and Y; its type Step is that of montgomery_multiply.
template<class Curve>
struct ZUL_HIDDEN MontgomeryField {
    static constexpr size_t kBits = Curve::kBits, kLimbs = Curve::kLimbs;
    using Element = Limbs<kLimbs>;

    static constexpr MontgomeryModulus<kLimbs> kModulus = montgomery_modulus<kLimbs>(Curve::kPrime);
    static constexpr MontgomeryModulus<kLimbs> kOrder = montgomery_modulus<kLimbs>(Curve::kOrder);
    static constexpr const Limbs<kLimbs>& kPrime = kModulus.p;

    // Not inlined: a point operation has a dozen of them, whose temporaries would all lie on the stack.
    __attribute__((noinline)) static constexpr void multiply(Element& product, const Element& a,
                                                             const Element& b) {
        montgomery_multiply(product, a, b, kModulus.p, typename Curve::Step{kModulus});
    }
    static constexpr void square(Element& product, const Element& a) { multiply(product, a, a); }
    static constexpr void add(Element& sum, const Element& a, const Element& b) {
        montgomery_add(sum, a, b, kModulus.p);
    }
    static constexpr void subtract(Element& difference, const Element& a, const Element& b) {
        montgomery_subtract(difference, a, b, kModulus.p);
    }
    static constexpr void halve(Element& half, const Element& a) { montgomery_halve(half, a, kModulus.p); }
    static constexpr bool is_zero(const Element& a) { return limbs_nonzero_mask(a) == 0; }
    static constexpr void invert(Element& inverse, const Element& a) {
        modular_inverse(inverse, a, kModulus.p, kBits);
        multiply(inverse, inverse, kModulus.cube);
    }
    static constexpr Element from_integer(const Limbs<kLimbs>& a) {
        Element result{};
        multiply(result, a, kModulus.square);
        return result;
    }
    static constexpr Limbs<kLimbs> to_integer(const Element& a) {
        Limbs<kLimbs> result{};
        multiply(result, a, {1});
        return result;
    }

    static constexpr Element kOne = kModulus.one;
    static const Element kCurveB, kBaseX, kBaseY;
};

template<class Curve>
constexpr
    typename MontgomeryField<Curve>::Element MontgomeryField<Curve>::kCurveB = from_integer(Curve::kIntegerB);
template<class Curve>
constexpr
    typename MontgomeryField<Curve>::Element MontgomeryField<Curve>::kBaseX = from_integer(Curve::kIntegerX);
template<class Curve>
constexpr
    typename MontgomeryField<Curve>::Element MontgomeryField<Curve>::kBaseY = from_integer(Curve::kIntegerY);

} // namespace zul
