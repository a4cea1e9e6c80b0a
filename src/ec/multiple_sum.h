#pragma once
#include "ec/base_table.h"
#include "ec/non_adjacent_form.h"

// Sums of two multiples, for the verification of signatures: nothing here is secret, and the time depends on
// the scalars.
namespace zul {

// sum_of_multiples gives the sum of a times the base point and b times a point; baseOdd holds the odd
// multiples of the base point.
template<class Field, class Scalar, class Table>
void sum_of_multiples(JacobianPoint<Field>& sum, const Scalar& a, const Table& baseOdd, const Scalar& b,
                      const AffinePoint<Field>& point) {
    constexpr size_t kWidth = 5, kMultiples = 8;
    std::array<JacobianPoint<Field>, kMultiples> odd;
    odd[0] = {point.x, point.y, Field::kOne};
    JacobianPoint<Field> twice;
    jacobian_double(twice, odd[0]);
    for (size_t i = 1; i < kMultiples; i++) {
        odd[i] = odd[i - 1];
        jacobian_add(odd[i], twice);
    }

    const NonAdjacentForm<Field::kLimbs, Field::kBits> na(a, kBaseOddWidth), nb(b, kWidth);
    sum = {};
    bool isStarted = false;
    for (size_t i = Field::kBits + 1; i-- > 0;) {
        if (isStarted)
            jacobian_double(sum, sum);
        if (const int8_t digit = nb.digits[i]) {
            JacobianPoint<Field> q = odd[static_cast<size_t>(digit < 0 ? -digit : digit) / 2];
            if (digit < 0)
                Field::subtract(q.y, typename Field::Element{}, q.y);
            jacobian_add(sum, q);
            isStarted = true;
        }
        if (const int8_t digit = na.digits[i]) {
            const auto& entry = baseOdd[static_cast<size_t>(digit < 0 ? -digit : digit) / 2];
            AffinePoint<Field> q = {entry.x, entry.y};
            if (digit < 0)
                Field::subtract(q.y, typename Field::Element{}, q.y);
            jacobian_add_affine(sum, q);
            isStarted = true;
        }
    }
}

} // namespace zul
