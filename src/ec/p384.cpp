#include "ec/curve_operations.h"
#include "ec/p384_field_x86.h"
#include "platform/cpu.h"

namespace zul {
namespace {

// The lists are flat.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces"
// Made by tools/ec_tables.
constexpr BaseTable<P384Field> kBaseTable = {{
#include "ec/p384_base.inc"
}};
constexpr BaseOdd<P384Field> kBaseOdd = {{
#include "ec/p384_base_odd.inc"
}};
#pragma GCC diagnostic pop

} // namespace

const EcOperations& p384_operations() {
#if ZUL_X86_64
    if (cpu_has(kCpuAvx2 | kCpuAdx)) // BMI2 comes with the first
        return CurveOperations<P384FieldX86, kBaseTable, kBaseOdd>::kOperations;
#endif
    return CurveOperations<P384Field, kBaseTable, kBaseOdd>::kOperations;
}

} // namespace zul
