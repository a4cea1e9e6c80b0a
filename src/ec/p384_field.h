#pragma once
#include "ec/montgomery_field.h"

// The field of P-384 (SP 800-186, 3.2.1.4): p = 2^384 - 2^128 - 2^96 + 2^32 - 1, in Montgomery's form.
namespace zul {

struct P384Curve {
    static constexpr size_t kBits = 384, kLimbs = 6;
    static constexpr Limbs<kLimbs> kPrime = {0x00000000FFFFFFFF, 0xFFFFFFFF00000000, 0xFFFFFFFFFFFFFFFE,
                                             0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF};
    static constexpr Limbs<kLimbs> kOrder = {0xECEC196ACCC52973, 0x581A0DB248B0A77A, 0xC7634D81F4372DDF,
                                             0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF};
    static constexpr Limbs<kLimbs> kIntegerB = {0x2A85C8EDD3EC2AEF, 0xC656398D8A2ED19D, 0x0314088F5013875A,
                                                0x181D9C6EFE814112, 0x988E056BE3F82D19, 0xB3312FA7E23EE7E4};
    static constexpr Limbs<kLimbs> kIntegerX = {0x3A545E3872760AB7, 0x5502F25DBF55296C, 0x59F741E082542A38,
                                                0x6E1D3B628BA79B98, 0x8EB1C71EF320AD74, 0xAA87CA22BE8B0537};
    static constexpr Limbs<kLimbs> kIntegerY = {0x7A431D7C90EA0E5F, 0x0A60B1CE1D7E819D, 0xE9DA3113B5F0B8C0,
                                                0xF8F41DBD289A147C, 0x5D9E98BF9292DC29, 0x3617DE4A96262C6F};

    using Step = MontgomeryStep<kLimbs>;
};

using P384Field = MontgomeryField<P384Curve>;

} // namespace zul
