// Bit-sliced Triple DES, 64 blocks at once in plain 64-bit words.
#include <bit>

#include "cipher/des_core.h"
#include "cipher/tdes_bitslice.h"
#include "cipher/tdes_kernels.h"

namespace zul {

namespace {

using V = uint64_t;

ZUL_ALWAYS_INLINE V key_bit(const uint64_t* masks, unsigned offset) {
    return masks[offset];
}

#define ZUL_DES_TARGET
#define ZUL_DES_SBOXES "cipher/des_sboxes.inc"
#include "cipher/tdes_bitslice.inc"

} // namespace

static_assert(std::endian::native == std::endian::little, "a batch is read as little-endian words");

const TdesKernel kTdesPortable = {"portable", 64, 16, tdes_bit_key, crypt};

} // namespace zul
