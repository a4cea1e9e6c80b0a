#pragma once
#include "ec/modular_inverse.h"
#include "ec/montgomery.h"

// The field of P-384 (SP 800-186, 3.2.1.4): p = 2^384 - 2^128 - 2^96 + 2^32 - 1, in Montgomery's form.
namespace zul {

struct ZUL_HIDDEN P384Field {
    static constexpr size_t kBits = 384;
    static constexpr size_t kLimbs = 6;
    using Element = Limbs<kLimbs>;

    static constexpr MontgomeryModulus<kLimbs> kModulus =
        montgomery_modulus<kLimbs>({0x00000000FFFFFFFF, 0xFFFFFFFF00000000, 0xFFFFFFFFFFFFFFFE,
                                    0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF});
    static constexpr const Limbs<kLimbs>& kPrime = kModulus.p;
    static constexpr Element kIntegerB = {0x2A85C8EDD3EC2AEF, 0xC656398D8A2ED19D, 0x0314088F5013875A,
                                          0x181D9C6EFE814112, 0x988E056BE3F82D19, 0xB3312FA7E23EE7E4};
    static constexpr Element kIntegerX = {0x3A545E3872760AB7, 0x5502F25DBF55296C, 0x59F741E082542A38,
                                          0x6E1D3B628BA79B98, 0x8EB1C71EF320AD74, 0xAA87CA22BE8B0537};
    static constexpr Element kIntegerY = {0x7A431D7C90EA0E5F, 0x0A60B1CE1D7E819D, 0xE9DA3113B5F0B8C0,
                                          0xF8F41DBD289A147C, 0x5D9E98BF9292DC29, 0x3617DE4A96262C6F};
    static constexpr MontgomeryModulus<kLimbs> kOrder =
        montgomery_modulus<kLimbs>({0xECEC196ACCC52973, 0x581A0DB248B0A77A, 0xC7634D81F4372DDF,
                                    0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF});

    static constexpr void multiply(Element& product, const Element& a, const Element& b) {
        montgomery_multiply(product, a, b, kModulus.p, kModulus.negatedInverse);
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

constexpr P384Field::Element P384Field::kCurveB = P384Field::from_integer(kIntegerB);
constexpr P384Field::Element P384Field::kBaseX = P384Field::from_integer(kIntegerX);
constexpr P384Field::Element P384Field::kBaseY = P384Field::from_integer(kIntegerY);

} // namespace zul
