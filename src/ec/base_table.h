#pragma once
#include "ec/jacobian.h"

// The tables of multiples of the base point, which tools/ec_tables computes.
namespace zul {

constexpr size_t kBaseWindow = 5; // bits of a signed digit: -16 to 16
constexpr size_t kBaseMultiples = size_t{1} << (kBaseWindow - 1);

template<class Field>
constexpr size_t kBaseWindows = (Field::kBits + kBaseWindow) / kBaseWindow;
// Windows that share one row of the table; between them the sum is doubled.
template<class Field>
constexpr size_t kBaseStride = Field::kBits > 256 ? 4 : 2;
template<class Field>
constexpr size_t kBaseRows = (kBaseWindows<Field> + kBaseStride<Field> - 1) / kBaseStride<Field>;

// Row i holds 1 to 16 times 2^(5 i stride) times the base point.
template<class Field>
using BaseTable = std::array<std::array<AffinePoint<Field>, kBaseMultiples>, kBaseRows<Field>>;

// 1, 3, 5 to 63 times the base point, for the verification of signatures.
constexpr size_t kBaseOddWidth = 7;
template<class Field>
using BaseOdd = std::array<AffinePoint<Field>, size_t{1} << (kBaseOddWidth - 2)>;

} // namespace zul
