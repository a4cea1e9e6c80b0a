#pragma once
#include "ec/limbs.h"
#include "frame/wipe.h"

// Points of a curve y^2 = x^3 - 3x + b of prime order, in Jacobian coordinates: x = X/Z^2, y = Y/Z^3.
//
// The raw additions have exceptional cases: a point at infinity, equal points, opposite points. jacobian_add
// and jacobian_add_affine branch for them and are for public data. Secret multiples (scalar_multiply.h) use
// the raw ones and are arranged so that the last two cases cannot occur.
namespace zul {

template<class Field>
struct AffinePoint {
    typename Field::Element x, y;
};

template<class Field>
struct JacobianPoint {
    typename Field::Element x, y, z; // at infinity if z is 0
};

// 4M + 4S, with 8 Y^4 as half of (4 Y^2)^2.
template<class Field>
void jacobian_double(JacobianPoint<Field>& twice, const JacobianPoint<Field>& p) {
    typename Field::Element s, m, t, u, y;
    Field::add(s, p.y, p.y);
    Field::square(t, p.z);
    Field::square(s, s);
    Field::multiply(u, p.z, p.y);
    Field::add(m, p.x, t);
    Field::subtract(t, p.x, t);
    Field::add(twice.z, u, u);
    Field::square(y, s);
    Field::multiply(m, m, t);
    Field::halve(y, y);
    Field::multiply(s, s, p.x);
    Field::add(t, m, m);
    Field::add(m, m, t);
    Field::square(twice.x, m);
    Field::add(t, s, s);
    Field::subtract(twice.x, twice.x, t);
    Field::subtract(s, s, twice.x);
    Field::multiply(s, s, m);
    Field::subtract(twice.y, s, y);
}

// jacobian_finish completes an addition from U1 = u, S1 = s, H = h and R = r; the Z of the sum stands.
template<class Field>
void jacobian_finish(JacobianPoint<Field>& sum, const typename Field::Element& u,
                     const typename Field::Element& s, const typename Field::Element& h,
                     const typename Field::Element& r) {
    typename Field::Element square, cube, v, t;
    Field::square(square, h);
    Field::multiply(cube, h, square);
    Field::multiply(v, u, square);
    Field::square(t, r);
    Field::subtract(t, t, cube);
    Field::subtract(t, t, v);
    Field::subtract(sum.x, t, v);
    Field::subtract(v, v, sum.x);
    Field::multiply(v, r, v);
    Field::multiply(t, s, cube);
    Field::subtract(sum.y, v, t);
}

// What decides about the exceptional cases of an addition: both 0 for equal points, h alone for opposite
// ones.
template<class Field>
struct JacobianDifference {
    typename Field::Element h, r;
};

// jacobian_add_affine_raw: 8M + 3S. Neither point is at infinity, and they are neither equal nor opposite.
template<class Field>
ZUL_ALWAYS_INLINE JacobianDifference<Field> jacobian_add_affine_raw(JacobianPoint<Field>& sum,
                                                                    const JacobianPoint<Field>& p,
                                                                    const AffinePoint<Field>& q) {
    JacobianDifference<Field> d;
    typename Field::Element zz;
    Field::square(zz, p.z);
    Field::multiply(d.h, q.x, zz);
    Field::subtract(d.h, d.h, p.x);
    Field::multiply(d.r, p.z, zz);
    Field::multiply(d.r, q.y, d.r);
    Field::subtract(d.r, d.r, p.y);
    Field::multiply(sum.z, p.z, d.h);
    jacobian_finish<Field>(sum, p.x, p.y, d.h, d.r);
    return d;
}

// jacobian_add_raw: 12M + 4S, under the same conditions.
template<class Field>
ZUL_ALWAYS_INLINE JacobianDifference<Field>
jacobian_add_raw(JacobianPoint<Field>& sum, const JacobianPoint<Field>& p, const JacobianPoint<Field>& q) {
    JacobianDifference<Field> d;
    typename Field::Element zz1, zz2, u, s, z;
    Field::square(zz1, p.z);
    Field::square(zz2, q.z);
    Field::multiply(u, p.x, zz2);
    Field::multiply(d.h, q.x, zz1);
    Field::subtract(d.h, d.h, u);
    Field::multiply(s, q.z, zz2);
    Field::multiply(s, p.y, s);
    Field::multiply(d.r, p.z, zz1);
    Field::multiply(d.r, q.y, d.r);
    Field::subtract(d.r, d.r, s);
    Field::multiply(z, p.z, q.z);
    Field::multiply(sum.z, z, d.h);
    jacobian_finish<Field>(sum, u, s, d.h, d.r);
    return d;
}

// jacobian_settle replaces a sum that is not one: the double of p if p and q are equal, else infinity.
template<class Field>
void jacobian_settle(JacobianPoint<Field>& sum, const JacobianPoint<Field>& p,
                     const JacobianDifference<Field>& d) {
    if (!Field::is_zero(d.h))
        return;
    if (Field::is_zero(d.r))
        jacobian_double(sum, p);
    else
        sum = {};
}

// jacobian_add_affine adds q to a sum, in all cases.
template<class Field>
void jacobian_add_affine(JacobianPoint<Field>& sum, const AffinePoint<Field>& q) {
    if (Field::is_zero(sum.z)) {
        sum = {q.x, q.y, Field::kOne};
        return;
    }
    const JacobianPoint<Field> p = sum;
    jacobian_settle(sum, p, jacobian_add_affine_raw(sum, p, q));
}

// jacobian_add adds q to a sum, in all cases.
template<class Field>
void jacobian_add(JacobianPoint<Field>& sum, const JacobianPoint<Field>& q) {
    if (Field::is_zero(q.z))
        return;
    if (Field::is_zero(sum.z)) {
        sum = q;
        return;
    }
    const JacobianPoint<Field> p = sum;
    jacobian_settle(sum, p, jacobian_add_raw(sum, p, q));
}

// jacobian_to_affine gives (0, 0) for the point at infinity.
template<class Field>
void jacobian_to_affine(AffinePoint<Field>& affine, const JacobianPoint<Field>& p) {
    Wiped<typename Field::Element> inverse, power; // Z tells about the scalar
    Field::invert(*inverse, p.z);
    Field::square(*power, *inverse);
    Field::multiply(affine.x, p.x, *power);
    Field::multiply(*power, *power, *inverse);
    Field::multiply(affine.y, p.y, *power);
}

} // namespace zul
