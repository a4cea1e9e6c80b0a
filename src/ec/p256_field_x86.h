#pragma once
#include "ec/p256_field.h"

#if ZUL_X86_64
namespace zul {

// P256Field for processors with BMI2 and ADX: products with two carry chains, and reductions that use the
// form of p: adding q p to limbs 0 to 4 clears limb 0 and adds q 2^32 to limbs 1 and 2, and q times the top
// limb of p to limbs 3 and 4.
struct ZUL_HIDDEN P256FieldX86 : P256Field {
    static ZUL_ALWAYS_INLINE void multiply(Element& product, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, r4, r5, low, high, saved;
#define ZUL_ROW(r0, r1, r2, r3, r4, r5, offset)                                                              \
    "movq " #offset "(%[b]), %%rdx\n xorl %k[saved], %k[saved]\n"                                            \
    "mulxq 0(%[a]), %[low], %[high]\n adcxq %[low], %[" #r0 "]\n adoxq %[high], %[" #r1 "]\n"                \
    "mulxq 8(%[a]), %[low], %[high]\n adcxq %[low], %[" #r1 "]\n adoxq %[high], %[" #r2 "]\n"                \
    "mulxq 16(%[a]), %[low], %[high]\n adcxq %[low], %[" #r2 "]\n adoxq %[high], %[" #r3 "]\n"               \
    "mulxq 24(%[a]), %[low], %[high]\n adcxq %[low], %[" #r3 "]\n adoxq %[high], %[" #r4 "]\n"               \
    "adcxq %[saved], %[" #r4 "]\n adoxq %[saved], %[" #r5 "]\n adcxq %[saved], %[" #r5 "]\n"
#define ZUL_REDUCE(r0, r1, r2, r3, r4, r5)                                                                   \
    "movq %[" #r0 "], %%rdx\n movq %[" #r0 "], %[low]\n shlq $32, %[low]\n shrq $32, %[" #r0 "]\n"           \
    "addq %[low], %[" #r1 "]\n adcq %[" #r0 "], %[" #r2 "]\n"                                                \
    "mulxq %[p3], %[low], %[high]\n adcq %[low], %[" #r3 "]\n adcq %[high], %[" #r4 "]\n"                    \
    "adcq $0, %[" #r5 "]\n movl $0, %k[" #r0 "]\n"
        // clang-format off
        __asm__("movq 0(%[b]), %%rdx\n xorl %k[r5], %k[r5]\n mulxq 0(%[a]), %[r0], %[r1]\n"
                "mulxq 8(%[a]), %[low], %[r2]\n addq %[low], %[r1]\n mulxq 16(%[a]), %[low], %[r3]\n"
                "adcq %[low], %[r2]\n mulxq 24(%[a]), %[low], %[r4]\n adcq %[low], %[r3]\n"
                "adcq $0, %[r4]\n"
                ZUL_REDUCE(r0, r1, r2, r3, r4, r5)
                ZUL_ROW(r1, r2, r3, r4, r5, r0, 8)
                ZUL_REDUCE(r1, r2, r3, r4, r5, r0)
                ZUL_ROW(r2, r3, r4, r5, r0, r1, 16)
                ZUL_REDUCE(r2, r3, r4, r5, r0, r1)
                ZUL_ROW(r3, r4, r5, r0, r1, r2, 24)
                ZUL_REDUCE(r3, r4, r5, r0, r1, r2)
                // The result r4, r5, r0, r1, with the carry r2, less p if it is not below p.
                "movq %[r4], %[r3]\n movq %[r5], %[low]\n movq %[r0], %[high]\n movq %[r1], %[saved]\n"
                "subq $-1, %[r4]\n movl $0xFFFFFFFF, %%edx\n sbbq %%rdx, %[r5]\n sbbq $0, %[r0]\n"
                "sbbq %[p3], %[r1]\n sbbq $0, %[r2]\n cmovcq %[r3], %[r4]\n cmovcq %[low], %[r5]\n"
                "cmovcq %[high], %[r0]\n cmovcq %[saved], %[r1]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [low] "=&r"(low), [high] "=&r"(high), [saved] "=&r"(saved)
                : [a] "r"(a.data()), [b] "r"(b.data()), [p3] "m"(kModulus.p[3])
                : "rdx", "cc", "memory");
        // clang-format on
#undef ZUL_REDUCE
#undef ZUL_ROW
        product = {r4, r5, r0, r1};
    }

    static ZUL_ALWAYS_INLINE void square(Element& product, const Element& a) {
        uint64_t r0, r1, r2, r3, r4, r5, r6, r7, low, high;
#define ZUL_REDUCE(r0, r1, r2, r3)                                                                           \
    "movq %[" #r0 "], %%rdx\n movq %[" #r0 "], %[low]\n shlq $32, %[low]\n shrq $32, %[" #r0 "]\n"           \
    "addq %[low], %[" #r1 "]\n adcq %[" #r0 "], %[" #r2 "]\n"                                                \
    "mulxq %[p3], %[low], %[" #r0 "]\n adcq %[low], %[" #r3 "]\n adcq $0, %[" #r0 "]\n"
        // clang-format off
        __asm__("movq 0(%[a]), %%rdx\n mulxq 8(%[a]), %[r1], %[r2]\n mulxq 16(%[a]), %[low], %[r3]\n"
                "addq %[low], %[r2]\n mulxq 24(%[a]), %[low], %[r4]\n adcq %[low], %[r3]\n"
                "adcq $0, %[r4]\n movq 8(%[a]), %%rdx\n mulxq 16(%[a]), %[low], %[high]\n"
                "mulxq 24(%[a]), %[r0], %[r5]\n addq %[low], %[r3]\n adcq %[high], %[r4]\n"
                "adcq $0, %[r5]\n movq 16(%[a]), %%rdx\n mulxq 24(%[a]), %[low], %[r6]\n"
                "addq %[r0], %[r4]\n adcq %[low], %[r5]\n adcq $0, %[r6]\n"
                // Doubled on one chain while the squares are added on the other.
                "xorl %k[r7], %k[r7]\n movq 0(%[a]), %%rdx\n mulxq %%rdx, %[r0], %[high]\n"
                "adcxq %[r1], %[r1]\n adoxq %[high], %[r1]\n movq 8(%[a]), %%rdx\n"
                "mulxq %%rdx, %[low], %[high]\n adcxq %[r2], %[r2]\n adoxq %[low], %[r2]\n"
                "adcxq %[r3], %[r3]\n adoxq %[high], %[r3]\n movq 16(%[a]), %%rdx\n"
                "mulxq %%rdx, %[low], %[high]\n adcxq %[r4], %[r4]\n adoxq %[low], %[r4]\n"
                "adcxq %[r5], %[r5]\n adoxq %[high], %[r5]\n movq 24(%[a]), %%rdx\n"
                "mulxq %%rdx, %[low], %[high]\n adcxq %[r6], %[r6]\n adoxq %[low], %[r6]\n"
                "adcxq %[r7], %[r7]\n adoxq %[high], %[r7]\n"
                ZUL_REDUCE(r0, r1, r2, r3)
                ZUL_REDUCE(r1, r2, r3, r0)
                ZUL_REDUCE(r2, r3, r0, r1)
                ZUL_REDUCE( r3, r0, r1, r2)
                "xorl %%edx, %%edx\n addq %[r4], %[r0]\n adcq %[r5], %[r1]\n adcq %[r6], %[r2]\n"
                "adcq %[r7], %[r3]\n adcq $0, %%rdx\n movq %[r0], %[r4]\n movq %[r1], %[r5]\n"
                "movq %[r2], %[r6]\n movq %[r3], %[r7]\n movl $0xFFFFFFFF, %k[low]\n subq $-1, %[r0]\n"
                "sbbq %[low], %[r1]\n sbbq $0, %[r2]\n sbbq %[p3], %[r3]\n sbbq $0, %%rdx\n"
                "cmovcq %[r4], %[r0]\n cmovcq %[r5], %[r1]\n cmovcq %[r6], %[r2]\n cmovcq %[r7], %[r3]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [r4] "=&r"(r4),
                  [r5] "=&r"(r5), [r6] "=&r"(r6), [r7] "=&r"(r7), [low] "=&r"(low), [high] "=&r"(high)
                : [a] "r"(a.data()), [p3] "m"(kModulus.p[3])
                : "rdx", "cc", "memory");
        // clang-format on
#undef ZUL_REDUCE
        product = {r0, r1, r2, r3};
    }

    static ZUL_ALWAYS_INLINE void add(Element& sum, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, t0, t1, t2;
        const uint64_t *left = a.data(), *right = b.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n addq 0(%[b]), %[r0]\n adcq 8(%[b]), %[r1]\n"
                "adcq 16(%[b]), %[r2]\n adcq 24(%[b]), %[r3]\n movl $0, %k[a]\n adcq $0, %[a]\n"
                "movq %[r0], %[t0]\n movq %[r1], %[t1]\n movq %[r2], %[t2]\n movq %[r3], %[b]\n"
                "subq $-1, %[r0]\n sbbq %[p1], %[r1]\n sbbq $0, %[r2]\n sbbq %[p3], %[r3]\n"
                "sbbq $0, %[a]\n cmovcq %[t0], %[r0]\n cmovcq %[t1], %[r1]\n cmovcq %[t2], %[r2]\n"
                "cmovcq %[b], %[r3]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [t0] "=&r"(t0),
                  [t1] "=&r"(t1), [t2] "=&r"(t2), [a] "+&r"(left), [b] "+&r"(right)
                : [p1] "m"(kModulus.p[1]), [p3] "m"(kModulus.p[3])
                : "cc", "memory");
        // clang-format on
        sum = {r0, r1, r2, r3};
    }

    static ZUL_ALWAYS_INLINE void subtract(Element& difference, const Element& a, const Element& b) {
        uint64_t r0, r1, r2, r3, p1, p3;
        const uint64_t* left = a.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n subq 0(%[b]), %[r0]\n sbbq 8(%[b]), %[r1]\n"
                "sbbq 16(%[b]), %[r2]\n sbbq 24(%[b]), %[r3]\n"
                // p behind the mask of the borrow: its limb 0 is the mask, and limb 1 the mask's low half.
                "sbbq %[a], %[a]\n movl %k[a], %k[p1]\n movq %[top], %[p3]\n andq %[a], %[p3]\n"
                "addq %[a], %[r0]\n adcq %[p1], %[r1]\n adcq $0, %[r2]\n adcq %[p3], %[r3]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [p1] "=&r"(p1),
                  [p3] "=&r"(p3), [a] "+&r"(left)
                : [b] "r"(b.data()), [top] "m"(kModulus.p[3])
                : "cc", "memory");
        // clang-format on
        difference = {r0, r1, r2, r3};
    }

    static ZUL_ALWAYS_INLINE void halve(Element& half, const Element& a) {
        uint64_t r0, r1, r2, r3, p1, p3;
        const uint64_t* from = a.data();
        // clang-format off
        __asm__("movq 0(%[a]), %[r0]\n movq 8(%[a]), %[r1]\n movq 16(%[a]), %[r2]\n"
                "movq 24(%[a]), %[r3]\n movl %k[r0], %k[a]\n andl $1, %k[a]\n negq %[a]\n"
                "movl %k[a], %k[p1]\n movq %[top], %[p3]\n andq %[a], %[p3]\n addq %[a], %[r0]\n"
                "adcq %[p1], %[r1]\n adcq $0, %[r2]\n adcq %[p3], %[r3]\n rcrq $1, %[r3]\n"
                "rcrq $1, %[r2]\n rcrq $1, %[r1]\n rcrq $1, %[r0]\n"
                : [r0] "=&r"(r0), [r1] "=&r"(r1), [r2] "=&r"(r2), [r3] "=&r"(r3), [p1] "=&r"(p1),
                  [p3] "=&r"(p3), [a] "+&r"(from)
                : [top] "m"(kModulus.p[3])
                : "cc", "memory");
        // clang-format on
        half = {r0, r1, r2, r3};
    }
};

} // namespace zul
#endif
