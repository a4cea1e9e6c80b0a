#pragma once
#include "bignum/mp.h"
#include "platform/target.h"

// Arithmetic on 64-bit limbs, B = 2^64 each.
namespace zul {

// A typedef, since clang ignores the alignment of an alias.
typedef uint64_t Limb __attribute__((aligned(4), may_alias));
__extension__ typedef unsigned __int128 WideLimb;

#if ZUL_X86_64
// On a little-endian processor a limb is two digits as they lie in memory, so that arrays of digits are read
// in place.
inline Limb* limbs_of(DIGIT_T* digits) {
    return reinterpret_cast<Limb*>(digits);
}

inline const Limb* limbs_of(const DIGIT_T* digits) {
    return reinterpret_cast<const Limb*>(digits);
}
#endif

// Elsewhere they are copied: n digits fill (n + 1) / 2 limbs.
void limbs_from_digits(Limb* w, const DIGIT_T* digits, size_t n);
void limbs_to_digits(DIGIT_T* digits, const Limb* w, size_t n);

// limbs_bits: the count bits (64 at most) of a from the given one on; what is beyond its n limbs reads as
// zero. limbs_add_bits: a += x * 2^bit modulo B^n.
inline uint64_t limbs_bits(const Limb* a, size_t n, size_t bit, size_t count) {
    const size_t i = bit / 64, shift = bit % 64;
    const Limb low = i < n ? a[i] : 0, high = i + 1 < n ? a[i + 1] : 0;
    return (low >> shift | high << 1 << (63 - shift)) & (~uint64_t{0} >> (64 - count));
}
inline void limbs_add_bits(Limb* a, size_t n, uint64_t x, size_t bit) {
    WideLimb carry = static_cast<WideLimb>(x) << bit % 64;
    for (size_t i = bit / 64; carry != 0 && i < n; i++) {
        carry += a[i];
        a[i] = static_cast<Limb>(carry);
        carry >>= 64;
    }
}

// A divisor's two highest limbs with the highest bit set, and the reciprocal of Moeller and Granlund:
// floor((B^3 - 1) / (d1 * B + d0)) - B.
struct LimbReciprocal {
    Limb d1, d0, v;
};

LimbReciprocal limb_reciprocal(Limb d1, Limb d0);

// limb_divide_step divides the n + 1 limbs of w, the n highest of them less than the divisor d (n >= 2), and
// leaves the remainder in the n low limbs. The quotient is returned.
Limb limb_divide_step(Limb* w, const Limb* d, size_t n, const LimbReciprocal& reciprocal);

// limb_divide divides the size limbs of w by the divisor d of n limbs (n >= 2), which has its highest bit
// set; the highest limb of w has not. The quotient is put in its place from limb n on, the remainder in the n
// low limbs.
void limb_divide(Limb* w, size_t size, const Limb* d, size_t n);

// limb_shift_left: w = u * 2^bits for bits below 64; w may be u. The bits shifted out are returned.
Limb limb_shift_left(Limb* w, const Limb* u, size_t n, unsigned bits);
void limb_shift_right(Limb* w, const Limb* u, size_t n, unsigned bits);

Limb limb_subtract(Limb* w, const Limb* u, const Limb* v, size_t n); // the borrow; w may be an operand

} // namespace zul
