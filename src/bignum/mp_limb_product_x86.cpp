// Schoolbook products of 64-bit limbs, eight limbs of one operand at a time.
#include "bignum/mp_limb_product_x86.h"

#if ZUL_X86_64
#include "bignum/mp_rows_x86.h"

namespace zul {

namespace {

// add_product: w += u * v over n limbs; the limb that follows is returned.
Limb add_product(Limb* w, const Limb* u, Limb v, size_t n) {
    Limb carry = 0;
    for (size_t i = 0; i < n; i++) {
        const WideLimb x = static_cast<WideLimb>(u[i]) * v + w[i] + carry;
        w[i] = static_cast<Limb>(x);
        carry = static_cast<Limb>(x >> 64);
    }
    return carry;
}

// One pass: w += u * q[0..7] for count limbs of u, and the eight columns of sum at its low end. The first
// pass (fresh) does not read w, but where single rows follow the groups of eight.
ZUL_ALWAYS_INLINE void add_pass(Limb* w, const Limb* u, size_t count, const Limb* q, RowSum& sum,
                                bool fresh) {
    size_t j = 0;
    if (fresh)
        for (; j + 8 <= count; j += 8)
            rows_new(sum, u + j, q, w + j);
    else
        for (; j + 8 <= count; j += 8)
            rows_add(sum, u + j, q, w + j);
    for (; j < count; j++)
        row_add(sum, u + j, q, w + j);
    store_rows(w + count, sum);
}

ZUL_ALWAYS_INLINE void multiply(Limb* w, const Limb* u, const Limb* v, size_t n) {
    const size_t blocks = n / 8 * 8;
    if (n != blocks)
        for (size_t i = 0; i < 2 * n; i++)
            w[i] = 0;
    for (size_t i = 0; i < blocks; i += 8) {
        RowSum sum;
        add_pass(w + i, u, n, v + i, sum, i == 0);
    }
    for (size_t i = blocks; i < n; i++)
        w[n + i] = add_product(w + i, u, v[i], n);
}

// The 28 products of two different limbs among x[0..7], each once: the columns 1 to 14 of w. Column k lives
// in the register k mod 8: row i finishes the columns 2i + 1 and 2i + 2 and begins the column i + 8.
#define ZUL_TRI_START(row)                                                                                   \
    "movq 8*" #row "(%[x]), %%rdx\n\t"                                                                       \
    "xorl %k[t], %k[t]\n\t"
#define ZUL_TRI_MUL(limb, lo, hi)                                                                            \
    "mulx 8*" #limb "(%[x]), %[t], %[h]\n\t"                                                                 \
    "adcx %[t], %[" #lo "]\n\t"                                                                              \
    "adox %[h], %[" #hi "]\n\t"
#define ZUL_TRI_LAST(lo, fresh)                                                                              \
    "mulx 56(%[x]), %[t], %[" #fresh "]\n\t"                                                                 \
    "adcx %[t], %[" #lo "]\n\t"                                                                              \
    "movl $0, %k[t]\n\t"                                                                                     \
    "adox %[t], %[" #fresh "]\n\t"                                                                           \
    "adcx %[t], %[" #fresh "]\n\t"
#define ZUL_TRI_STORE(column, a, b)                                                                          \
    "movq %[" #a "], 8*" #column "(%[w])\n\t"                                                                \
    "movq %[" #b "], 8*" #column "+8(%[w])\n\t"
#define ZUL_TRI_FIRST_ROW(limb, lo, fresh)                                                                   \
    "mulx 8*" #limb "(%[x]), %[t], %[" #fresh "]\n\t"                                                        \
    "adcx %[t], %[" #lo "]\n\t"

ZUL_ALWAYS_INLINE void cross_products(Limb* w, const Limb* x) {
    Limb c0, c1, c2, c3, c4, c5, c6, c7, t, h;
    __asm__ volatile(ZUL_TRI_START(0) "mulx 8(%[x]), %[c1], %[c2]\n\t"         //
                     ZUL_TRI_FIRST_ROW(2, c2, c3) ZUL_TRI_FIRST_ROW(3, c3, c4) //
                     ZUL_TRI_FIRST_ROW(4, c4, c5) ZUL_TRI_FIRST_ROW(5, c5, c6) //
                     ZUL_TRI_FIRST_ROW(6, c6, c7) ZUL_TRI_LAST(c7, c0)         //
                     ZUL_TRI_STORE(1, c1, c2)                                  //
                     ZUL_TRI_START(1) ZUL_TRI_MUL(2, c3, c4) ZUL_TRI_MUL(3, c4, c5) ZUL_TRI_MUL(4, c5, c6)
                         ZUL_TRI_MUL(5, c6, c7) ZUL_TRI_MUL(6, c7, c0) ZUL_TRI_LAST(c0, c1)
                             ZUL_TRI_STORE(3, c3, c4) //
                     ZUL_TRI_START(2) ZUL_TRI_MUL(3, c5, c6) ZUL_TRI_MUL(4, c6, c7) ZUL_TRI_MUL(5, c7, c0)
                         ZUL_TRI_MUL(6, c0, c1) ZUL_TRI_LAST(c1, c2) ZUL_TRI_STORE(5, c5, c6) //
                     ZUL_TRI_START(3) ZUL_TRI_MUL(4, c7, c0) ZUL_TRI_MUL(5, c0, c1) ZUL_TRI_MUL(6, c1, c2)
                         ZUL_TRI_LAST(c2, c3) ZUL_TRI_STORE(7, c7, c0) //
                     ZUL_TRI_START(4) ZUL_TRI_MUL(5, c1, c2) ZUL_TRI_MUL(6, c2, c3) ZUL_TRI_LAST(c3, c4)
                         ZUL_TRI_STORE(9, c1, c2)                                                           //
                     ZUL_TRI_START(5) ZUL_TRI_MUL(6, c3, c4) ZUL_TRI_LAST(c4, c5) ZUL_TRI_STORE(11, c3, c4) //
                     ZUL_TRI_START(6) ZUL_TRI_LAST(c5, c6) ZUL_TRI_STORE(13, c5, c6)                        //
                     : [c0] "=&r"(c0), [c1] "=&r"(c1), [c2] "=&r"(c2), [c3] "=&r"(c3), [c4] "=&r"(c4),
                       [c5] "=&r"(c5), [c6] "=&r"(c6), [c7] "=&r"(c7), [t] "=&r"(t), [h] "=&r"(h)
                     : [x] "r"(x), [w] "r"(w)
                     : "rdx", "cc", "memory");
}

// w[0..7] += corner[0..7]; the carry goes on through corner[8..15], which becomes the sum. The 28 products
// leave room for it there.
#define ZUL_CORNER_ADD(add, limb)                                                                            \
    "movq 8*" #limb "(%[c]), %[t]\n\t" add " 8*" #limb "(%[w]), %[t]\n\t"                                    \
    "movq %[t], 8*" #limb "(%[w])\n\t"
#define ZUL_CORNER_CARRY(limb)                                                                               \
    "movq 64+8*" #limb "(%[c]), %[c" #limb "]\n\t"                                                           \
    "adcq $0, %[c" #limb "]\n\t"

ZUL_ALWAYS_INLINE void add_corner(RowSum& sum, Limb* w, const Limb* corner) {
    Limb t;
    __asm__ volatile(
        ZUL_CORNER_ADD("addq", 0) ZUL_CORNER_ADD("adcq", 1) ZUL_CORNER_ADD("adcq", 2)
            ZUL_CORNER_ADD("adcq", 3) ZUL_CORNER_ADD("adcq", 4) ZUL_CORNER_ADD("adcq", 5)
                ZUL_CORNER_ADD("adcq", 6) ZUL_CORNER_ADD("adcq", 7) ZUL_CORNER_CARRY(0) ZUL_CORNER_CARRY(1)
                    ZUL_CORNER_CARRY(2) ZUL_CORNER_CARRY(3) ZUL_CORNER_CARRY(4) ZUL_CORNER_CARRY(5)
                        ZUL_CORNER_CARRY(6) ZUL_CORNER_CARRY(7)
        : [c0] "=&r"(sum.c[0]), [c1] "=&r"(sum.c[1]), [c2] "=&r"(sum.c[2]), [c3] "=&r"(sum.c[3]),
          [c4] "=&r"(sum.c[4]), [c5] "=&r"(sum.c[5]), [c6] "=&r"(sum.c[6]), [c7] "=&r"(sum.c[7]), [t] "=&r"(t)
        : [w] "r"(w), [c] "r"(corner)
        : "cc", "memory");
}

// w = 2w + the squares of four limbs, on one chain each; the two carries, 0 or 1, go in and out.
#define ZUL_DIAGONAL(limb)                                                                                   \
    "movq 8*" #limb "(%[x]), %%rdx\n\t"                                                                      \
    "mulx %%rdx, %[t], %[h]\n\t"                                                                             \
    "movq 16*" #limb "(%[w]), %[a]\n\t"                                                                      \
    "movq 16*" #limb "+8(%[w]), %[b]\n\t"                                                                    \
    "adcx %[a], %[a]\n\t"                                                                                    \
    "adox %[t], %[a]\n\t"                                                                                    \
    "adcx %[b], %[b]\n\t"                                                                                    \
    "adox %[h], %[b]\n\t"                                                                                    \
    "movq %[a], 16*" #limb "(%[w])\n\t"                                                                      \
    "movq %[b], 16*" #limb "+8(%[w])\n\t"

struct DiagonalCarries {
    Limb cf = 0, of = 0;
};

ZUL_ALWAYS_INLINE void double_and_add_squares(Limb* w, const Limb* x, DiagonalCarries& carry) {
    Limb a, b, t, h;
    __asm__ volatile(
        "addq $-1, %[cf]\n\t" // CF again, and OF = 0
        "movq $-1, %[t]\n\t"
        "adox %[t], %[of]\n\t"                                          // OF again
        ZUL_DIAGONAL(0) ZUL_DIAGONAL(1) ZUL_DIAGONAL(2) ZUL_DIAGONAL(3) //
        "movl $0, %k[cf]\n\t"
        "movl $0, %k[of]\n\t"
        "adcx %[cf], %[cf]\n\t"
        "adox %[of], %[of]\n\t"
        : [cf] "+&r"(carry.cf), [of] "+&r"(carry.of), [a] "=&r"(a), [b] "=&r"(b), [t] "=&r"(t), [h] "=&r"(h)
        : [x] "r"(x), [w] "r"(w)
        : "rdx", "cc", "memory");
}

ZUL_ALWAYS_INLINE void square(Limb* w, const Limb* x, size_t n) {
    const size_t blocks = n / 8 * 8;
    if (n != blocks)
        for (size_t i = 0; i < 2 * n; i++)
            w[i] = 0;
    // Before block i the sum of the blocks below it fills w[0 .. n + i - 1].
    for (size_t i = 0; i < blocks; i += 8) {
        Limb apart[16];
        Limb* const corner = i == 0 ? w : apart;
        corner[0] = corner[15] = 0;
        cross_products(corner, x + i);
        RowSum sum;
        if (i == 0) {
            load_rows(sum, corner + 8);
            if (n != blocks)
                store_rows(w + 8, RowSum{}); // for the single rows
        } else {
            add_corner(sum, w + 2 * i, corner);
        }
        add_pass(w + 2 * i + 8, x + i + 8, n - i - 8, x + i, sum, i == 0);
    }
    for (size_t i = blocks; i < n; i++)
        w[n + i] = add_product(w + 2 * i + 1, x + i + 1, x[i], n - i - 1);

    DiagonalCarries carry;
    size_t i = 0;
    for (; i + 4 <= n; i += 4)
        double_and_add_squares(w + 2 * i, x + i, carry);
    if (n % 4 == 0)
        return;
    for (Limb rest = carry.cf + carry.of; i < n; i++) {
        const WideLimb s = static_cast<WideLimb>(x[i]) * x[i];
        WideLimb sum = static_cast<WideLimb>(w[2 * i]) * 2 + static_cast<Limb>(s) + rest;
        w[2 * i] = static_cast<Limb>(sum);
        sum = static_cast<WideLimb>(w[2 * i + 1]) * 2 + static_cast<Limb>(s >> 64) +
              static_cast<Limb>(sum >> 64);
        w[2 * i + 1] = static_cast<Limb>(sum);
        rest = static_cast<Limb>(sum >> 64);
    }
}

template<size_t N>
void multiply_fixed(Limb* w, const Limb* u, const Limb* v, size_t) {
    multiply(w, u, v, N);
}

template<size_t N>
void square_fixed(Limb* w, const Limb* x, size_t) {
    square(w, x, N);
}

} // namespace

void limb_multiply(Limb* w, const Limb* u, const Limb* v, size_t n) {
    multiply(w, u, v, n);
}

void limb_square(Limb* w, const Limb* x, size_t n) {
    square(w, x, n);
}

LimbMultiply limb_multiply_for(size_t n) {
    return n == 8    ? multiply_fixed<8>
           : n == 16 ? multiply_fixed<16>
           : n == 32 ? multiply_fixed<32>
           : n == 64 ? multiply_fixed<64>
                     : limb_multiply;
}

LimbSquare limb_square_for(size_t n) {
    return n == 8    ? square_fixed<8>
           : n == 16 ? square_fixed<16>
           : n == 32 ? square_fixed<32>
           : n == 64 ? square_fixed<64>
                     : limb_square;
}

} // namespace zul
#endif
