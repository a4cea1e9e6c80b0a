#pragma once
#include "ec/modular_inverse.h"
#include "ec/montgomery.h"

// The field of P-256 (SP 800-186, 3.2.1.3): p = 2^256 - 2^224 + 2^192 + 2^96 - 1, in Montgomery's form.
namespace zul {

struct ZUL_HIDDEN P256Field {
    static constexpr size_t kBits = 256;
    static constexpr size_t kLimbs = 4;
    using Element = Limbs<kLimbs>;

    static constexpr MontgomeryModulus<kLimbs> kModulus =
        montgomery_modulus<kLimbs>({0xFFFFFFFFFFFFFFFF, 0x00000000FFFFFFFF, 0, 0xFFFFFFFF00000001});
    static constexpr const Limbs<kLimbs>& kPrime = kModulus.p;
    static constexpr Element kIntegerB = {0x3BCE3C3E27D2604B, 0x651D06B0CC53B0F6, 0xB3EBBD55769886BC,
                                          0x5AC635D8AA3A93E7};
    static constexpr Element kIntegerX = {0xF4A13945D898C296, 0x77037D812DEB33A0, 0xF8BCE6E563A440F2,
                                          0x6B17D1F2E12C4247};
    static constexpr Element kIntegerY = {0xCBB6406837BF51F5, 0x2BCE33576B315ECE, 0x8EE7EB4A7C0F9E16,
                                          0x4FE342E2FE1A7F9B};
    static constexpr MontgomeryModulus<kLimbs> kOrder = montgomery_modulus<kLimbs>(
        {0xF3B9CAC2FC632551, 0xBCE6FAADA7179E84, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFF00000000});

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

constexpr P256Field::Element P256Field::kCurveB = P256Field::from_integer(kIntegerB);
constexpr P256Field::Element P256Field::kBaseX = P256Field::from_integer(kIntegerX);
constexpr P256Field::Element P256Field::kBaseY = P256Field::from_integer(kIntegerY);

} // namespace zul
