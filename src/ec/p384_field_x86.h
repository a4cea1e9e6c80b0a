#pragma once
#include "ec/p384_field.h"

#if ZUL_X86_64
namespace zul {

// P384Field for processors with BMI2 and ADX. p = 2^384 - c with c = 2^128 + 2^96 - 2^32 + 1, so adding q p
// is adding q at limb 6 and subtracting q c, of which limb 0 cancels what is there.
struct ZUL_HIDDEN P384FieldX86 : P384Field {
    static constexpr uint64_t kC0 = 0xFFFFFFFF00000001,
                              kC1 = 0x00000000FFFFFFFF; // c = 1 * 2^128 + kC1 * 2^64 + kC0

// One limb of the reduction: r1 to r7 take what r0 needs to vanish.
#define ZUL_REDUCE(r0, r1, r2, r3, r4, r5, r6, r7)                                                           \
    "movq %[" #r0 "], %%rdx\n shlq $32, %%rdx\n addq %[" #r0 "], %%rdx\n"                                    \
    "mulxq %[c0], %[" #r0 "], %[low]\n mulxq %[c1], %[" #r0 "], %[high]\n"                                   \
    "addq %[" #r0 "], %[low]\n adcq %%rdx, %[high]\n movl $0, %k[" #r0 "]\n adcq $0, %[" #r0 "]\n"           \
    "subq %[low], %[" #r1 "]\n sbbq %[high], %[" #r2 "]\n sbbq %[" #r0 "], %[" #r3 "]\n"                     \
    "sbbq $0, %[" #r4 "]\n sbbq $0, %[" #r5 "]\n sbbq $0, %%rdx\n"                                           \
    "addq %%rdx, %[" #r6 "]\n adcq $0, %[" #r7 "]\n"

    static ZUL_ALWAYS_INLINE void multiply(Element& product, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, r4, r5, r6, r7, low, high;
        const uint64_t *left = a.data(), *right = b.data();
#define ZUL_TERM(offset, r0, r1)                                                                             \
    "mulxq " #offset "(%[a]), %[low], %[high]\n adcxq %[low], %[" #r0 "]\n adoxq %[high], %[" #r1 "]\n"
#define ZUL_ROW(r0, r1, r2, r3, r4, r5, r6, r7, offset)                                                      \
    "movq " #offset "(%[b]), %%rdx\n xorl %k[" #r7 "], %k[" #r7 "]\n" ZUL_TERM(0, r0, r1)                    \
        ZUL_TERM(8, r1, r2) ZUL_TERM(16, r2, r3) ZUL_TERM(24, r3, r4) ZUL_TERM(32, r4, r5)                   \
            ZUL_TERM(40, r5, r6) "movl $0, %k[low]\n adcxq %[low], %[" #r6 "]\n adoxq %[low], %[" #r7        \
                                 "]\n adcxq %[low], %[" #r7 "]\n"
        // clang-format off
        __asm__("movq 0(%[b]), %%rdx\n xorl %k[r7], %k[r7]\n mulxq 0(%[a]), %[r0], %[r1]\n"
                "mulxq 8(%[a]), %[low], %[r2]\n addq %[low], %[r1]\n mulxq 16(%[a]), %[low], %[r3]\n"
                "adcq %[low], %[r2]\n mulxq 24(%[a]), %[low], %[r4]\n adcq %[low], %[r3]\n"
                "mulxq 32(%[a]), %[low], %[r5]\n adcq %[low], %[r4]\n mulxq 40(%[a]), %[low], %[r6]\n"
                "adcq %[low], %[r5]\n adcq $0, %[r6]\n"
                ZUL_REDUCE( r0, r1, r2, r3, r4, r5, r6, r7)
                ZUL_ROW(r1, r2, r3, r4, r5, r6, r7, r0, 8)
                ZUL_REDUCE(r1, r2, r3, r4, r5, r6, r7, r0)
                ZUL_ROW(r2, r3, r4, r5, r6, r7, r0, r1, 16)
                ZUL_REDUCE(r2, r3, r4, r5, r6, r7, r0, r1)
                ZUL_ROW(r3, r4, r5, r6, r7, r0, r1, r2, 24)
                ZUL_REDUCE(r3, r4, r5, r6, r7, r0, r1, r2)
                ZUL_ROW(r4, r5, r6, r7, r0, r1, r2, r3, 32)
                ZUL_REDUCE(r4, r5, r6, r7, r0, r1, r2, r3)
                ZUL_ROW(r5, r6, r7, r0, r1, r2, r3, r4, 40)
                ZUL_REDUCE(r5, r6, r7, r0, r1, r2, r3, r4)
                // The result r6, r7, r0 to r3, with the carry r4, less p if it is not below p.
                "movq %[r6], %%rdx\n movq %[r7], %[r5]\n movq %[r0], %[low]\n movq %[r1], %[high]\n"
                "movq %[r2], %[a]\n movq %[r3], %[b]\n subq %[c1], %[r6]\n sbbq %[p1], %[r7]\n"
                "sbbq $-2, %[r0]\n sbbq $-1, %[r1]\n sbbq $-1, %[r2]\n sbbq $-1, %[r3]\n"
                "sbbq $0, %[r4]\n cmovcq %%rdx, %[r6]\n cmovcq %[r5], %[r7]\n cmovcq %[low], %[r0]\n"
                "cmovcq %[high], %[r1]\n cmovcq %[a], %[r2]\n cmovcq %[b], %[r3]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [r6] "=&r"(r6), [r7] "=&r"(r7), [low] "=&r"(low), [high] "=&r"(high),
                  [a] "+&r"(left), [b] "+&r"(right)
                : [c0] "m"(kC0), [c1] "m"(kC1), [p1] "m"(kModulus.p[1])
                : "rdx", "cc", "memory");
        // clang-format on
#undef ZUL_ROW
#undef ZUL_TERM
        product = {r6, r7, r0, r1, r2, r3};
    }

    static ZUL_ALWAYS_INLINE void square(Element& product, const Element& a) {
        // The products of different limbs, then doubled with the squares; limbs 6 to 11 wait in memory.
        uint64_t r0, r1, r2, r3, r4, r5, r6, r7, low, high;
        Element upper;
        const uint64_t* from = a.data();
        // clang-format off
        __asm__("movq 0(%[a]), %%rdx\n mulxq 8(%[a]), %[r1], %[r2]\n mulxq 16(%[a]), %[low], %[r3]\n"
                "addq %[low], %[r2]\n mulxq 24(%[a]), %[low], %[r4]\n adcq %[low], %[r3]\n"
                "mulxq 32(%[a]), %[low], %[r5]\n adcq %[low], %[r4]\n mulxq 40(%[a]), %[low], %[r6]\n"
                "adcq %[low], %[r5]\n adcq $0, %[r6]\n movq 8(%[a]), %%rdx\n xorl %k[r7], %k[r7]\n"
                "mulxq 16(%[a]), %[low], %[high]\n adcxq %[low], %[r3]\n adoxq %[high], %[r4]\n"
                "mulxq 24(%[a]), %[low], %[high]\n adcxq %[low], %[r4]\n adoxq %[high], %[r5]\n"
                "mulxq 32(%[a]), %[low], %[high]\n adcxq %[low], %[r5]\n adoxq %[high], %[r6]\n"
                "mulxq 40(%[a]), %[low], %[high]\n adcxq %[low], %[r6]\n adoxq %[high], %[r7]\n"
                "movl $0, %k[low]\n adcxq %[low], %[r7]\n"
                // r1 to r7 hold limbs 1 to 7; r0 takes limb 8.
                "movq 16(%[a]), %%rdx\n xorl %k[r0], %k[r0]\n mulxq 24(%[a]), %[low], %[high]\n"
                "adcxq %[low], %[r5]\n adoxq %[high], %[r6]\n mulxq 32(%[a]), %[low], %[high]\n"
                "adcxq %[low], %[r6]\n adoxq %[high], %[r7]\n mulxq 40(%[a]), %[low], %[high]\n"
                "adcxq %[low], %[r7]\n adoxq %[high], %[r0]\n movl $0, %k[low]\n adcxq %[low], %[r0]\n"
                // Limbs 1 to 5 are final: doubled, with the squares of limbs 0 to 2, in r1 to r5; limb 6's
                // carries go to memory with what is above.
                "movq 24(%[a]), %%rdx\n mulxq 32(%[a]), %[low], %[high]\n addq %[low], %[r7]\n"
                "adcq %[high], %[r0]\n mulxq 40(%[a]), %[low], %%rdx\n movl $0, %k[high]\n"
                "adcq $0, %[high]\n addq %[low], %[r0]\n adcq %%rdx, %[high]\n movq %[r6], 0(%[u])\n"
                "movq %[r7], 8(%[u])\n movq %[r0], 16(%[u])\n movq 32(%[a]), %%rdx\n"
                "mulxq 40(%[a]), %[low], %[r7]\n addq %[low], %[high]\n adcq $0, %[r7]\n"
                "movq %[high], 24(%[u])\n movq %[r7], 32(%[u])\n movq 0(%[a]), %%rdx\n"
                "xorl %k[r6], %k[r6]\n mulxq %%rdx, %[r0], %[high]\n adcxq %[r1], %[r1]\n"
                "adoxq %[high], %[r1]\n movq 8(%[a]), %%rdx\n mulxq %%rdx, %[low], %[high]\n"
                "adcxq %[r2], %[r2]\n adoxq %[low], %[r2]\n adcxq %[r3], %[r3]\n adoxq %[high], %[r3]\n"
                "movq 16(%[a]), %%rdx\n mulxq %%rdx, %[low], %[high]\n adcxq %[r4], %[r4]\n"
                "adoxq %[low], %[r4]\n adcxq %[r5], %[r5]\n adoxq %[high], %[r5]\n"
                "movq 24(%[a]), %%rdx\n mulxq %%rdx, %[low], %[high]\n movq 0(%[u]), %[r7]\n"
                "adcxq %[r7], %[r7]\n adoxq %[low], %[r7]\n movq %[r7], 0(%[u])\n movq 8(%[u]), %[r7]\n"
                "adcxq %[r7], %[r7]\n adoxq %[high], %[r7]\n movq %[r7], 8(%[u])\n"
                "movq 32(%[a]), %%rdx\n mulxq %%rdx, %[low], %[high]\n movq 16(%[u]), %[r7]\n"
                "adcxq %[r7], %[r7]\n adoxq %[low], %[r7]\n movq %[r7], 16(%[u])\n"
                "movq 24(%[u]), %[r7]\n adcxq %[r7], %[r7]\n adoxq %[high], %[r7]\n"
                "movq %[r7], 24(%[u])\n movq 40(%[a]), %%rdx\n mulxq %%rdx, %[low], %[high]\n"
                "movq 32(%[u]), %[r7]\n adcxq %[r7], %[r7]\n adoxq %[low], %[r7]\n"
                "movq %[r7], 32(%[u])\n movl $0, %k[r7]\n adcxq %[r7], %[high]\n adoxq %[r7], %[high]\n"
                "movq %[high], 40(%[u])\n"
                // Six limbs of reduction. Each begins with a clear limb at the top, and none carries out of it:
                // what the lower half becomes is at most p.
                "xorl %k[r7], %k[r7]\n xorl %k[r6], %k[r6]\n"
                ZUL_REDUCE( r0, r1, r2, r3, r4, r5, r6, r7)
                "xorl %k[r0], %k[r0]\n"
                ZUL_REDUCE(r1, r2, r3, r4, r5, r6, r0, r7)
                "xorl %k[r1], %k[r1]\n"
                ZUL_REDUCE( r2, r3, r4, r5, r6, r0, r1, r7)
                "xorl %k[r2], %k[r2]\n"
                ZUL_REDUCE(r3, r4, r5, r6, r0, r1, r2, r7)
                "xorl %k[r3], %k[r3]\n"
                ZUL_REDUCE( r4, r5, r6, r0, r1, r2, r3, r7)
                "xorl %k[r4], %k[r4]\n"
                ZUL_REDUCE(r5, r6, r0, r1, r2, r3, r4, r7)
                "addq 0(%[u]), %[r6]\n adcq 8(%[u]), %[r0]\n adcq 16(%[u]), %[r1]\n"
                "adcq 24(%[u]), %[r2]\n adcq 32(%[u]), %[r3]\n adcq 40(%[u]), %[r4]\n movl $0, %k[r7]\n"
                "adcq $0, %[r7]\n movq %[r6], %%rdx\n movq %[r0], %[r5]\n movq %[r1], %[low]\n"
                "movq %[r2], %[high]\n movq %[r3], %[a]\n movq %[r4], 0(%[u])\n subq %[c1], %[r6]\n"
                "sbbq %[p1], %[r0]\n sbbq $-2, %[r1]\n sbbq $-1, %[r2]\n sbbq $-1, %[r3]\n"
                "sbbq $-1, %[r4]\n sbbq $0, %[r7]\n cmovcq %%rdx, %[r6]\n cmovcq %[r5], %[r0]\n"
                "cmovcq %[low], %[r1]\n cmovcq %[high], %[r2]\n cmovcq %[a], %[r3]\n"
                "cmovcq 0(%[u]), %[r4]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [r6] "=&r"(r6), [r7] "=&r"(r7), [low] "=&r"(low), [high] "=&r"(high),
                  [a] "+&r"(from)
                : [u] "r"(upper.data()), [c0] "m"(kC0), [c1] "m"(kC1), [p1] "m"(kModulus.p[1])
                : "rdx", "cc", "memory");
        // clang-format on
        product = {r6, r0, r1, r2, r3, r4};
    }
#undef ZUL_REDUCE

    static ZUL_ALWAYS_INLINE void add(Element& sum, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, r4, r5, t0, t1, t2, t3, t4;
        const uint64_t *left = a.data(), *right = b.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n movq 32(%[a]), %[r4]\n movq 40(%[a]), %[r5]\n"
                "addq 0(%[b]), %[r0]\n adcq 8(%[b]), %[r1]\n adcq 16(%[b]), %[r2]\n"
                "adcq 24(%[b]), %[r3]\n adcq 32(%[b]), %[r4]\n adcq 40(%[b]), %[r5]\n movl $0, %k[a]\n"
                "adcq $0, %[a]\n movq %[r0], %[t0]\n movq %[r1], %[t1]\n movq %[r2], %[t2]\n"
                "movq %[r3], %[t3]\n movq %[r4], %[t4]\n movq %[r5], %[b]\n subq %[p0], %[r0]\n"
                "sbbq %[p1], %[r1]\n sbbq $-2, %[r2]\n sbbq $-1, %[r3]\n sbbq $-1, %[r4]\n"
                "sbbq $-1, %[r5]\n sbbq $0, %[a]\n cmovcq %[t0], %[r0]\n cmovcq %[t1], %[r1]\n"
                "cmovcq %[t2], %[r2]\n cmovcq %[t3], %[r3]\n cmovcq %[t4], %[r4]\n cmovcq %[b], %[r5]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [t0] "=&r"(t0), [t1] "=&r"(t1), [t2] "=&r"(t2), [t3] "=&r"(t3),
                  [t4] "=&r"(t4), [a] "+&r"(left), [b] "+&r"(right)
                : [p0] "m"(kModulus.p[0]), [p1] "m"(kModulus.p[1])
                : "cc", "memory");
        // clang-format on
        sum = {r0, r1, r2, r3, r4, r5};
    }

    static ZUL_ALWAYS_INLINE void subtract(Element& difference, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, r4, r5, p0, p1, p2;
        const uint64_t* left = a.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n movq 32(%[a]), %[r4]\n movq 40(%[a]), %[r5]\n"
                "subq 0(%[b]), %[r0]\n sbbq 8(%[b]), %[r1]\n sbbq 16(%[b]), %[r2]\n"
                "sbbq 24(%[b]), %[r3]\n sbbq 32(%[b]), %[r4]\n sbbq 40(%[b]), %[r5]\n"
                // p behind the mask of the borrow, made of the mask alone.
                "sbbq %[a], %[a]\n movl %k[a], %k[p0]\n movq %[a], %[p1]\n shlq $32, %[p1]\n"
                "leaq (%[a],%[a]), %[p2]\n addq %[p0], %[r0]\n adcq %[p1], %[r1]\n adcq %[p2], %[r2]\n"
                "adcq %[a], %[r3]\n adcq %[a], %[r4]\n adcq %[a], %[r5]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [p0] "=&r"(p0), [p1] "=&r"(p1), [p2] "=&r"(p2), [a] "+&r"(left)
                : [b] "r"(b.data())
                : "cc", "memory");
        // clang-format on
        difference = {r0, r1, r2, r3, r4, r5};
    }

    static ZUL_ALWAYS_INLINE void halve(Element& half, const Element& a) {
        uint64_t r0, r1, r2, r3, r4, r5, p0, p1, p2;
        const uint64_t* from = a.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n movq 32(%[a]), %[r4]\n movq 40(%[a]), %[r5]\n"
                "movl %k[r0], %k[a]\n andl $1, %k[a]\n negq %[a]\n movl %k[a], %k[p0]\n"
                "movq %[a], %[p1]\n shlq $32, %[p1]\n leaq (%[a],%[a]), %[p2]\n addq %[p0], %[r0]\n"
                "adcq %[p1], %[r1]\n adcq %[p2], %[r2]\n adcq %[a], %[r3]\n adcq %[a], %[r4]\n"
                "adcq %[a], %[r5]\n rcrq $1, %[r5]\n rcrq $1, %[r4]\n rcrq $1, %[r3]\n rcrq $1, %[r2]\n"
                "rcrq $1, %[r1]\n rcrq $1, %[r0]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [p0] "=&r"(p0), [p1] "=&r"(p1), [p2] "=&r"(p2), [a] "+&r"(from)
                :
                : "cc", "memory");
        // clang-format on
        half = {r0, r1, r2, r3, r4, r5};
    }
};

} // namespace zul
#endif
