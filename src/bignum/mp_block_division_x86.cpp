// Knuth's Algorithm D in radix B^8 (B = 2^64).
#include "bignum/mp_block_division_x86.h"

#if ZUL_X86_64
#include "bignum/mp_rows_x86.h"

namespace zul {

namespace {

// Row i of the estimate: the reciprocal's limb i times u[8 - i .. 8]. Of the first product only the high half
// counts, in column 9; the last one begins the column 9 + i.
#define ZUL_EST_START(row)                                                                                   \
    "movq 8*" #row "(%[s]), %%rdx\n\t"                                                                       \
    "xorl %k[t], %k[t]\n\t"                                                                                  \
    "mulx 64-8*" #row "(%[u]), %[t], %[h]\n\t"                                                               \
    "adox %[h], %[c9]\n\t"
#define ZUL_EST_MUL(limb, lo, hi)                                                                            \
    "mulx 8*(" #limb ")(%[u]), %[t], %[h]\n\t"                                                               \
    "adcx %[t], %[" #lo "]\n\t"                                                                              \
    "adox %[h], %[" #hi "]\n\t"
#define ZUL_EST_LAST(lo, fresh)                                                                              \
    "mulx 64(%[u]), %[t], %[" #fresh "]\n\t"                                                                 \
    "adcx %[t], %[" #lo "]\n\t"                                                                              \
    "movl $0, %k[t]\n\t"                                                                                     \
    "adox %[t], %[" #fresh "]\n\t"                                                                           \
    "adcx %[t], %[" #fresh "]\n\t"

// estimate_quotient: of u[0..8] * (B^9 + V) the columns 10 to 17, the quotient digit, go to state[9..16];
// column 9, the guard, is returned.
//
// Let W = u * B^(n-1) + (less than B^(n-1)) be the dividend and Q.g = W / N * B the quotient with its guard
// in units of the guard. The estimate is never greater. It is smaller by less than
//   2   for the limbs of W below u                      (B * B^(n-1) / N, N >= B^n / 2)
//   1+  for the fraction cut off V                      (u < B^9)
//   8+  for the products of columns 0 to 7 left out     (the 8 of column 7 make 8, the rest next to nothing)
//   9   for the low halves of column 8 left out,
// that is by less than 21 units.
ZUL_ALWAYS_INLINE Limb estimate_quotient(const Limb* u, Limb* state) {
    Limb c9, c10, c11, c12, c13, c14, c15, c16, c17, t, h;
    __asm__ volatile(
        "movq (%[s]), %%rdx\n\t"
        "mulx 64(%[u]), %[t], %[c9]\n\t"                                                         //
        ZUL_EST_START(1) ZUL_EST_LAST(c9, c10)                                                   //
        ZUL_EST_START(2) ZUL_EST_MUL(7, c9, c10) ZUL_EST_LAST(c10, c11)                          //
        ZUL_EST_START(3) ZUL_EST_MUL(6, c9, c10) ZUL_EST_MUL(7, c10, c11) ZUL_EST_LAST(c11, c12) //
        ZUL_EST_START(4) ZUL_EST_MUL(5, c9, c10) ZUL_EST_MUL(6, c10, c11) ZUL_EST_MUL(7, c11, c12)
            ZUL_EST_LAST(c12, c13) //
        ZUL_EST_START(5) ZUL_EST_MUL(4, c9, c10) ZUL_EST_MUL(5, c10, c11) ZUL_EST_MUL(6, c11, c12)
            ZUL_EST_MUL(7, c12, c13) ZUL_EST_LAST(c13, c14) //
        ZUL_EST_START(6) ZUL_EST_MUL(3, c9, c10) ZUL_EST_MUL(4, c10, c11) ZUL_EST_MUL(5, c11, c12)
            ZUL_EST_MUL(6, c12, c13) ZUL_EST_MUL(7, c13, c14) ZUL_EST_LAST(c14, c15) //
        ZUL_EST_START(7) ZUL_EST_MUL(2, c9, c10) ZUL_EST_MUL(3, c10, c11) ZUL_EST_MUL(4, c11, c12)
            ZUL_EST_MUL(5, c12, c13) ZUL_EST_MUL(6, c13, c14) ZUL_EST_MUL(7, c14, c15)
                ZUL_EST_LAST(c15, c16) //
        ZUL_EST_START(8) ZUL_EST_MUL(1, c9, c10) ZUL_EST_MUL(2, c10, c11) ZUL_EST_MUL(3, c11, c12)
            ZUL_EST_MUL(4, c12, c13) ZUL_EST_MUL(5, c13, c14) ZUL_EST_MUL(6, c14, c15)
                ZUL_EST_MUL(7, c15, c16) ZUL_EST_LAST(c16, c17) //
        "addq (%[u]), %[c9]\n\t"
        "adcq 8(%[u]), %[c10]\n\t"
        "adcq 16(%[u]), %[c11]\n\t"
        "adcq 24(%[u]), %[c12]\n\t"
        "adcq 32(%[u]), %[c13]\n\t"
        "adcq 40(%[u]), %[c14]\n\t"
        "adcq 48(%[u]), %[c15]\n\t"
        "adcq 56(%[u]), %[c16]\n\t"
        "adcq 64(%[u]), %[c17]\n\t"
        "movq %[c10], 72(%[s])\n\t"
        "movq %[c11], 80(%[s])\n\t"
        "movq %[c12], 88(%[s])\n\t"
        "movq %[c13], 96(%[s])\n\t"
        "movq %[c14], 104(%[s])\n\t"
        "movq %[c15], 112(%[s])\n\t"
        "movq %[c16], 120(%[s])\n\t"
        "movq %[c17], 128(%[s])\n\t"
        : [c9] "=&r"(c9), [c10] "=&r"(c10), [c11] "=&r"(c11), [c12] "=&r"(c12), [c13] "=&r"(c13),
          [c14] "=&r"(c14), [c15] "=&r"(c15), [c16] "=&r"(c16), [c17] "=&r"(c17), [t] "=&r"(t), [h] "=&r"(h)
        : [u] "r"(u), [s] "r"(state)
        : "rdx", "cc", "memory");
    return c9;
}

// A guard below this leaves no room for a greater quotient digit: the digit is exact and what remains is
// below the divisor, without a comparison.
constexpr Limb kExactGuard = ~Limb{0} - 32;

// The rare other case, about one block in 2^59.
[[gnu::noinline, gnu::cold]] void divide_by_limbs(const BlockDivisor& by, Limb* w) {
    for (size_t k = 8; k-- > 0;)
        limb_divide_step(w + k, by.divisor, by.n, by.reciprocal);
}

ZUL_ALWAYS_INLINE void reduce(const BlockDivisor& by, Limb* w, size_t n) {
    const Limb* const quotient = by.state + BlockDivisor::kGuardedLimbs;
    for (size_t base = n; base > 0;) {
        base -= 8;
        Limb* const window = w + base;
        if (estimate_quotient(window + n - 1, by.state) >= kExactGuard) [[unlikely]] {
            divide_by_limbs(by, window);
            continue;
        }
        // Subtracting Q * N is adding Q * (B^n - N) modulo B^n: the columns from n on would come to zero.
        RowSum sum;
        for (size_t j = 0; j + 8 < n; j += 8)
            rows_add(sum, by.negative + j, quotient, window + j);
        rows_add_low(sum, by.negative + n - 8, quotient, window + n - 8);
    }
}

void reduce_any(const BlockDivisor& by, Limb* w) {
    reduce(by, w, by.n);
}

template<size_t N>
void reduce_fixed(const BlockDivisor& by, Limb* w) {
    reduce(by, w, N);
}

} // namespace

BlockDivisor block_divisor(const Limb* divisor, size_t n, Limb* negative, Limb* state, Limb* scratch) {
    BlockDivisor by{n, divisor, negative, state, limb_reciprocal(divisor[n - 1], divisor[n - 2]), nullptr};
    by.reduce = n == 8    ? reduce_fixed<8>
                : n == 16 ? reduce_fixed<16>
                : n == 32 ? reduce_fixed<32>
                : n == 64 ? reduce_fixed<64>
                          : reduce_any;
    for (size_t i = 0; i < n; i++)
        negative[i] = 0;
    limb_subtract(negative, negative, divisor, n);

    // (B^(n + 9) - 1) / N is B^9 + V with V < B^9: the step for B^9 is a subtraction, the others make V.
    for (size_t i = 0; i < n + 9; i++)
        scratch[i] = ~Limb{0};
    limb_subtract(scratch + 9, scratch + 9, divisor, n);
    for (size_t k = BlockDivisor::kGuardedLimbs; k-- > 0;)
        state[k] = limb_divide_step(scratch + k, divisor, n, by.reciprocal);
    return by;
}

} // namespace zul
#endif
