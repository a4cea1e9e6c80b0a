#include "bignum/mp_kernel.h"

#include "frame/wipe.h"
#include "platform/cpu.h"
#include "platform/target.h"

#if ZUL_X86_64
#include "bignum/mp_exp_x86.h"
#include "bignum/mp_limb_product_x86.h"
#include "bignum/mp_portable.h"

namespace zul {

bool mp_kernel_usable() {
    return cpu_has(kCpuAvx2 | kCpuAdx);
}

// With an odd number of digits the highest is no part of a limb; its products are added digit by digit.
void mp_kernel_multiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    const size_t even = n / 2 * 2;
    limb_multiply(limbs_of(w), limbs_of(u), limbs_of(v), n / 2);
    if (n == even)
        return;
    mpSetZero(w + 2 * even, 2);
    mp_add_product(w + even, u, even, v + even, 1, n + 1);
    mp_add_product(w + even, v, n, u + even, 1, n + 1);
}

void mp_kernel_square(DIGIT_T* w, const DIGIT_T* x, size_t n) {
    const size_t even = n / 2 * 2;
    limb_square(limbs_of(w), limbs_of(x), n / 2);
    wipe_dead_stack();
    if (n == even)
        return;
    mpSetZero(w + 2 * even, 2);
    mp_add_product(w + even, x, even, x + even, 1, n + 1);
    mp_add_product(w + even, x, n, x + even, 1, n + 1);
}

namespace {

// Vectors and columns that did not fit the registers are left on the stack: those of the kernels above 2,056
// bits take up to 13 KB, as compilers go, and up to 1,036 bits 3 KB. Both lengths end within a digit, and the
// longer kernel works from there on.
void wipe_kernel_stack(size_t digits) {
    wipe_dead_stack(digits > 2056 / kDigitBits ? 16384 : digits > 1036 / kDigitBits ? 6144 : 4096);
}

} // namespace

void mp_kernel_mod_exp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, const DIGIT_T* m, size_t n) {
    const size_t digits = mpSizeof(m, n);
    const size_t exponentBits = mpBitLength(e, n);
    if (!cpu_has(kCpuAvx512 | kCpuAvx512Ifma) || !mod_exp_ifma(y, x, e, exponentBits, m, digits))
        mod_exp_adx(y, x, e, exponentBits, m, digits);
    mpSetZero(y + digits, n - digits);
    wipe_kernel_stack(digits);
}

bool mp_kernel_mod_exp_pair(const MpPower& a, const MpPower& b, size_t n) {
    const bool isDone = cpu_has(kCpuAvx512 | kCpuAvx512Ifma) && mod_exp_pair_ifma(a, b, n);
    wipe_kernel_stack(n);
    return isDone;
}

} // namespace zul

#else
namespace zul {

bool mp_kernel_usable() {
    return false;
}

void mp_kernel_multiply(DIGIT_T*, const DIGIT_T*, const DIGIT_T*, size_t) {}

void mp_kernel_square(DIGIT_T*, const DIGIT_T*, size_t) {}

void mp_kernel_mod_exp(DIGIT_T*, const DIGIT_T*, const DIGIT_T*, const DIGIT_T*, size_t) {}

bool mp_kernel_mod_exp_pair(const MpPower&, const MpPower&, size_t) {
    return false;
}

} // namespace zul
#endif
