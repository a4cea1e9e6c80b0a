#pragma once
#include "bignum/mp_limb.h"

#if ZUL_X86_64
// Row kernels: eight limbs q[0..7] times a running limb, with the sum of eight columns kept in registers.
// Each row has two carry chains, CF for the low and OF for the high halves of the products (mulx leaves both
// alone). The sum of a row fits: (B^8 - 1) + (B - 1) + (B - 1)(B^8 - 1) = B^9 - 1.
//
// 14 registers are all that a build with a frame pointer has to give: eight columns, two halves of a product,
// the running limb and three pointers.
namespace zul {

struct RowSum {
    Limb c[8] = {};
};

// One product into the columns lo and hi.
#define ZUL_ROW_MUL(limb, lo, hi)                                                                            \
    "mulx 8*" #limb "(%[q]), %[t], %[h]\n\t"                                                                 \
    "adcx %[t], %[" #lo "]\n\t"                                                                              \
    "adox %[h], %[" #hi "]\n\t"

// The low half of a product into the highest column that counts.
#define ZUL_ROW_LOW(limb, lo)                                                                                \
    "mulx 8*" #limb "(%[q]), %[t], %[h]\n\t"                                                                 \
    "adcx %[t], %[" #lo "]\n\t"

// A row starts with both flags clear, which also frees it from waiting for the row before.
#define ZUL_ROW_START(row)                                                                                   \
    "movq 8*" #row "(%[n]), %%rdx\n\t"                                                                       \
    "xorl %k[t], %k[t]\n\t"

// The first product with the limb of w that has its weight; column a is finished and stored there.
#define ZUL_ROW_FIRST(row, a, b)                                                                             \
    "mulx (%[q]), %[t], %[h]\n\t"                                                                            \
    "adcx %[t], %[" #a "]\n\t"                                                                               \
    "adox 8*" #row "(%[w]), %[" #a "]\n\t"                                                                   \
    "movq %[" #a "], 8*" #row "(%[w])\n\t"                                                                   \
    "adox %[h], %[" #b "]\n\t"

#define ZUL_ROW_FIRST_NEW(row, a, b)                                                                         \
    "mulx (%[q]), %[t], %[h]\n\t"                                                                            \
    "adcx %[t], %[" #a "]\n\t"                                                                               \
    "movq %[" #a "], 8*" #row "(%[w])\n\t"                                                                   \
    "adox %[h], %[" #b "]\n\t"

// A row; the register of its lowest column becomes that of its highest.
#define ZUL_ROW(first, row, a, b, c, d, e, f, g, i)                                                          \
    ZUL_ROW_START(row)                                                                                       \
    first(row, a, b) ZUL_ROW_MUL(1, b, c) ZUL_ROW_MUL(2, c, d) ZUL_ROW_MUL(3, d, e) ZUL_ROW_MUL(4, e, f)     \
        ZUL_ROW_MUL(5, f, g) ZUL_ROW_MUL(6, g, i) "mulx 56(%[q]), %[t], %[" #a "]\n\t"                       \
                                                  "adcx %[t], %[" #i "]\n\t"                                 \
                                                  "movl $0, %k[t]\n\t"                                       \
                                                  "adox %[t], %[" #a "]\n\t"                                 \
                                                  "adcx %[t], %[" #a "]\n\t"

#define ZUL_EIGHT_ROWS(first)                                                                                \
    ZUL_ROW(first, 0, c0, c1, c2, c3, c4, c5, c6, c7)                                                        \
    ZUL_ROW(first, 1, c1, c2, c3, c4, c5, c6, c7, c0)                                                        \
    ZUL_ROW(first, 2, c2, c3, c4, c5, c6, c7, c0, c1)                                                        \
    ZUL_ROW(first, 3, c3, c4, c5, c6, c7, c0, c1, c2)                                                        \
    ZUL_ROW(first, 4, c4, c5, c6, c7, c0, c1, c2, c3)                                                        \
    ZUL_ROW(first, 5, c5, c6, c7, c0, c1, c2, c3, c4)                                                        \
    ZUL_ROW(first, 6, c6, c7, c0, c1, c2, c3, c4, c5)                                                        \
    ZUL_ROW(first, 7, c7, c0, c1, c2, c3, c4, c5, c6)

#define ZUL_ROW_OPERANDS(sum, n_, q_, w_, t_, h_)                                                                   \
    : [c0] "+&r"(sum.c[0]), [c1] "+&r"(sum.c[1]), [c2] "+&r"(sum.c[2]), [c3] "+&r"(sum.c[3]), [c4] "+&r"(sum.c[4]),    \
      [c5] "+&r"(sum.c[5]), [c6] "+&r"(sum.c[6]), [c7] "+&r"(sum.c[7]), [t] "=&r"(t_), [h] "=&r"(h_)               \
    : [n] "r"(n_), [q] "r"(q_), [w] "r"(w_)                                                                  \
    : "rdx", "cc", "memory"

// Eight rows n[0..7]: the columns leave through w[0..7], whose limbs are added to them.
ZUL_ALWAYS_INLINE void rows_add(RowSum& sum, const Limb* n, const Limb* q, Limb* w) {
    Limb t, h;
    __asm__ volatile(ZUL_EIGHT_ROWS(ZUL_ROW_FIRST) ZUL_ROW_OPERANDS(sum, n, q, w, t, h));
}

// Likewise, but what w holds is not added.
ZUL_ALWAYS_INLINE void rows_new(RowSum& sum, const Limb* n, const Limb* q, Limb* w) {
    Limb t, h;
    __asm__ volatile(ZUL_EIGHT_ROWS(ZUL_ROW_FIRST_NEW) ZUL_ROW_OPERANDS(sum, n, q, w, t, h));
}

// A single row.
ZUL_ALWAYS_INLINE void row_add(RowSum& sum, const Limb* n, const Limb* q, Limb* w) {
    Limb t, h;
    __asm__ volatile(ZUL_ROW(ZUL_ROW_FIRST, 0, c0, c1, c2, c3, c4, c5, c6, c7)
                         ZUL_ROW_OPERANDS(sum, n, q, w, t, h));
    const Limb top = sum.c[0];
#pragma GCC unroll 8
    for (size_t k = 0; k < 7; k++)
        sum.c[k] = sum.c[k + 1];
    sum.c[7] = top;
}

// The last eight rows when only the columns of w[0..7] count: row k has 8 - k products.
ZUL_ALWAYS_INLINE void rows_add_low(RowSum& sum, const Limb* n, const Limb* q, Limb* w) {
    Limb t, h;
    __asm__ volatile(ZUL_ROW_START(0) ZUL_ROW_FIRST(0, c0, c1) ZUL_ROW_MUL(1, c1, c2) ZUL_ROW_MUL(2, c2, c3)
                         ZUL_ROW_MUL(3, c3, c4) ZUL_ROW_MUL(4, c4, c5) ZUL_ROW_MUL(5, c5, c6)
                             ZUL_ROW_MUL(6, c6, c7) ZUL_ROW_LOW(7, c7) /* */
                     ZUL_ROW_START(1) ZUL_ROW_FIRST(1, c1, c2) ZUL_ROW_MUL(1, c2, c3) ZUL_ROW_MUL(2, c3, c4)
                         ZUL_ROW_MUL(3, c4, c5) ZUL_ROW_MUL(4, c5, c6) ZUL_ROW_MUL(5, c6, c7)
                             ZUL_ROW_LOW(6, c7) /* */
                     ZUL_ROW_START(2) ZUL_ROW_FIRST(2, c2, c3) ZUL_ROW_MUL(1, c3, c4) ZUL_ROW_MUL(2, c4, c5)
                         ZUL_ROW_MUL(3, c5, c6) ZUL_ROW_MUL(4, c6, c7) ZUL_ROW_LOW(5, c7) /* */
                     ZUL_ROW_START(3) ZUL_ROW_FIRST(3, c3, c4) ZUL_ROW_MUL(1, c4, c5) ZUL_ROW_MUL(2, c5, c6)
                         ZUL_ROW_MUL(3, c6, c7) ZUL_ROW_LOW(4, c7) /* */
                     ZUL_ROW_START(4) ZUL_ROW_FIRST(4, c4, c5) ZUL_ROW_MUL(1, c5, c6) ZUL_ROW_MUL(2, c6, c7)
                         ZUL_ROW_LOW(3, c7)                                                              /* */
                     ZUL_ROW_START(5) ZUL_ROW_FIRST(5, c5, c6) ZUL_ROW_MUL(1, c6, c7) ZUL_ROW_LOW(2, c7) /* */
                     ZUL_ROW_START(6) ZUL_ROW_FIRST(6, c6, c7) ZUL_ROW_LOW(1, c7)                        /* */
                     ZUL_ROW_START(7) "mulx (%[q]), %[t], %[h]\n\t"
                                      "adcx %[t], %[c7]\n\t"
                                      "adox 56(%[w]), %[c7]\n\t"
                                      "movq %[c7], 56(%[w])\n\t" ZUL_ROW_OPERANDS(sum, n, q, w, t, h));
}

ZUL_ALWAYS_INLINE void load_rows(RowSum& sum, const Limb* w) {
#pragma GCC unroll 8
    for (size_t k = 0; k < 8; k++)
        sum.c[k] = w[k];
}

ZUL_ALWAYS_INLINE void store_rows(Limb* w, const RowSum& sum) {
#pragma GCC unroll 8
    for (size_t k = 0; k < 8; k++)
        w[k] = sum.c[k];
}

} // namespace zul
#endif
