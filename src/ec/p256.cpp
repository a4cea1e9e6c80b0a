#include "ec/curve_operations.h"
#include "ec/p256_field_x86.h"
#include "platform/cpu.h"

namespace zul {
namespace {

// The lists are flat.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces"
// Made by tools/ec_tables.
constexpr BaseTable<P256Field> kBaseTable = {{
#include "ec/p256_base.inc"
}};
constexpr BaseOdd<P256Field> kBaseOdd = {{
#include "ec/p256_base_odd.inc"
}};
#pragma GCC diagnostic pop

} // namespace

const EcOperations& p256_operations() {
#if ZUL_X86_64
    if (cpu_has(kCpuAvx2 | kCpuAdx)) // BMI2 comes with the first
        return CurveOperations<P256FieldX86, kBaseTable, kBaseOdd>::kOperations;
#endif
    return CurveOperations<P256Field, kBaseTable, kBaseOdd>::kOperations;
}

} // namespace zul
