#pragma once
#include "ec/montgomery_field.h"

// The field of P-256 (SP 800-186, 3.2.1.3): p = 2^256 - 2^224 + 2^192 + 2^96 - 1, in Montgomery's form.
namespace zul {

struct P256Curve {
    static constexpr size_t kBits = 256, kLimbs = 4;
    static constexpr Limbs<kLimbs> kPrime = {0xFFFFFFFFFFFFFFFF, 0x00000000FFFFFFFF, 0, 0xFFFFFFFF00000001};
    static constexpr Limbs<kLimbs> kOrder = {0xF3B9CAC2FC632551, 0xBCE6FAADA7179E84, 0xFFFFFFFFFFFFFFFF,
                                             0xFFFFFFFF00000000};
    static constexpr Limbs<kLimbs> kIntegerB = {0x3BCE3C3E27D2604B, 0x651D06B0CC53B0F6, 0xB3EBBD55769886BC,
                                                0x5AC635D8AA3A93E7};
    static constexpr Limbs<kLimbs> kIntegerX = {0xF4A13945D898C296, 0x77037D812DEB33A0, 0xF8BCE6E563A440F2,
                                                0x6B17D1F2E12C4247};
    static constexpr Limbs<kLimbs> kIntegerY = {0xCBB6406837BF51F5, 0x2BCE33576B315ECE, 0x8EE7EB4A7C0F9E16,
                                                0x4FE342E2FE1A7F9B};

    // -1/p is 1 modulo 2^64, so the multiple of p to add is limb 0 times p. That clears limb 0 and adds its
    // product with 2^32 to limbs 1 and 2, and with the top limb of p to limbs 3 and 4.
    struct Step {
        const MontgomeryModulus<kLimbs>& modulus;

        constexpr ZUL_ALWAYS_INLINE uint64_t operator()(Limbs<kLimbs>& t, uint64_t top) const {
            const uint64_t quotient = t[0];
            uint64_t carry = 0, high = 0;
            const uint64_t low = multiply_add(0, quotient, kPrime[3], high);
            t[0] = add_carry(t[1], quotient << 32, carry);
            t[1] = add_carry(t[2], quotient >> 32, carry);
            t[2] = add_carry(t[3], low, carry);
            t[3] = add_carry(top, high, carry);
            return carry;
        }
    };
};

using P256Field = MontgomeryField<P256Curve>;

} // namespace zul
