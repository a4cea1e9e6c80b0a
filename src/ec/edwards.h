#pragma once
#include <array>

#include "ec/field25519.h"
#include "ec/montgomery.h"

// Points of edwards25519, -x^2 + y^2 = 1 + d x^2 y^2, in extended coordinates x = X/Z, y = Y/Z, xy = T/Z. The
// formulas (H. Hisil and others, "Twisted Edwards Curves Revisited", 2008) have no exceptional cases.
namespace zul {

struct EdwardsPoint {
    Field25519::Element x, y, z, t;
};

// What an addition needs of its second point: y + x, y - x, 2 d t and 2 z; with z = 1 in the affine form.
struct EdwardsAffineAddend {
    Field25519::Element sum, difference, product;
};
struct EdwardsAddend {
    EdwardsAffineAddend point;
    Field25519::Element doubledZ;
};

constexpr Field25519::Element kEdwardsD = Field25519::from_integer(
    {0x75EB4DCA135978A3, 0x00700A4D4141D8AB, 0x8CC740797779E898, 0x52036CEE2B6FFE73});
constexpr Field25519::Element kEdwardsDoubleD = Field25519::from_integer(
    {0xEBD69B9426B2F159, 0x00E0149A8283B156, 0x198E80F2EEF3D130, 0x2406D9DC56DFFCE7});
constexpr Field25519::Element kRootOfMinusOne = Field25519::from_integer(
    {0xC4EE1B274A0EA0B0, 0x2F431806AD2FE478, 0x2B4D00993DFBD7A7, 0x2B8324804FC1DF0B});
constexpr Field25519::Element kEdwardsBaseX = Field25519::from_integer(
    {0xC9562D608F25D51A, 0x692CC7609525A7B2, 0xC0A4E231FDD6DC5C, 0x216936D3CD6E53FE});
constexpr Field25519::Element kEdwardsBaseY = Field25519::from_integer(
    {0x6666666666666658, 0x6666666666666666, 0x6666666666666666, 0x6666666666666666});

// L = 2^252 + 27742317777372353535851937790883648493, the order of the base point.
constexpr MontgomeryModulus<4> kEdwardsOrder =
    montgomery_modulus<4>({0x5812631A5CF5D3ED, 0x14DEF9DEA2F79CD6, 0x0000000000000000, 0x1000000000000000});

// The tables, which tools/ec_tables computes: row i holds 1 to 16 times 2^(10 i) times the base point, and
// the other 1, 3 to 63 times it.
constexpr size_t kEdwardsWindow = 5, kEdwardsWindows = 51, kEdwardsStride = 2, kEdwardsMultiples = 16;
using EdwardsBaseTable = std::array<std::array<EdwardsAffineAddend, kEdwardsMultiples>,
                                    (kEdwardsWindows + kEdwardsStride - 1) / kEdwardsStride>;
using EdwardsBaseOdd = std::array<EdwardsAffineAddend, 32>;

constexpr EdwardsPoint edwards_identity() {
    return {{}, Field25519::kOne, Field25519::kOne, {}};
}

constexpr EdwardsPoint edwards_base() {
    EdwardsPoint base = {kEdwardsBaseX, kEdwardsBaseY, Field25519::kOne, {}};
    Field25519::multiply(base.t, base.x, base.y);
    return base;
}

constexpr ZUL_ALWAYS_INLINE void edwards_finish(EdwardsPoint& r, const Field25519::Element& e,
                                                const Field25519::Element& f, const Field25519::Element& g,
                                                const Field25519::Element& h) {
    Field25519::multiply(r.x, e, f);
    Field25519::multiply(r.y, g, h);
    Field25519::multiply(r.t, e, h);
    Field25519::multiply(r.z, f, g);
}

constexpr void edwards_double(EdwardsPoint& r, const EdwardsPoint& p) {
    using F = Field25519;
    F::Element a{}, b{}, c{}, e{}, f{}, g{}, h{};
    F::square(a, p.x);
    F::square(b, p.y);
    F::square(c, p.z);
    F::add(c, c, c);
    F::add(h, a, b);
    F::add(e, p.x, p.y);
    F::square(e, e);
    F::subtract(e, h, e);
    F::subtract(g, a, b);
    F::add(f, c, g);
    edwards_finish(r, e, f, g, h);
}

// edwards_add_scaled adds a point whose 2 z1 z2 is given.
constexpr ZUL_ALWAYS_INLINE void edwards_add_scaled(EdwardsPoint& r, const EdwardsPoint& p,
                                                    const EdwardsAffineAddend& q,
                                                    const Field25519::Element& d) {
    using F = Field25519;
    F::Element a{}, b{}, c{}, e{}, f{}, g{}, h{};
    F::subtract(a, p.y, p.x);
    F::multiply(a, a, q.difference);
    F::add(b, p.y, p.x);
    F::multiply(b, b, q.sum);
    F::multiply(c, p.t, q.product);
    F::subtract(e, b, a);
    F::subtract(f, d, c);
    F::add(g, d, c);
    F::add(h, b, a);
    edwards_finish(r, e, f, g, h);
}

constexpr void edwards_add_affine(EdwardsPoint& r, const EdwardsPoint& p, const EdwardsAffineAddend& q) {
    Field25519::Element d{};
    Field25519::add(d, p.z, p.z);
    edwards_add_scaled(r, p, q, d);
}

constexpr void edwards_add(EdwardsPoint& r, const EdwardsPoint& p, const EdwardsAddend& q) {
    Field25519::Element d{};
    Field25519::multiply(d, p.z, q.doubledZ);
    edwards_add_scaled(r, p, q.point, d);
}

constexpr void edwards_addend(EdwardsAddend& addend, const EdwardsPoint& p) {
    Field25519::add(addend.point.sum, p.y, p.x);
    Field25519::carry(addend.point.sum);
    Field25519::subtract(addend.point.difference, p.y, p.x);
    Field25519::multiply(addend.point.product, p.t, kEdwardsDoubleD);
    Field25519::add(addend.doubledZ, p.z, p.z);
    Field25519::carry(addend.doubledZ);
}

// edwards_negate gives the addend of the opposite point.
constexpr void edwards_negate(EdwardsAffineAddend& r, const EdwardsAffineAddend& q) {
    const EdwardsAffineAddend before = q;
    r.sum = before.difference;
    r.difference = before.sum;
    Field25519::subtract(r.product, Field25519::Element{}, before.product);
}

} // namespace zul
