#include "ec/curve_operations.h"
#include "ec/p521_field.h"

namespace zul {
namespace {

// The lists are flat.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces"
// Made by tools/ec_tables.
constexpr BaseTable<P521Field> kBaseTable = {{
#include "ec/p521_base.inc"
}};
constexpr BaseOdd<P521Field> kBaseOdd = {{
#include "ec/p521_base_odd.inc"
}};
#pragma GCC diagnostic pop

} // namespace

const EcOperations& p521_operations() {
    return CurveOperations<P521Field, kBaseTable, kBaseOdd>::kOperations;
}

} // namespace zul
