#include "ec/x25519.h"

#include "ec/x25519_kernels.h"
#include "frame/wipe.h"
#include "platform/cpu.h"

namespace zul {
namespace {

void swap_if(uint64_t mask, Field25519::Element& a, Field25519::Element& b) {
    for (size_t i = 0; i < a.size(); i++) {
        const uint64_t difference = (a[i] ^ b[i]) & mask;
        a[i] ^= difference;
        b[i] ^= difference;
    }
}

X25519Ladder fastest_ladder() {
#if ZUL_X86_64
    if (cpu_has(kCpuAvx512 | kCpuAvx512Ifma))
        return x25519_ladder_ifma;
#endif
    return x25519_ladder_portable;
}

} // namespace

void x25519_ladder_portable(Field25519::Element& x2, Field25519::Element& z2, const Limbs<4>& scalar,
                            const Field25519::Element& u) {
    using F = Field25519;
    struct State {
        F::Element x3, z3, a, b, aa, bb, e, c, d, da, cb;
    };
    Wiped<State> owner;
    State& s = *owner;
    x2 = F::kOne;
    z2 = {};
    s.x3 = u;
    s.z3 = F::kOne;
    uint64_t swapped = 0;
    for (size_t i = 255; i-- > 0;) {
        const uint64_t bit = limb_mask(limbs_bits(scalar, i, 1));
        swap_if(swapped ^ bit, x2, s.x3);
        swap_if(swapped ^ bit, z2, s.z3);
        swapped = bit;
        F::add(s.a, x2, z2);
        F::subtract(s.b, x2, z2);
        F::add(s.c, s.x3, s.z3);
        F::subtract(s.d, s.x3, s.z3);
        F::square(s.aa, s.a);
        F::square(s.bb, s.b);
        F::multiply(s.da, s.d, s.a);
        F::multiply(s.cb, s.c, s.b);
        F::subtract(s.e, s.aa, s.bb);
        F::add(s.x3, s.da, s.cb);
        F::square(s.x3, s.x3);
        F::subtract(s.z3, s.da, s.cb);
        F::square(s.z3, s.z3);
        F::multiply(s.z3, s.z3, u);
        F::multiply(x2, s.aa, s.bb);
        F::multiply_small(s.d, s.e, kX25519A24);
        F::add(s.d, s.d, s.aa);
        F::multiply(z2, s.e, s.d);
    }
    swap_if(swapped, x2, s.x3);
    swap_if(swapped, z2, s.z3);
}

namespace {

bool multiply(uint8_t* out, const uint8_t* privateKey, const uint8_t* u) {
    using F = Field25519;
    struct State {
        Limbs<4> scalar;
        F::Element x, z;
    };
    Wiped<State> owner;
    State& s = *owner;
    s.scalar = read_little_endian(privateKey);
    s.scalar[0] &= ~uint64_t{7};
    s.scalar[3] = (s.scalar[3] & 0x3FFFFFFFFFFFFFFF) | 0x4000000000000000;
    Limbs<4> coordinate = read_little_endian(u);
    coordinate[3] &= 0x7FFFFFFFFFFFFFFF; // the top bit does not count

    fastest_ladder()(s.x, s.z, s.scalar, F::from_integer(coordinate));
    F::invert(s.z, s.z);
    F::multiply(s.x, s.x, s.z);
    s.scalar = F::to_integer(s.x);
    write_little_endian(out, s.scalar);
    return limbs_nonzero_mask(s.scalar) != 0;
}

} // namespace

bool x25519(uint8_t* out, const uint8_t* privateKey, const uint8_t* u) {
    return WithCleanStack<multiply>::call<4096>(out, privateKey, u);
}

void x25519_public(uint8_t* out, const uint8_t* privateKey) {
    const uint8_t base[kX25519Bytes] = {9};
    (void)x25519(out, privateKey, base);
}

} // namespace zul
