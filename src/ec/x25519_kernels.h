#pragma once
#include "ec/field25519.h"

namespace zul {

// The Montgomery ladder over bits 254 to 0 of a scalar: x2/z2 is the product. One function per
// implementation.
using X25519Ladder = void (*)(Field25519::Element& x2, Field25519::Element& z2, const Limbs<4>& scalar,
                              const Field25519::Element& u);

void x25519_ladder_portable(Field25519::Element& x2, Field25519::Element& z2, const Limbs<4>& scalar,
                            const Field25519::Element& u);
#if ZUL_X86_64
void x25519_ladder_ifma(Field25519::Element& x2, Field25519::Element& z2, const Limbs<4>& scalar,
                        const Field25519::Element& u);
#endif

constexpr uint32_t kX25519A24 = 121665; // (486662 - 2) / 4

} // namespace zul
