#pragma once
#include "ec/base_table.h"
#include "ec/signed_digit.h"
#include "ec/table_lookup.h"
#include "frame/wipe.h"

// Multiples by secret scalars, in constant time: no branch, no address and no division depends on one.
//
// A scalar becomes signed digits of 5 bits. Sums of disjoint digits are added with the raw additions, so two
// sums may be neither equal nor opposite modulo the order n. As integers they cannot be: the lowest digit of
// either is not divisible by 32. Modulo n they cannot be either, as all digits together stay below n: scalars
// are at most n/2 (or are negated, and the product with them), so the digits' absolute values sum up to less
// than 2^(bits - 1) (1 + 32/31 / 2) < n. Where the sum has been shifted meanwhile, both stand for themselves
// times one power of 32, which changes nothing modulo n. By the same argument a sum that has begun is never
// at infinity, so neither is what is doubled.
namespace zul {

// element_select replaces result by a where mask is all ones.
template<class Element>
ZUL_ALWAYS_INLINE void element_select(Element& result, uint64_t mask, const Element& a) {
#pragma GCC unroll 16
    for (size_t i = 0; i < result.size(); i++)
        result[i] ^= (result[i] ^ a[i]) & mask;
}

template<class Field>
ZUL_ALWAYS_INLINE void negate_if(typename Field::Element& y, uint64_t mask) {
    typename Field::Element negated;
    Field::subtract(negated, typename Field::Element{}, y);
    element_select(y, mask, negated);
}

// A scalar brought to at most n/2.
template<class Field>
struct HalvedScalar {
    Limbs<Field::kLimbs> value;
    uint64_t isNegated; // a mask

    explicit HalvedScalar(const Limbs<Field::kLimbs>& scalar) {
        Limbs<Field::kLimbs> opposite;
        limbs_subtract(opposite, Field::kOrder.p, scalar);
        Limbs<Field::kLimbs> difference;
        isNegated = limb_mask(limbs_subtract(difference, opposite, scalar));
        limbs_select(value, isNegated, opposite, scalar);
    }
    HalvedScalar(const HalvedScalar&) = delete;
    HalvedScalar& operator=(const HalvedScalar&) = delete;
    ~HalvedScalar() { wipe_bytes(&value, sizeof value); }
};

// A sum in progress; it is at infinity until the first digit that is not 0.
template<class Field>
struct SecretSum {
    JacobianPoint<Field> point{};
    uint64_t isStarted = 0; // a mask

    // take makes sum the new point, or entry if there was none, or neither for a digit of 0.
    ZUL_ALWAYS_INLINE void take(const JacobianPoint<Field>& sum, const JacobianPoint<Field>& entry,
                                uint32_t magnitude) {
        const uint64_t isUsed = limb_mask(magnitude);
        element_select(point.x, isUsed & isStarted, sum.x);
        element_select(point.y, isUsed & isStarted, sum.y);
        element_select(point.z, isUsed & isStarted, sum.z);
        element_select(point.x, isUsed & ~isStarted, entry.x);
        element_select(point.y, isUsed & ~isStarted, entry.y);
        element_select(point.z, isUsed & ~isStarted, entry.z);
        isStarted |= isUsed;
    }
};

// base_multiply gives scalar times the base point; 0 < scalar < n.
template<class Field, class Table>
void base_multiply(JacobianPoint<Field>& result, const Limbs<Field::kLimbs>& secret, const Table& table) {
    const HalvedScalar<Field> scalar(secret);
    Wiped<SecretSum<Field>> sum;
    Wiped<JacobianPoint<Field>> entry, next;
    entry->z = Field::kOne;
    for (size_t offset = kBaseStride<Field>; offset-- > 0;) {
        for (size_t window = offset; window < kBaseWindows<Field>; window += kBaseStride<Field>) {
            const SignedDigit digit = signed_digit<kBaseWindow>(scalar.value, window);
            AffinePoint<Field> found{};
            table_lookup(found, table[window / kBaseStride<Field>], digit.magnitude);
            negate_if<Field>(found.y, digit.isNegative);
            entry->x = found.x;
            entry->y = found.y;
            jacobian_add_affine_raw<Field>(*next, sum->point, found);
            sum->take(*next, *entry, digit.magnitude);
        }
        if (offset > 0) {
            for (size_t i = 0; i < kBaseWindow; i++)
                jacobian_double(sum->point, sum->point);
        }
    }
    result = sum->point;
    negate_if<Field>(result.y, scalar.isNegated);
}

// point_multiply gives scalar times a point; 0 < scalar < n.
template<class Field>
void point_multiply(JacobianPoint<Field>& result, const Limbs<Field::kLimbs>& secret,
                    const AffinePoint<Field>& point) {
    std::array<JacobianPoint<Field>, kBaseMultiples> table; // of a public point
    table[0] = {point.x, point.y, Field::kOne};
    for (size_t i = 1; i < kBaseMultiples; i++) {
        if (i % 2 == 1)
            jacobian_double(table[i], table[i / 2]);
        else
            jacobian_add_affine_raw(table[i], table[i - 1], point);
    }
    const HalvedScalar<Field> scalar(secret);
    Wiped<SecretSum<Field>> sum;
    Wiped<JacobianPoint<Field>> entry, next;
    for (size_t window = kBaseWindows<Field>; window-- > 0;) {
        const SignedDigit digit = signed_digit<kBaseWindow>(scalar.value, window);
        JacobianPoint<Field> found{};
        table_lookup(found, table, digit.magnitude);
        negate_if<Field>(found.y, digit.isNegative);
        *entry = found;
        jacobian_add_raw<Field>(*next, sum->point, *entry);
        sum->take(*next, *entry, digit.magnitude);
        if (window > 0) {
            for (size_t i = 0; i < kBaseWindow; i++)
                jacobian_double(sum->point, sum->point);
        }
    }
    result = sum->point;
    negate_if<Field>(result.y, scalar.isNegated);
}

} // namespace zul
